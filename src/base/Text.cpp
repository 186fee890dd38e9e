#include "base/Text.h"

#include <algorithm>
#include <cwctype>
#include <limits>

namespace tarnwell::base {
namespace {

// What NextCodePoint gives for a byte that is no part of valid UTF-8.
constexpr char32_t StrayByteMark = 0xDC00;

constexpr char32_t ReplacementCharacter = 0xFFFD;

constexpr bool IsStrayByte(char32_t codePoint) {
  return codePoint >= StrayByteMark + 0x80 && codePoint <= StrayByteMark + 0xFF;
}

constexpr bool IsSurrogate(char32_t codePoint) {
  return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}

constexpr char UpperLetter(char letter) {
  return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

// Position behind the first `count` code points.
std::size_t PositionBehind(std::string_view text, std::size_t count) {
  std::size_t position = 0;
  while (count-- > 0 && position < text.size()) NextCodePoint(text, position);
  return position;
}

// The visible stand-in for a code point that has no shape, or would end the line.
char32_t VisibleForm(char32_t codePoint) {
  if (codePoint < 0x20) return 0x2400 + codePoint;
  if (codePoint == 0x7F) return 0x2421;
  if (codePoint == 0x2028 || codePoint == 0x2029) return 0x2424;  // separators of lines, paragraphs
  if (codePoint >= 0x80 && codePoint < 0xA0) return ReplacementCharacter;
  if (IsStrayByte(codePoint)) return ReplacementCharacter;
  return codePoint;
}

}  // namespace

std::string AsciiUpper(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), UpperLetter);
  return upper;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char one, char other) { return UpperLetter(one) == UpperLetter(other); });
}

std::string ToCapitals(std::string_view text) {
  std::string capitals;
  capitals.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    char32_t codePoint = NextCodePoint(text, position);
    // wchar_t has 16 bits on some platforms, and no letter with a capital is lost by the limit.
    if (!IsStrayByte(codePoint) && codePoint <= char32_t{std::numeric_limits<wchar_t>::max()}) {
      codePoint = static_cast<char32_t>(std::towupper(static_cast<std::wint_t>(codePoint)));
    }
    AppendCodePoint(capitals, codePoint);
  }
  return capitals;
}

std::size_t CodePointCount(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t position = 0; position < text.size(); ++count) NextCodePoint(text, position);
  return count;
}

std::string_view FirstCodePoints(std::string_view text, std::size_t count) {
  return text.substr(0, PositionBehind(text, count));
}

std::string_view LastCodePoints(std::string_view text, std::size_t count) {
  const std::size_t total = CodePointCount(text);
  return count >= total ? text : text.substr(PositionBehind(text, total - count));
}

std::string Shorten(std::string_view text, std::size_t limit, std::size_t head, std::size_t tail) {
  if (CodePointCount(text) <= limit) return std::string(text);
  std::string shortened(FirstCodePoints(text, head));
  shortened += "...";
  shortened += LastCodePoints(text, tail);
  return shortened;
}

std::string ForDisplay(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    AppendCodePoint(shown, VisibleForm(NextCodePoint(text, position)));
  }
  return shown;
}

char32_t NextCodePoint(std::string_view text, std::size_t& position) {
  const auto byteAt = [&](std::size_t index) -> char32_t {
    return static_cast<unsigned char>(text[index]);
  };
  const std::size_t start = position++;
  const char32_t lead = byteAt(start);
  if (lead < 0x80) return lead;

  // Length and least code point by the lead byte: a longer form than needed is no valid one.
  struct Form {
    char32_t Mask, Lead, Least;
    std::size_t Length;
  };
  static constexpr Form forms[] = {
      {0xE0, 0xC0, 0x80, 2}, {0xF0, 0xE0, 0x800, 3}, {0xF8, 0xF0, 0x10000, 4}};
  for (const Form& form : forms) {
    if ((lead & form.Mask) != form.Lead) continue;
    if (text.size() - start < form.Length) break;
    char32_t codePoint = lead & ~form.Mask;
    bool whole = true;
    for (std::size_t index = start + 1; index < start + form.Length; ++index) {
      const char32_t byte = byteAt(index);
      whole = whole && (byte & 0xC0) == 0x80;
      codePoint = codePoint << 6 | (byte & 0x3F);
    }
    if (!whole || codePoint < form.Least || codePoint > 0x10FFFF || IsSurrogate(codePoint)) break;
    position = start + form.Length;
    return codePoint;
  }
  return StrayByteMark + lead;
}

void AppendCodePoint(std::string& text, char32_t codePoint) {
  const auto append = [&](char32_t byte) { text += static_cast<char>(byte); };
  const auto trailer = [](char32_t bits) { return 0x80 | (bits & 0x3F); };
  if (IsStrayByte(codePoint)) {
    append(codePoint - StrayByteMark);
    return;
  }
  if (IsSurrogate(codePoint) || codePoint > 0x10FFFF) codePoint = ReplacementCharacter;
  if (codePoint < 0x80) {
    append(codePoint);
    return;
  }
  if (codePoint < 0x800) {
    append(0xC0 | codePoint >> 6);
  } else if (codePoint < 0x10000) {
    append(0xE0 | codePoint >> 12);
    append(trailer(codePoint >> 6));
  } else {
    append(0xF0 | codePoint >> 18);
    append(trailer(codePoint >> 12));
    append(trailer(codePoint >> 6));
  }
  append(trailer(codePoint));
}

}  // namespace tarnwell::base
