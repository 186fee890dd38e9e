#include "platform/pcre/Replacement.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace tarnwell::platform {
namespace {

constexpr std::size_t mostDigits = 2;  // without braces

bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

std::optional<std::size_t> NumberIn(std::string_view digits) {
  std::size_t number = 0;
  const char* const end = digits.data() + digits.size();
  const auto [behind, error] = std::from_chars(digits.data(), end, number);
  if (digits.empty() || behind != end || error != std::errc()) return {};
  return number;
}

// How many of the digits at the start are the group's: as many as make the number of one.
std::size_t DigitsOfGroup(std::string_view text, std::size_t groups) {
  std::size_t count = 0;
  while (count < std::min(text.size(), mostDigits) && IsDigit(text[count])) ++count;
  while (count > 1 && NumberIn(text.substr(0, count)) > groups) --count;
  return count;
}

}  // namespace

std::optional<std::vector<ReplacementPiece>> ReadReplacement(std::string_view text,
                                                             std::size_t groups,
                                                             const GroupOfName& groupOfName,
                                                             RegexFault& fault) {
  std::vector<ReplacementPiece> pieces(1);
  std::size_t at = 0;
  const auto take = [&](std::optional<std::size_t> group, std::string_view name) {
    if (!group || *group > groups) {
      fault = {"There is no group " + std::string(name), at};
      return false;
    }
    pieces.back().Group = group;
    pieces.emplace_back();
    return true;
  };
  while (at < text.size()) {
    const char sign = text[at];
    const std::string_view behind = text.substr(at + 1);
    const bool isSign = sign == '$' || sign == '\\';
    if (isSign && behind.starts_with(sign)) {
      pieces.back().Text += sign;
      at += 2;
    } else if (const std::size_t digits = isSign ? DigitsOfGroup(behind, groups) : 0; digits > 0) {
      const std::string_view number = behind.substr(0, digits);
      if (!take(NumberIn(number), number)) return {};
      at += 1 + digits;
    } else if (sign == '$' && behind.starts_with('{')) {
      const std::size_t end = behind.find('}');
      if (end == behind.npos) {
        fault = {"A } is missing", at};
        return {};
      }
      const std::string name(behind.substr(1, end - 1));
      const std::optional<std::size_t> number = NumberIn(name);
      if (!take(number ? number : groupOfName(name), name)) return {};
      at += end + 2;
    } else {
      pieces.back().Text += sign;
      ++at;
    }
  }
  return pieces;
}

}  // namespace tarnwell::platform
