// What a search asks of the platform, made of what was typed; and what is wrong with that.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "base/PathSyntax.h"
#include "platform/Clock.h"
#include "platform/FileSearch.h"
#include "platform/NumberForms.h"
#include "platform/Regex.h"
#include "tools/FindSettings.h"

namespace tarnwell::tools {

// Where something can be wrong.
enum class FindField : std::uint8_t { Folder, Name, Text, Size, Dates, Kinds };
inline constexpr std::size_t FindFieldCount = 6;

// By FindField: a sentence for people, empty where nothing is wrong.
using FindFaults = std::array<std::string, FindFieldCount>;

struct FindTools {
  const base::PathSyntax& Syntax;
  const platform::Clock& Clock;
  const platform::NumberForms& Numbers;
  platform::CompileRegex Regex;  // null where there are no regular expressions
};

struct FindRequest {
  platform::SearchRequest Request;
  // Of the expression for names, which may try too many ways on one: such a name is not found.
  std::shared_ptr<std::atomic<std::uint64_t>> NamesGivenUp;
};

// Nothing, with at least one fault, where no search can be made of it. Looks at no disk. Spans of
// time end now.
std::optional<FindRequest> MakeFindRequest(const FindSettings& settings, const FindTools& tools,
                                           FindFaults& faults);

// The first moment, in nanoseconds since 1970-01-01 UTC, at which a clock on the wall shows that
// time; of one that is skipped when clocks are put forward a moment beside it.
std::int64_t MomentOf(const platform::LocalTime& time, const platform::Clock& clock);

// The first and the last moment of what is typed: "2026-11-22", or with a time to the minute or to
// the second behind a blank or a T. Nothing for any other text, and for a day that there is not.
std::optional<platform::SearchRange<std::int64_t>> ReadDate(std::string_view text,
                                                            const platform::Clock& clock);

}  // namespace tarnwell::tools
