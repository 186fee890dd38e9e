#include "platform/search/Utf16.h"

#include "base/Text.h"

namespace tarnwell::platform {
namespace {

constexpr char32_t replacementCharacter = 0xFFFD;

}  // namespace

void Utf16Reader::Take(std::string_view bytes, std::string& text) {
  for (const char each : bytes) {
    const auto byte = static_cast<unsigned char>(each);
    if (!hasByte_) {
      byte_ = byte;
    } else {
      const bool isLittle = order_ == Utf16Order::LittleEndian;
      const unsigned first = isLittle ? byte : byte_, second = isLittle ? byte_ : byte;
      TakeUnit(static_cast<char16_t>(first << 8 | second), text);
    }
    hasByte_ = !hasByte_;
  }
}

void Utf16Reader::TakeUnit(char16_t unit, std::string& text) {
  const bool isLow = unit >= 0xDC00 && unit <= 0xDFFF;
  if (high_ != 0) {
    const char32_t high = high_;
    high_ = 0;
    if (isLow) {
      base::AppendCodePoint(text, 0x10000 + ((high - 0xD800) << 10) + (unit - 0xDC00));
      return;
    }
    base::AppendCodePoint(text, replacementCharacter);
  }
  if (unit >= 0xD800 && unit <= 0xDBFF) {
    high_ = unit;
  } else if (unit < 0x80) {
    text += static_cast<char>(unit);
  } else {
    base::AppendCodePoint(text, isLow ? replacementCharacter : unit);
  }
}

void Utf16Reader::End(std::string& text) {
  if (high_ != 0 || hasByte_) base::AppendCodePoint(text, replacementCharacter);
  high_ = 0;
  hasByte_ = false;
}

}  // namespace tarnwell::platform
