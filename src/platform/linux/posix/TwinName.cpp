#include "platform/linux/posix/TwinName.h"

#include <algorithm>
#include <charconv>
#include <climits>

namespace tarnwell::platform {
namespace {

constexpr std::string_view archive = ".tar";
constexpr std::size_t mostDigits = 6;  // more of them are part of the name

std::size_t ExtensionStart(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  if (dot == name.npos || dot == 0) return name.size();
  const std::string_view stem = name.substr(0, dot);
  const bool isDouble = stem.size() > archive.size() && stem.ends_with(archive);
  return isDouble ? dot - archive.size() : dot;
}

bool IsInsideCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::string Mark(const TwinParts& parts, const std::string& mark, std::size_t longest) {
  std::string stem(parts.Stem);
  std::string tail = " (" + mark + ")";
  // An extension that leaves no room for a stem is cut as if it were part of it.
  if (tail.size() + parts.Extension.size() < longest) {
    tail += parts.Extension;
  } else {
    stem += parts.Extension;
  }
  if (stem.size() + tail.size() > longest) {
    std::size_t length = std::min(longest - tail.size(), stem.size());
    while (length > 1 && length < stem.size() && IsInsideCharacter(stem[length])) --length;
    stem.resize(length);
  }
  return stem + tail;
}

}  // namespace

TwinParts SplitTwinName(std::string_view name, bool isFolder) {
  const std::size_t cut = isFolder ? name.size() : ExtensionStart(name);
  TwinParts parts{name.substr(0, cut), 1, name.substr(cut)};
  if (!parts.Stem.ends_with(')')) return parts;
  const std::size_t open = parts.Stem.rfind(" (");
  if (open == name.npos || open == 0) return parts;
  const std::string_view digits = parts.Stem.substr(open + 2, parts.Stem.size() - open - 3);
  if (digits.empty() || digits.size() > mostDigits || digits.front() == '0') return parts;
  unsigned number = 0;
  const char* const end = digits.data() + digits.size();
  if (std::from_chars(digits.data(), end, number).ptr != end || number < 2) return parts;
  parts.Stem = parts.Stem.substr(0, open);
  parts.Number = number;
  return parts;
}

std::string MakeTwinName(const TwinParts& parts, unsigned number, std::size_t longest) {
  return Mark(parts, std::to_string(number), longest);
}

std::string MakeAsideName(const TwinParts& parts, std::string_view word, unsigned number) {
  const std::string more = number > 1 ? " " + std::to_string(number) : std::string();
  return Mark(parts, std::string(word) + more, NAME_MAX);
}

}  // namespace tarnwell::platform
