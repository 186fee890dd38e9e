// libFuzzer target: any bytes as a note of the trash, and as its sizes.
#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "fuzz/TrashProperties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string broken =
      tarnwell::fuzz::BrokenTrashRule({reinterpret_cast<const char*>(data), size});
  if (!broken.empty()) {
    std::cerr << broken << '\n';
    std::abort();
  }
  return 0;
}
