// Names for an item beside its like.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnwell::platform {

// A name, cut where the number of a twin goes: "report (2).txt" is "report", 2 and ".txt".
struct TwinParts {
  std::string_view Stem;
  unsigned Number = 1;  // 1 for a name without one
  std::string_view Extension;
};

// A folder's name has no extension, and neither has a name with its only dot in front. An archive's
// double extension (".tar.gz") counts as one.
TwinParts SplitTwinName(std::string_view name, bool isFolder);

// "report (3).txt". The stem is cut, between two characters, where the name would be longer than
// `longest` bytes, of which there are some tens.
std::string MakeTwinName(const TwinParts& parts, unsigned number, std::size_t longest = 255);

// "report (being replaced).txt", or "report (being replaced 2).txt": the same with a word that says
// why the item has not its own name.
std::string MakeAsideName(const TwinParts& parts, std::string_view word, unsigned number);

}  // namespace tarnwell::platform
