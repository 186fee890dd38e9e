// What the help says.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace tarnwell::tools {

inline constexpr std::string_view SupportAddress = "support@tarnwell.example";

enum class HelpStyle { Chapter, Topic, Body };

struct HelpPart {
  HelpStyle Style;
  std::string_view Text;
};

inline constexpr std::size_t HelpPartCount = 21;

// From the top down.
const std::array<HelpPart, HelpPartCount>& HelpText();

}  // namespace tarnwell::tools
