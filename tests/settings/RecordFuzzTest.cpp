#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "fuzz/RecordProperties.h"

namespace tarnwell::settings {
namespace {

std::string ReadWhole(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

TEST(RecordFuzzTest, KeptContentsBreakNoRuleWholeOrCutShort) {
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(TARNWELL_TESTS "/fuzz/corpus")) {
    const std::string content = ReadWhole(entry.path());
    for (std::size_t size = 0; size <= content.size(); ++size) {
      ASSERT_EQ(fuzz::BrokenRule(std::string_view(content).substr(0, size)), "")
          << entry.path() << ", first " << size << " bytes";
    }
    ++files;
  }
  EXPECT_GT(files, 10);
}

}  // namespace
}  // namespace tarnwell::settings
