#include "platform/linux/trash/TrashNote.h"

#include <array>
#include <charconv>
#include <chrono>
#include <utility>
#include <vector>

namespace tarnwell::platform {
namespace {

constexpr std::string_view heading = "[Trash Info]";

// Takes the next line off; what ends it is not part of it.
std::string_view TakeLine(std::string_view& rest) {
  const std::size_t end = rest.find('\n');
  std::string_view line = rest.substr(0, end);
  rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

std::string Decode(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    unsigned char byte = 0;
    const char* const digits = text.data() + at + 1;
    const bool isCode = text[at] == '%' && text.size() - at > 2 &&
                        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
    bytes += isCode ? static_cast<char>(byte) : text[at];
    if (isCode) at += 2;
  }
  return bytes;
}

// As a URI has it: all but letters, digits and a few marks.
std::string Encode(std::string_view bytes) {
  constexpr std::string_view plain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.~!*'()";
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string text;
  for (const char each : bytes) {
    if (plain.find(each) != plain.npos) {
      text += each;
      continue;
    }
    const auto byte = static_cast<unsigned char>(each);
    text += '%';
    text += digits[byte >> 4];
    text += digits[byte & 15];
  }
  return text;
}

// Takes a number of so many digits off, and then the mark, where there is one.
std::optional<int> TakeNumber(std::string_view& text, std::size_t digits, char mark) {
  if (text.size() < digits || text.front() == '-') return {};
  int number = 0;
  const char* const end = text.data() + digits;
  if (std::from_chars(text.data(), end, number).ptr != end) return {};
  text.remove_prefix(digits);
  if (mark != '\0' && text.starts_with(mark)) text.remove_prefix(1);
  return number;
}

// Takes a number off that a blank follows.
template <typename Number>
bool TakeField(std::string_view& line, Number& number) {
  const char* const end = line.data() + line.size();
  const auto [rest, error] = std::from_chars(line.data(), end, number);
  if (error != std::errc() || rest == end || *rest != ' ') return false;
  line.remove_prefix(static_cast<std::size_t>(rest - line.data()) + 1);
  return true;
}

}  // namespace

std::optional<TrashNote> ReadTrashNote(std::string_view content) {
  if (TakeLine(content) != heading) return {};
  std::optional<std::string_view> path;
  std::optional<std::string_view> date;
  while (!content.empty() && !(path && date)) {
    const std::string_view line = TakeLine(content);
    if (line.starts_with('[')) break;  // another group, of somebody's own
    const std::size_t mark = line.find('=');
    if (mark == line.npos) continue;
    const std::string_view key = line.substr(0, mark);
    if (key == "Path" && !path) path = line.substr(mark + 1);
    if (key == "DeletionDate" && !date) date = line.substr(mark + 1);
  }
  return TrashNote{path ? Decode(*path) : "", std::string(date.value_or(""))};
}

std::optional<std::int64_t> SecondsOfDate(std::string_view date) {
  // The parts may stand without marks between them, which older programs left out.
  constexpr std::array<std::pair<std::size_t, char>, 6> parts = {
      {{4, '-'}, {2, '-'}, {2, 'T'}, {2, ':'}, {2, ':'}, {2, '\0'}}};
  std::array<int, parts.size()> numbers{};
  for (std::size_t at = 0; at < parts.size(); ++at) {
    const std::optional<int> number = TakeNumber(date, parts[at].first, parts[at].second);
    if (!number) return {};
    numbers[at] = *number;
  }
  using namespace std::chrono;
  const auto [yearNumber, monthNumber, dayNumber, hour, minute, second] = numbers;
  const year_month_day day(year(yearNumber), month(static_cast<unsigned>(monthNumber)),
                           std::chrono::day(static_cast<unsigned>(dayNumber)));
  // Times are kept in nanoseconds, which reach into the year 2262.
  const bool isTime = day.ok() && yearNumber >= 1700 && yearNumber < 2262 && hour < 24 &&
                      minute < 60 && second <= 60;
  if (!isTime) return {};
  const auto time =
      sys_days(day).time_since_epoch() + hours(hour) + minutes(minute) + seconds(second);
  return duration_cast<seconds>(time).count();
}

FormerPlace PlaceOfNote(std::string_view path, std::string_view base, bool isHome) {
  const bool isAbsolute = path.starts_with('/');
  if (path.empty() || path.find('\0') != path.npos) return {};
  if (isAbsolute && !isHome) return {TrashState::LeadsOut, {}, {}};
  FormerPlace place{TrashState::Whole, std::string(isAbsolute ? "" : base), {}};
  while (place.Folder.ends_with('/')) place.Folder.pop_back();
  while (!path.empty()) {
    const std::size_t end = path.find('/');
    const std::string_view part = path.substr(0, end);
    path.remove_prefix(end == path.npos ? path.size() : end + 1);
    if (part == "..") return {TrashState::LeadsOut, {}, {}};
    if (part.empty() || part == ".") continue;
    if (!place.Name.empty()) (place.Folder += '/') += place.Name;
    place.Name = part;
  }
  if (place.Name.empty()) return {};
  if (place.Folder.empty()) place.Folder = "/";
  return place;
}

KeptSizes ReadKeptSizes(std::string_view content) {
  KeptSizes sizes;
  while (!content.empty()) {
    std::string_view line = TakeLine(content);
    KeptSize kept;
    if (!TakeField(line, kept.Size) || !TakeField(line, kept.NoteTime)) continue;
    std::string name = Decode(line);
    const bool isName = !name.empty() && name != "." && name != ".." &&
                        name.find('/') == name.npos && name.find('\0') == name.npos;
    if (isName) sizes[std::move(name)] = kept;
  }
  return sizes;
}

std::string TextOf(const KeptSizes& sizes) {
  std::string text;
  for (const auto& [name, kept] : sizes) {
    text +=
        std::to_string(kept.Size) + ' ' + std::to_string(kept.NoteTime) + ' ' + Encode(name) + '\n';
  }
  return text;
}

}  // namespace tarnwell::platform
