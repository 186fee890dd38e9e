#include "tools/FindTexts.h"

#include "base/LetterCase.h"
#include "base/Text.h"
#include "lister/rows/CellText.h"
#include "platform/CountedTexts.h"

namespace tarnwell::tools {

using platform::Counted;
using platform::CountedText;

const std::array<std::string_view, FindUnitCount> FindUnitNames{"bytes", "KiB", "MiB", "GiB"};
const std::array<std::string_view, FindDatesCount> FindDatesNames{
    "At any time",         "In the last hour",      "Today",        "In the last 7 days",
    "In the last 4 weeks", "In the last 12 months", "Between dates"};
const std::array<std::string_view, FindDepthCount> FindDepthNames{"All levels", "This folder only",
                                                                  "Levels:"};

namespace {

constexpr std::array<std::string_view, 5> StageNames = {"", "Searching", "Done", "Stopped",
                                                        "Not done"};

std::string SizeWords(std::string_view word, const std::string& size, int unit) {
  return std::string(word) + " " + size + " " +
         std::string(FindUnitNames.at(static_cast<std::size_t>(unit)));
}

class Pieces {
 public:
  void Add(const std::string& piece) {
    if (!text_.empty()) text_ += ", ";
    text_ += piece;
  }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

}  // namespace

std::string FindCaption(const FindSettings& settings) {
  Pieces pieces;
  if (!settings.Name.empty()) pieces.Add(settings.Name);
  if (!settings.Text.empty()) pieces.Add('"' + settings.Text + '"');
  if (!settings.SizeFrom.empty())
    pieces.Add(SizeWords("from", settings.SizeFrom, settings.SizeFromUnit));
  if (!settings.SizeTo.empty()) pieces.Add(SizeWords("to", settings.SizeTo, settings.SizeToUnit));
  if (settings.Dates == BetweenDates) {
    pieces.Add(settings.DateFrom + " to " + settings.DateTo);
  } else if (settings.Dates != AnyDate) {
    std::string dates(FindDatesNames.at(static_cast<std::size_t>(settings.Dates)));
    dates[0] = base::SmallAscii(dates[0]);
    pieces.Add(dates);
  }
  if (pieces.Text().empty()) pieces.Add("everything");
  return pieces.Text() + " in " + settings.Folder;
}

std::string FindStatus(const FindProgress& progress, const platform::NumberForms& numbers) {
  if (progress.Stage == FindStage::NotBegun) return "";
  const platform::SearchCounts& counts = progress.Counts;
  Pieces pieces;
  pieces.Add(Counted(numbers, CountedText::FoundItems, counts.Found));
  pieces.Add(Counted(numbers, CountedText::FoldersVisited, counts.Folders));
  pieces.Add(Counted(numbers, CountedText::ItemsSeen, counts.Items));
  if (progress.LooksIntoFiles) {
    pieces.Add(Counted(numbers, CountedText::LookedInto, counts.LookedInto,
                       {lister::ByteText(numbers, counts.Bytes)}));
  }
  constexpr double millisecondsOfSecond = 1000;
  const double seconds = static_cast<double>(progress.Elapsed.count()) / millisecondsOfSecond;
  constexpr double leastForSpeed = 0.1;
  if (seconds >= leastForSpeed) {
    const double speed = static_cast<double>(counts.Items) / seconds;
    pieces.Add(Counted(numbers, CountedText::ItemsPerSecond, static_cast<std::uint64_t>(speed)));
  }
  constexpr double mostWithDecimals = 60;
  pieces.Add((seconds < mostWithDecimals ? numbers.Decimal(seconds, 1)
                                         : numbers.Grouped(static_cast<std::uint64_t>(seconds))) +
             " s");
  const std::pair<CountedText, std::uint64_t> skipped[] = {
      {CountedText::SkippedBinary, counts.Binary},
      {CountedText::SkippedLarge, counts.TooLarge},
      {CountedText::NamesGivenUp, progress.NamesGivenUp}};
  for (const auto& [text, number] : skipped) {
    if (number > 0) pieces.Add(Counted(numbers, text, number));
  }
  return std::string(StageNames.at(static_cast<std::size_t>(progress.Stage))) + ": " +
         pieces.Text();
}

std::string TroubleLines(const std::vector<platform::SearchTrouble>& troubles) {
  std::string lines;
  for (const platform::SearchTrouble& each : troubles) {
    lines += base::ForDisplay(each.Path) + ": " + each.Reason.Reason + '\n';
  }
  return lines;
}

}  // namespace tarnwell::tools
