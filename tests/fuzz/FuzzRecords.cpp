// libFuzzer target: any bytes as a settings file, and as a skin.
#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "fuzz/RecordProperties.h"
#include "fuzz/SkinProperties.h"

namespace {

tarnwell::settings::TestProgram& Program() {
  static tarnwell::settings::TestProgram program;
  static const auto started = program.Start();
  return program;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view content(reinterpret_cast<const char*>(data), size);
  std::string broken = tarnwell::fuzz::BrokenRule(content);
  if (broken.empty()) broken = tarnwell::fuzz::BrokenSkinRule(Program(), std::string(content));
  if (!broken.empty()) {
    std::cerr << broken << '\n';
    std::abort();
  }
  return 0;
}
