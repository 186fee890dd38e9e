// A value whose type is known only at run time: a field of a settings record, a named property of a
// list, an attribute of a heading.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <variant>

namespace tarnwell::base {

// Holds nothing, a string, a whole number, a single or double float, or a Boolean.
using Value = std::variant<std::monostate, std::string, std::int32_t, float, double, bool>;

// Thrown where a value cannot be read as the type that is wanted: a word where a number belongs,
// a number out of the type's range, or nothing at all.
class ConversionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

inline bool HoldsNothing(const Value& value) {
  return std::holds_alternative<std::monostate>(value);
}

// The value as the type named, or ConversionError. Numbers round to nearest, ties to even; true is
// -1 and any number but 0 is true; text converts when it spells a number (or, for ToBoolean, "true"
// or "false" in any case) with a point whatever the locale.
std::int32_t ToInt32(const Value& value);
std::int16_t ToInt16(const Value& value);
float ToSingle(const Value& value);
double ToDouble(const Value& value);
bool ToBoolean(const Value& value);
// Numbers give their shortest decimal text, Booleans "True" and "False".
std::string ToText(const Value& value);

}  // namespace tarnwell::base
