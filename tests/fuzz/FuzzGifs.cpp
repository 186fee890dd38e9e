// libFuzzer target: any bytes as the splash's animation.
#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "fuzz/GifProperties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string broken =
      tarnwell::fuzz::BrokenGifRule({reinterpret_cast<const char*>(data), size});
  if (!broken.empty()) {
    std::cerr << broken << '\n';
    std::abort();
  }
  return 0;
}
