// Letters of names in lower case, one by one.
#pragma once

#include <cwctype>
#include <limits>

namespace tarnwell::lister {

// Of ASCII; other bytes stay as they are.
constexpr char LowerAscii(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

// What base::NextCodePoint gives for a byte that is no UTF-8.
constexpr bool IsStrayByte(char32_t codePoint) {
  return codePoint >= 0xDC80 && codePoint <= 0xDCFF;
}

// By the locale of the process.
inline char32_t LowerLetter(char32_t codePoint) {
  // wchar_t has 16 bits on some platforms, and no letter with two cases is lost by the limit.
  constexpr char32_t most{std::numeric_limits<wchar_t>::max()};
  if (codePoint > most || IsStrayByte(codePoint)) return codePoint;
  return static_cast<char32_t>(std::towlower(static_cast<std::wint_t>(codePoint)));
}

}  // namespace tarnwell::lister
