// UTF-16 as UTF-8, piece by piece.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwell::platform {

enum class Utf16Order : std::uint8_t { LittleEndian, BigEndian };

class Utf16Reader {
 public:
  explicit Utf16Reader(Utf16Order order) : order_(order) {}

  // Appends what the bytes come to; half a character waits for the next piece. One that is none,
  // a surrogate alone, becomes U+FFFD.
  void Take(std::string_view bytes, std::string& text);
  // What waits for a piece that does not come.
  void End(std::string& text);

 private:
  void TakeUnit(char16_t unit, std::string& text);

  Utf16Order order_;
  bool hasByte_ = false;
  unsigned char byte_ = 0;  // the first of two
  char16_t high_ = 0;       // surrogate; 0 for none
};

}  // namespace tarnwell::platform
