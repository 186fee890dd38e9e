// What the window of searches says, in words and numbers.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileSearch.h"
#include "platform/NumberForms.h"
#include "tools/FindSettings.h"

namespace tarnwell::tools {

extern const std::array<std::string_view, FindUnitCount> FindUnitNames;
extern const std::array<std::string_view, FindDatesCount> FindDatesNames;
extern const std::array<std::string_view, FindDepthCount> FindDepthNames;

// One line that tells a search from others: "*.txt, "invoice", Last 7 days in /home/ann".
std::string FindCaption(const FindSettings& settings);

enum class FindStage : std::uint8_t { NotBegun, Running, Done, Stopped, Failed };

struct FindProgress {
  FindStage Stage = FindStage::NotBegun;
  bool LooksIntoFiles = false;
  platform::SearchCounts Counts{};
  std::uint64_t NamesGivenUp = 0;
  std::chrono::milliseconds Elapsed{0};
};

// Empty before a search has begun.
std::string FindStatus(const FindProgress& progress, const platform::NumberForms& numbers);

// A line for each, "path: reason".
std::string TroubleLines(const std::vector<platform::SearchTrouble>& troubles);

}  // namespace tarnwell::tools
