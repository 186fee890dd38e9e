#include "lister/NameOrder.h"

#include <cstddef>
#include <cwctype>
#include <limits>

#include "base/Text.h"

namespace tarnwell::lister {
namespace {

constexpr bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

// The digits of the run that starts at the position, zeros at its start left out; the position
// moves behind the run.
std::string_view TakeDigits(std::string_view name, std::size_t& position) {
  while (position < name.size() && name[position] == '0') ++position;
  const std::size_t start = position;
  while (position < name.size() && IsDigit(name[position])) ++position;
  return name.substr(start, position - start);
}

char32_t TakeLowerCase(std::string_view name, std::size_t& position) {
  const auto byte = static_cast<unsigned char>(name[position]);
  if (byte < 0x80) {
    ++position;
    return byte >= 'A' && byte <= 'Z' ? byte + 0x20U : byte;
  }
  const char32_t codePoint = base::NextCodePoint(name, position);
  const bool strayByte = codePoint >= 0xDC80 && codePoint <= 0xDCFF;
  if (strayByte || codePoint > char32_t{std::numeric_limits<wchar_t>::max()}) return codePoint;
  return static_cast<char32_t>(std::towlower(static_cast<std::wint_t>(codePoint)));
}

}  // namespace

int NameOrder::Compare(std::string_view left, std::string_view right) const {
  std::size_t l = 0, r = 0;
  while (l < left.size() && r < right.size()) {
    if (IsDigit(left[l]) && IsDigit(right[r])) {
      const std::string_view one = TakeDigits(left, l);
      const std::string_view other = TakeDigits(right, r);
      if (one.size() != other.size()) return one.size() < other.size() ? -1 : 1;
      if (const int order = one.compare(other)) return order;
      continue;
    }
    const char32_t one = TakeLowerCase(left, l);
    const char32_t other = TakeLowerCase(right, r);
    if (one != other) return one < other ? -1 : 1;
  }
  return (l < left.size()) - (r < right.size());
}

bool NameOrder::Before(std::string_view left, std::string_view right) const {
  const int order = Compare(left, right);
  return order != 0 ? order < 0 : left < right;
}

}  // namespace tarnwell::lister
