#include "base/Number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <system_error>

#include "base/Text.h"

namespace tarnwell::base {
namespace {

template <class Float>
std::string Spell(Float number, int digits) {
  if (!std::isfinite(number) || number == 0) return "0";  // minus zero is no other number
  std::array<char, 32> buffer;
  const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                          std::chars_format::general, digits);
  std::string text = AsciiUpper(std::string_view(buffer.data(), end));
  const std::size_t first = text.front() == '-' ? 1 : 0;
  if (text.compare(first, 2, "0.") == 0) text.erase(first, 1);
  return text;
}

}  // namespace

std::optional<double> ParseNumber(std::string_view text) {
  const bool plus = text.starts_with('+');
  if (plus) text.remove_prefix(1);
  // from_chars would also take "inf" and "nan", and a minus behind the plus.
  const std::size_t first = !plus && text.starts_with('-') ? 1 : 0;
  if (first >= text.size()) return std::nullopt;
  const char lead = text[first];
  if (lead != '.' && (lead < '0' || lead > '9')) return std::nullopt;

  const char* const end = text.data() + text.size();
  double number = 0;
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

std::string SpellNumber(double number) {
  // The very largest doubles, rounded to 15 digits, would go beyond what a double holds.
  constexpr double largest = 1.79769313486231E+308;
  if (std::isfinite(number)) number = std::clamp(number, -largest, largest);
  return Spell(number, 15);
}

std::string SpellNumber(float number) {
  return Spell(number, 7);
}

}  // namespace tarnwell::base
