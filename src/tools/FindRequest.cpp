#include "tools/FindRequest.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string_view>
#include <utility>

#include "base/Number.h"
#include "base/Text.h"
#include "lister/list/ListMemory.h"
#include "lister/rows/NameFilter.h"
#include "platform/CountedTexts.h"

namespace tarnwell::tools {
namespace {

constexpr std::int64_t Second = 1'000'000'000;
constexpr std::int64_t SecondsOfDay = 24 * 60 * 60;

constexpr std::string_view Breaks = "This is no regular expression: %1, behind \"%2\".";
constexpr std::string_view BreaksAtOnce = "This is no regular expression: %1, at its start.";

// Days from 1970-01-01 to a day of the Gregorian calendar, whose years begin in March here so that
// the day of a leap year is the last one.
std::int64_t DaysOf(int year, int month, int day) {
  const std::int64_t years = month > 2 ? year : year - 1;
  const std::int64_t months = (month + 9) % 12;
  constexpr std::int64_t daysToStart = 719'468;
  return years * 365 + years / 4 - years / 100 + years / 400 + (months * 153 + 2) / 5 + day - 1 -
         daysToStart;
}

std::int64_t SecondsOf(const platform::LocalTime& time) {
  return DaysOf(time.Year, time.Month, time.Day) * SecondsOfDay + time.Hour * 3600 +
         time.Minute * 60 + time.Second;
}

bool IsDay(const platform::LocalTime& time) {
  constexpr std::array lengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (time.Month < 1 || time.Month > 12 || time.Day < 1) return false;
  const bool isLeap = time.Year % 4 == 0 && (time.Year % 100 != 0 || time.Year % 400 == 0);
  const int length = lengths.at(static_cast<std::size_t>(time.Month - 1));
  return time.Day <= length + (isLeap && time.Month == 2 ? 1 : 0);
}

// Takes so many digits from the start of the text.
bool TakeDigits(std::string_view& text, std::size_t count, int& number) {
  if (text.size() < count) return false;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + count, number);
  if (error != std::errc() || stop != text.data() + count || number < 0) return false;
  text.remove_prefix(count);
  return true;
}

bool TakeMark(std::string_view& text, std::string_view marks) {
  if (text.empty() || marks.find(text[0]) == marks.npos) return false;
  text.remove_prefix(1);
  return true;
}

// As the user's language has it.
std::string DecimalMark(const platform::NumberForms& numbers) {
  const std::string sample = numbers.Decimal(1.5, 1);
  return sample.size() > 2 ? sample.substr(1, sample.size() - 2) : ".";
}

// Reads the fields of one search, and puts down what is wrong with them.
class FindReader {
 public:
  FindReader(const FindSettings& settings, const FindTools& tools, FindFaults& faults)
      : settings_(settings), tools_(tools), faults_(faults) {
    faults_ = {};
  }

  std::optional<FindRequest> Read() {
    FindRequest made;
    platform::SearchRequest& request = made.Request;
    ReadFolder(request);
    ReadName(made);
    ReadText(request);
    ReadSizes(request);
    ReadDates(request);
    ReadKinds(request);
    request.TakesHidden = settings_.TakesHidden;
    request.EntersVolumes = settings_.EntersVolumes;
    if (std::ranges::any_of(faults_, [](const std::string& fault) { return !fault.empty(); }))
      return {};
    return made;
  }

 private:
  // The first that is wrong with a field counts.
  void Fault(FindField field, std::string text) {
    std::string& fault = faults_.at(static_cast<std::size_t>(field));
    if (fault.empty()) fault = std::move(text);
  }

  void ReadFolder(platform::SearchRequest& request) {
    request.Folder = lister::PlainPath(tools_.Syntax, settings_.Folder);
    if (request.Folder.empty()) {
      Fault(FindField::Folder, "Name the folder to look in.");
    } else if (!tools_.Syntax.IsWhole(request.Folder)) {
      Fault(FindField::Folder, "Type the whole path of the folder.");
    }
    if (settings_.Depth == FirstLevel) request.Levels = 1;
    if (settings_.Depth != SomeLevels) return;
    const std::string_view typed = base::Trim(settings_.Levels);
    const char* const end = typed.data() + typed.size();
    const auto [stop, error] = std::from_chars(typed.data(), end, request.Levels);
    if (error != std::errc() || stop != end || request.Levels == 0) {
      Fault(FindField::Kinds, "The number of levels has to be a whole number from 1 on.");
    }
  }

  // Null, with the fault, for what is no expression.
  std::unique_ptr<platform::Regex> Compile(FindField field, const std::string& text,
                                           const platform::RegexOptions& options) {
    platform::RegexFault fault;
    auto regex = tools_.Regex(text, options, fault);
    if (!regex) {
      const std::string before = base::ForDisplay(text.substr(0, fault.At));
      Fault(field, platform::Filled(fault.At == 0 ? BreaksAtOnce : Breaks, {fault.Reason, before}));
    }
    return regex;
  }

  void ReadName(FindRequest& made) {
    made.NamesGivenUp = std::make_shared<std::atomic<std::uint64_t>>(0);
    if (settings_.IsNameRegex && tools_.Regex) return ReadNameRegex(made);
    lister::NameFilter filter;
    filter.SetText(settings_.Name);
    if (!filter.IsOn()) return;
    made.Request.MakeNameTest = [filter] {
      return
          [filter](std::string_view name, bool isFolder) { return filter.Takes(name, isFolder); };
    };
  }

  void ReadNameRegex(FindRequest& made) {
    const platform::RegexOptions options{.IgnoresCase = true};
    if (settings_.Name.empty() || !Compile(FindField::Name, settings_.Name, options)) return;
    made.Request.MakeNameTest = [compile = tools_.Regex, text = settings_.Name, options,
                                 givenUp = made.NamesGivenUp]() -> platform::SearchNameTest {
      platform::RegexFault none;
      const std::shared_ptr<platform::Regex> regex = compile(text, options, none);
      return [regex, givenUp](std::string_view name, bool) {
        const platform::RegexOutcome outcome = regex->Find(name);
        if (outcome == platform::RegexOutcome::TooMuch) ++*givenUp;
        return outcome == platform::RegexOutcome::Found;
      };
    };
  }

  void ReadText(platform::SearchRequest& request) {
    request.LooksIntoBinary = settings_.LooksIntoBinary;
    if (settings_.Text.empty()) return;
    std::uint64_t largest = 0;
    if (ReadSize(settings_.LargestFile, settings_.LargestFileUnit, FindField::Text, largest)) {
      request.LargestFile = largest;
    }
    const bool isPlain = !settings_.IsTextRegex && settings_.MatchesCase && !settings_.IsWholeWords;
    if (isPlain || !tools_.Regex) {
      request.Content = settings_.Text;
      return;
    }
    const platform::RegexOptions options{.IsLiteral = !settings_.IsTextRegex,
                                         .IgnoresCase = !settings_.MatchesCase,
                                         .IsWholeWords = settings_.IsWholeWords,
                                         .HasLines = true};
    if (!Compile(FindField::Text, settings_.Text, options)) return;
    request.MakeContentTest = [compile = tools_.Regex, text = settings_.Text, options] {
      platform::RegexFault none;
      return compile(text, options, none);
    };
  }

  // False, with `size` as it is, for an empty box, and for a faulty one.
  bool ReadSize(const std::string& typed, int unit, FindField field, std::uint64_t& size) {
    std::string text(base::Trim(typed));
    if (text.empty()) return false;
    const std::string mark = DecimalMark(tools_.Numbers);
    if (const std::size_t at = text.find(mark); at != text.npos) text.replace(at, mark.size(), ".");
    const bool isPlain = text.find_first_not_of("0123456789.") == text.npos;
    const std::optional<double> number = isPlain ? base::ParseNumber(text) : std::nullopt;
    constexpr int bitsOfUnit = 10;
    const double bytes = number ? std::floor(std::ldexp(*number, bitsOfUnit * unit)) : -1;
    constexpr double most = 9'007'199'254'740'992;  // to the byte
    if (bytes < 0 || bytes > most) {
      Fault(field, "\"" + base::ForDisplay(text) + "\" is no size.");
      return false;
    }
    size = static_cast<std::uint64_t>(bytes);
    return true;
  }

  void ReadSizes(platform::SearchRequest& request) {
    auto& [least, most] = request.Sizes;
    ReadSize(settings_.SizeFrom, settings_.SizeFromUnit, FindField::Size, least);
    ReadSize(settings_.SizeTo, settings_.SizeToUnit, FindField::Size, most);
    if (least > most) Fault(FindField::Size, "The first size is larger than the second.");
  }

  void ReadDates(platform::SearchRequest& request) {
    constexpr std::int64_t hours = 60 * 60 * Second, days = 24 * hours;
    const std::int64_t now = tools_.Clock.Now();
    std::int64_t& least = request.Modified.Least;
    switch (settings_.Dates) {
      case LastHour:
        least = now - hours;
        break;
      case Today: {
        platform::LocalTime midnight = tools_.Clock.ToLocal(now);
        midnight.Hour = midnight.Minute = midnight.Second = 0;
        least = MomentOf(midnight, tools_.Clock);
        break;
      }
      case Last7Days:
        least = now - 7 * days;
        break;
      case Last4Weeks:
        least = now - 28 * days;
        break;
      case Last12Months:
        least = now - 365 * days;
        break;
      case BetweenDates:
        ReadBothDates(request);
        break;
      default:
        break;
    }
  }

  void ReadBothDates(platform::SearchRequest& request) {
    const auto read = [&](const std::string& typed) {
      const std::string_view text = base::Trim(typed);
      std::optional<platform::SearchRange<std::int64_t>> range;
      if (text.empty()) return range;
      range = ReadDate(text, tools_.Clock);
      if (!range) {
        Fault(FindField::Dates, "\"" + base::ForDisplay(text) +
                                    "\" is no date. Type 2026-03-28, or 2026-03-28 13:05.");
      }
      return range;
    };
    if (const auto from = read(settings_.DateFrom)) request.Modified.Least = from->Least;
    if (const auto to = read(settings_.DateTo)) request.Modified.Most = to->Most;
    if (request.Modified.Least > request.Modified.Most)
      Fault(FindField::Dates, "The first date is later than the second.");
  }

  void ReadKinds(platform::SearchRequest& request) {
    request.FindsFiles = settings_.FindsFiles;
    request.FindsFolders = settings_.FindsFolders;
    request.FindsLinks = settings_.FindsLinks;
    request.FindsOthers = settings_.FindsOthers;
    if (settings_.FindsFiles) return;
    if (!settings_.FindsFolders && !settings_.FindsLinks && !settings_.FindsOthers) {
      Fault(FindField::Kinds, "Check at least one kind of items.");
    } else if (!settings_.Text.empty()) {
      Fault(FindField::Kinds, "Only files hold text. Check Files, or empty the text.");
    } else if (!request.Sizes.IsAll()) {
      Fault(FindField::Kinds, "Only files have a size. Check Files, or empty the sizes.");
    }
  }

  const FindSettings& settings_;
  const FindTools& tools_;
  FindFaults& faults_;
};

}  // namespace

std::int64_t MomentOf(const platform::LocalTime& time, const platform::Clock& clock) {
  const std::int64_t wanted = SecondsOf(time);
  // First as if the place kept UTC, then by what its clocks show at that moment.
  std::int64_t moment = wanted;
  for (int tries = 0; tries < 2; ++tries) {
    moment += wanted - SecondsOf(clock.ToLocal(moment * Second));
  }
  // An hour that comes twice has an earlier moment still.
  constexpr std::int64_t hour = 3600;
  if (SecondsOf(clock.ToLocal((moment - hour) * Second)) == wanted) moment -= hour;
  return moment * Second;
}

std::optional<platform::SearchRange<std::int64_t>> ReadDate(std::string_view text,
                                                            const platform::Clock& clock) {
  platform::LocalTime first;
  const bool isDay = TakeDigits(text, 4, first.Year) && TakeMark(text, "-") &&
                     TakeDigits(text, 2, first.Month) && TakeMark(text, "-") &&
                     TakeDigits(text, 2, first.Day) && IsDay(first);
  // Outside of these years moments fit into no number of nanoseconds.
  constexpr int firstYear = 1700, lastYear = 2200;
  if (!isDay || first.Year < firstYear || first.Year > lastYear) return {};
  platform::LocalTime last = first;
  last.Hour = 23;
  last.Minute = last.Second = 59;
  if (!text.empty()) {
    if (!TakeMark(text, " T") || !TakeDigits(text, 2, first.Hour) || !TakeMark(text, ":") ||
        !TakeDigits(text, 2, first.Minute) || first.Hour > last.Hour ||
        first.Minute > last.Minute) {
      return {};
    }
    last.Hour = first.Hour;
    last.Minute = first.Minute;
  }
  if (!text.empty()) {
    if (!TakeMark(text, ":") || !TakeDigits(text, 2, first.Second) || !text.empty() ||
        first.Second > last.Second) {
      return {};
    }
    last.Second = first.Second;
  }
  return platform::SearchRange<std::int64_t>{.Least = MomentOf(first, clock),
                                             .Most = MomentOf(last, clock) + Second - 1};
}

std::optional<FindRequest> MakeFindRequest(const FindSettings& settings, const FindTools& tools,
                                           FindFaults& faults) {
  return FindReader(settings, tools, faults).Read();
}

}  // namespace tarnwell::tools
