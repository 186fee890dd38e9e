// What a search is for, as people type it, and how it is kept from one run of the program to the
// next.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarnwell::tools {

// Units of sizes, each 1024 times the one before it.
enum FindUnit : int { UnitBytes, UnitKB, UnitMB, UnitGB };
inline constexpr int FindUnitCount = UnitGB + 1;

// When an item was changed last. All but the last two are counted back from the moment at which the
// search begins.
enum FindDates : int {
  AnyDate,
  LastHour,
  Today,  // since midnight
  Last7Days,
  Last4Weeks,
  Last12Months,  // 365 days
  BetweenDates,
};
inline constexpr int FindDatesCount = BetweenDates + 1;

enum FindDepth : int { AllLevels, FirstLevel, SomeLevels };
inline constexpr int FindDepthCount = SomeLevels + 1;

// Texts as they were typed: whether they mean something, FindRequest tells.
struct FindSettings {
  std::string Folder = {};
  std::string Name = {};  // by the rules of lister::NameFilter, or an expression; empty for any
  bool IsNameRegex = false;
  std::string Text = {};  // within files; empty for any
  bool IsTextRegex = false;
  bool MatchesCase = false;
  bool IsWholeWords = false;
  bool LooksIntoBinary = false;
  std::string LargestFile = {};  // to be looked into; empty for any
  int LargestFileUnit = UnitMB;
  std::string SizeFrom = {}, SizeTo = {};
  int SizeFromUnit = UnitKB, SizeToUnit = UnitKB;
  int Dates = AnyDate;
  std::string DateFrom = {}, DateTo = {};  // for BetweenDates; either may be empty
  bool FindsFiles = true;
  bool FindsFolders = true;
  bool FindsLinks = true;
  bool FindsOthers = true;
  int Depth = AllLevels;
  std::string Levels = "2";  // for SomeLevels
  bool TakesHidden = false;
  bool EntersVolumes = false;

  bool operator==(const FindSettings&) const = default;
};

// One line of ASCII, "field=value" with '&' between them; what stands for itself in no such line is
// %XX. Only what differs from a FindSettings as it is made is in it.
std::string WriteFindSettings(const FindSettings& settings);
// Nothing for a text that is no such line. Fields that are not known, since a newer program wrote
// them, are left out.
std::optional<FindSettings> ReadFindSettings(std::string_view line);

}  // namespace tarnwell::tools
