#include "base/Value.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <string_view>
#include <type_traits>

#include "base/Number.h"
#include "base/Text.h"

namespace tarnwell::base {
namespace {

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

template <class Integer>
Integer ToInteger(const Value& value) {
  const double rounded = std::nearbyint(ToDouble(value));  // the default mode: ties to even
  constexpr double low = std::numeric_limits<Integer>::min();
  constexpr double high = std::numeric_limits<Integer>::max();
  if (!(rounded >= low && rounded <= high)) {  // not a number fails both
    throw ConversionError("number out of range");
  }
  return static_cast<Integer>(rounded);
}

template <class Number>
std::string NumberText(Number number) {
  std::array<char, 64> buffer;
  std::to_chars_result result{};
  if constexpr (std::is_integral_v<Number>) {
    result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  } else {
    // Left to itself to_chars makes "1e+05" of 100000, as that is shorter.
    const Number size = std::abs(number);
    const bool plain = size == 0 || (size >= Number(1e-5) && size < Number(1e15));
    result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                           plain ? std::chars_format::fixed : std::chars_format::scientific);
  }
  return AsciiUpper(std::string_view(buffer.data(), result.ptr));
}

}  // namespace

double ToDouble(const Value& value) {
  return std::visit(
      [](const auto& held) -> double {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, std::monostate>) {
          throw ConversionError("no value");
        } else if constexpr (std::is_same_v<Held, std::string>) {
          const std::optional<double> number = ParseNumber(Trimmed(held));
          if (!number) throw ConversionError("text is not a number");
          return *number;
        } else if constexpr (std::is_same_v<Held, bool>) {
          return held ? -1 : 0;
        } else {
          return held;
        }
      },
      value);
}

float ToSingle(const Value& value) {
  const double number = ToDouble(value);
  if (!(std::abs(number) <= std::numeric_limits<float>::max())) {
    throw ConversionError("number out of range");
  }
  return static_cast<float>(number);
}

std::int32_t ToInt32(const Value& value) {
  return ToInteger<std::int32_t>(value);
}

std::int16_t ToInt16(const Value& value) {
  return ToInteger<std::int16_t>(value);
}

bool ToBoolean(const Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) {
    const std::string_view word = Trimmed(*text);
    if (EqualsIgnoringCase(word, "true")) return true;
    if (EqualsIgnoringCase(word, "false")) return false;
  }
  return ToDouble(value) != 0;
}

std::string ToText(const Value& value) {
  return std::visit(
      [](const auto& held) -> std::string {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, std::monostate>) {
          throw ConversionError("no value");
        } else if constexpr (std::is_same_v<Held, std::string>) {
          return held;
        } else if constexpr (std::is_same_v<Held, bool>) {
          return held ? "True" : "False";
        } else {
          return NumberText(held);
        }
      },
      value);
}

}  // namespace tarnwell::base
