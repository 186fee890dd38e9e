#include "base/WideText.h"

#include <cstddef>

namespace tarnwell::base {
namespace {

constexpr char32_t Unknown = 0xFFFD;
constexpr char32_t FirstBeyond = 0x10000;  // of what needs two units

bool IsLead(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsTrail(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

void AppendBytes(std::string& text, char32_t point) {
  const auto byte = [&](char32_t bits) { text += static_cast<char>(bits); };
  const auto further = [&](int shift) { byte(0x80U | ((point >> shift) & 0x3FU)); };
  if (point < 0x80) return byte(point);
  if (point < 0x800) {
    byte(0xC0U | (point >> 6U));
  } else {
    if (point < FirstBeyond) {
      byte(0xE0U | (point >> 12U));
    } else {
      byte(0xF0U | (point >> 18U));
      further(12);
    }
    further(6);
  }
  further(0);
}

// What begins at `at`, which moves behind it; of bytes that are nothing behind the first of them.
char32_t NextPoint(std::string_view text, std::size_t& at) {
  const auto byteAt = [&](std::size_t place) {
    return place < text.size() ? static_cast<unsigned char>(text[place]) : 0U;
  };
  const char32_t first = byteAt(at++);
  if (first < 0x80) return first;
  const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
  if (first < 0xC2 || first > 0xF4) return Unknown;
  char32_t point = first & (0x3FU >> static_cast<unsigned>(more));
  for (int each = 0; each < more; ++each) {
    const char32_t next = byteAt(at + static_cast<std::size_t>(each));
    if ((next & 0xC0U) != 0x80U) return Unknown;
    point = (point << 6U) | (next & 0x3FU);
  }
  constexpr char32_t least[] = {0, 0x80, 0x800, FirstBeyond};
  if (point < least[more] || point > 0x10FFFF) return Unknown;
  at += static_cast<std::size_t>(more);
  return point;
}

}  // namespace

std::string FromWide(std::u16string_view wide) {
  std::string text;
  text.reserve(wide.size());
  for (std::size_t at = 0; at < wide.size(); ++at) {
    char32_t point = wide[at];
    if (IsLead(point) && at + 1 < wide.size() && IsTrail(wide[at + 1])) {
      point = FirstBeyond + ((point - 0xD800U) << 10U) + (wide[++at] - 0xDC00U);
    }
    AppendBytes(text, point);
  }
  return text;
}

std::u16string ToWide(std::string_view text) {
  std::u16string wide;
  wide.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const char32_t point = NextPoint(text, at);
    if (point < FirstBeyond) {
      wide += static_cast<char16_t>(point);
    } else {
      wide += static_cast<char16_t>(0xD800U + ((point - FirstBeyond) >> 10U));
      wide += static_cast<char16_t>(0xDC00U + ((point - FirstBeyond) & 0x3FFU));
    }
  }
  return wide;
}

}  // namespace tarnwell::base
