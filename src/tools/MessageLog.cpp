#include "tools/MessageLog.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>

namespace tarnwell::tools {
namespace {

constexpr std::int64_t nanosecondsPerMillisecond = 1'000'000;
constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;

// A name must neither end the line nor pass for two fields.
void AppendField(std::string& line, std::string_view field) {
  for (const char each : field) {
    const auto byte = static_cast<unsigned char>(each);
    line += byte < ' ' || byte == 0x7f ? ' ' : each;
  }
}

struct Shown {
  std::array<char, 48> Date, Time;
};
Shown Show(const platform::Clock& clock, std::int64_t moment) {
  const platform::LocalTime time = clock.ToLocal(moment);
  const auto milliseconds = static_cast<int>(moment / nanosecondsPerMillisecond % 1000);
  Shown shown;
  std::snprintf(shown.Date.data(), shown.Date.size(), "%04d-%02d-%02d", time.Year, time.Month,
                time.Day);
  std::snprintf(shown.Time.data(), shown.Time.size(), "%02d:%02d:%02d.%03d", time.Hour, time.Minute,
                time.Second, milliseconds);
  return shown;
}

std::string Line(const Shown& moment, std::string_view text) {
  return std::string(moment.Date.data()) + ' ' + moment.Time.data() + '\t' + std::string(text);
}

}  // namespace

MessageLog::~MessageLog() {
  WriteCounts(clock_.Now(), [](const Count&) { return true; });
}

void MessageLog::Note(std::string_view form, std::string_view control, std::string_view what,
                      Rate rate) {
  std::string text;
  AppendField(text, form);
  text += '\t';
  AppendField(text, control);
  text += '\t';
  AppendField(text, what);
  const std::int64_t now = clock_.Now();
  if (rate == Rate::Each) {
    WriteCounts(now, [now](const Count& count) {
      return count.How == Rate::Often || now - count.First >= nanosecondsPerSecond;
    });
  } else {
    const auto known = std::ranges::find(counts_, text, &Count::Text);
    if (known != counts_.end()) {
      ++known->More;
      known->Last = now;
      return;
    }
    counts_.push_back({text, rate, now, now});
  }
  file_.Append(Line(Show(clock_, now), text));
}

template <typename IsDue>
void MessageLog::WriteCounts(std::int64_t now, IsDue isDue) {
  std::vector<Count> due;
  std::erase_if(counts_, [&](const Count& count) {
    const bool goes = isDue(count);
    if (goes) due.push_back(count);
    return goes;
  });
  for (const Count& count : due) {
    if (count.More == 0) continue;
    const std::string more = count.Text + " (" + std::to_string(count.More) +
                             " more, the last at " + Show(clock_, count.Last).Time.data() + ")";
    file_.Append(Line(Show(clock_, now), more));
  }
}

}  // namespace tarnwell::tools
