// Capital and small letters, the same in every locale: by the simple mappings of Unicode, one code
// point to one.
#pragma once

namespace tarnwell::base {

constexpr char CapitalAscii(char byte) {
  return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - ('a' - 'A')) : byte;
}
constexpr char SmallAscii(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

// What has no other form, a mark of NextCodePoint for a stray byte among it, stays as it is.
char32_t CapitalLetter(char32_t codePoint);
char32_t SmallLetter(char32_t codePoint);

}  // namespace tarnwell::base
