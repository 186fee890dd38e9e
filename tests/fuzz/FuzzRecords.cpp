// libFuzzer target: any bytes as a settings file.
#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "RecordProperties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view content(reinterpret_cast<const char*>(data), size);
  const std::string broken = tarnwell::fuzz::BrokenRule(content);
  if (!broken.empty()) {
    std::cerr << broken << '\n';
    std::abort();
  }
  return 0;
}
