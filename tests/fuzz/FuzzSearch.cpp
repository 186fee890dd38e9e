// libFuzzer target: any bytes as an expression, a replacement and a text that is searched.
#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "fuzz/SearchProperties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string broken =
      tarnwell::fuzz::BrokenSearchRule({reinterpret_cast<const char*>(data), size});
  if (!broken.empty()) {
    std::cerr << broken << '\n';
    std::abort();
  }
  return 0;
}
