// Text helpers. Text is bytes, UTF-8 by rule and anything at all by accident: names of files may
// hold bytes that are no UTF-8, and nothing here loses them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnwell::base {

// ASCII letters only: for keys, words and key names.
std::string AsciiUpper(std::string_view text);
bool EqualsIgnoringCase(std::string_view left, std::string_view right);

// Each letter as base/LetterCase.h has it; bytes that are no UTF-8 stay as they are.
std::string ToCapitals(std::string_view text);

// The text without the blanks at its start and end.
std::string_view Trim(std::string_view text);

// Length in code points; a byte that is no part of valid UTF-8 counts as one.
std::size_t CodePointCount(std::string_view text);
// The first or last `count` code points; all of the text where it has no more.
std::string_view FirstCodePoints(std::string_view text, std::size_t count);
std::string_view LastCodePoints(std::string_view text, std::size_t count);

// A text of more than `limit` code points becomes its first `head` ones, "..." and its last `tail`.
std::string Shorten(std::string_view text, std::size_t limit, std::size_t head, std::size_t tail);

// The text as it may be shown: valid UTF-8, control characters as visible marks (U+2400 and on),
// bytes that are no UTF-8, and what is there to steer the order or hides, as U+FFFD. For showing
// only; never a way back to the name.
std::string ForDisplay(std::string_view text);

// The text as it may be edited: UTF-16, where a lone surrogate stands for each of these marks and
// is drawn as one. What the user leaves alone comes back from it byte for byte.
std::u16string ForEditing(std::string_view text);
std::string FromEditing(std::u16string_view edited);

// Reads the code point at `position`, which lies within the text, and moves the position behind it.
// A byte that is no part of valid UTF-8 gives 0xDC00 plus the byte, which no valid text can hold.
char32_t NextCodePoint(std::string_view text, std::size_t& position);
constexpr bool IsStrayByte(char32_t codePoint) {
  return codePoint >= 0xDC80 && codePoint <= 0xDCFF;
}
// The way back: such a mark appends its byte; what is no code point at all appends U+FFFD.
void AppendCodePoint(std::string& text, char32_t codePoint);

}  // namespace tarnwell::base
