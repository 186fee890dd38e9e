#include "base/Text.h"

#include <algorithm>

#include "base/LetterCase.h"

namespace tarnwell::base {
namespace {

// What NextCodePoint gives for a byte that is no part of valid UTF-8.
constexpr char32_t StrayByteMark = 0xDC00;

constexpr char32_t ReplacementCharacter = 0xFFFD;

constexpr bool IsSurrogate(char32_t codePoint) {
  return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}

// Position behind the first `count` code points.
std::size_t PositionBehind(std::string_view text, std::size_t count) {
  std::size_t position = 0;
  while (count-- > 0 && position < text.size()) NextCodePoint(text, position);
  return position;
}

// Code points without a shape, and what stands for them where they are shown and where they are
// edited. The latter is a surrogate, which no valid text holds: the way back is exact.
struct Hidden {
  char32_t First, Last;
  char32_t Shown;       // of the first
  char32_t ShownStep;   // from one to the next
  char32_t EditedPage;  // holds the lowest eight bits
};

// With a mark that turns the order of writing, "annexe.txt" reads "annextxt.e" or the other way
// round. The joiners U+200C and U+200D are left alone: scripts and emoji cannot do without them.
constexpr Hidden HiddenRanges[] = {
    {0x00, 0x1F, 0x2400, 1, 0xDC00},
    {0x7F, 0x7F, 0x2421, 1, 0xDC00},
    {0x80, 0x9F, ReplacementCharacter, 0, 0xDD00},
    {0x61C, 0x61C, ReplacementCharacter, 0, 0xDF00},  // Arabic letter mark
    {0x200B, 0x200B, ReplacementCharacter, 0, 0xDE00},
    {0x200E, 0x200F, ReplacementCharacter, 0, 0xDE00},
    {0x2028, 0x2029, 0x2424, 0, 0xDE00},  // separators of lines and paragraphs
    {0x202A, 0x202E, ReplacementCharacter, 0, 0xDE00},
    {0x2060, 0x2060, ReplacementCharacter, 0, 0xDE00},
    {0x2066, 0x2069, ReplacementCharacter, 0, 0xDE00},
    {StrayByteMark + 0x80, StrayByteMark + 0xFF, ReplacementCharacter, 0, 0xDC00},
    {0xFDD0, 0xFDEF, ReplacementCharacter, 0, 0xDF00},  // no characters; editors part texts by them
    {0xFEFF, 0xFEFF, ReplacementCharacter, 0, 0xDF00},
};

const Hidden* FindHidden(char32_t codePoint) {
  if (codePoint >= 0x20 && codePoint < 0x7F) return nullptr;  // most of all text
  const auto* const range = std::ranges::find_if(HiddenRanges, [codePoint](const Hidden& each) {
    return codePoint >= each.First && codePoint <= each.Last;
  });
  return range == std::end(HiddenRanges) ? nullptr : range;
}

char32_t VisibleForm(char32_t codePoint) {
  const Hidden* const range = FindHidden(codePoint);
  return range == nullptr ? codePoint
                          : range->Shown + (codePoint - range->First) * range->ShownStep;
}

// A surrogate that stands for nothing comes back as it is.
char32_t FromEditedForm(char32_t codePoint) {
  if (!IsSurrogate(codePoint)) return codePoint;
  for (const Hidden& range : HiddenRanges) {
    const char32_t hidden = (range.First & ~char32_t{0xFF}) | (codePoint & 0xFF);
    const bool isOnPage = (codePoint & ~char32_t{0xFF}) == range.EditedPage;
    if (isOnPage && hidden >= range.First && hidden <= range.Last) return hidden;
  }
  return codePoint;
}

// UTF-16 code units of a code point above U+FFFF.
constexpr char16_t HighSurrogate = 0xD800;
constexpr char16_t LowSurrogate = 0xDC00;

bool IsPair(char16_t first, char16_t second) {
  return (first & 0xFC00) == HighSurrogate && (second & 0xFC00) == LowSurrogate;
}

}  // namespace

std::string AsciiUpper(std::string_view text) {
  std::string upper(text);
  std::transform(upper.begin(), upper.end(), upper.begin(), CapitalAscii);
  return upper;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char one, char other) { return CapitalAscii(one) == CapitalAscii(other); });
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string ToCapitals(std::string_view text) {
  std::string capitals;
  capitals.reserve(text.size());
  for (std::size_t position = 0; position < text.size();) {
    AppendCodePoint(capitals, CapitalLetter(NextCodePoint(text, position)));
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

std::u16string ForEditing(std::string_view text) {
  std::u16string edited;
  for (std::size_t position = 0; position < text.size();) {
    char32_t codePoint = NextCodePoint(text, position);
    if (const Hidden* const range = FindHidden(codePoint); range != nullptr) {
      codePoint = range->EditedPage | (codePoint & 0xFF);
    }
    if (codePoint > 0xFFFF) {
      codePoint -= 0x10000;
      edited += static_cast<char16_t>(HighSurrogate | codePoint >> 10);
      codePoint = LowSurrogate | (codePoint & 0x3FF);
    }
    edited += static_cast<char16_t>(codePoint);
  }
  return edited;
}

std::string FromEditing(std::u16string_view edited) {
  std::string text;
  for (std::size_t at = 0; at < edited.size(); ++at) {
    char32_t codePoint = edited[at];
    if (at + 1 < edited.size() && IsPair(edited[at], edited[at + 1])) {
      codePoint = 0x10000 + ((codePoint & 0x3FF) << 10) + (edited[++at] & 0x3FF);
    }
    AppendCodePoint(text, FromEditedForm(codePoint));
  }
  return text;
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
