// Files that stand beside the tests.
#pragma once

#include "Test.h"

namespace tarnwell::fakes {

// The content byte for byte; the path is below tests/.
inline std::string ReadTestFile(const std::string& path) {
  std::ifstream stream(std::string(TARNWELL_TESTS "/") + path, std::ios::binary);
  EXPECT_TRUE(stream.is_open()) << path;
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace tarnwell::fakes
