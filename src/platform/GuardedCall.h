// Calls back into the program from C, which no exception may pass.
#pragma once

#include <cstdio>
#include <exception>

namespace tarnwell::platform {

// A failure goes to the terminal; the program goes on.
template <typename Work>
void GuardedCall(const Work& work) noexcept {
  try {
    work();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tarnwell: %s\n", error.what());
  }
}

}  // namespace tarnwell::platform
