// libFuzzer target: any bytes as an expression, a replacement and a text that is searched; and as a
// search that was kept.
#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "fuzz/FindProperties.h"
#include "fuzz/SearchProperties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view content(reinterpret_cast<const char*>(data), size);
  std::string broken = tarnwell::fuzz::BrokenFindRule(content);
  if (broken.empty()) broken = tarnwell::fuzz::BrokenSearchRule(content);
  if (!broken.empty()) {
    std::cerr << broken << '\n';
    std::abort();
  }
  return 0;
}
