// What must hold for any bytes as a search that was kept: as RecordProperties.h for records.
#pragma once

#include <algorithm>

#include "tools/FindSettings.h"

namespace tarnwell::fuzz {

// The first rule that the line breaks; empty when it breaks none.
inline std::string BrokenFindRule(std::string_view line) {
  const auto read = tools::ReadFindSettings(line);
  if (!read) return "";
  const std::string written = tools::WriteFindSettings(*read);
  if (tools::ReadFindSettings(written) != read) return "a search that is read becomes another one";
  const bool isPlain =
      std::ranges::all_of(written, [](char letter) { return letter > ' ' && letter < '\x7F'; });
  return isPlain ? "" : "a search that is kept is no line of ASCII";
}

}  // namespace tarnwell::fuzz
