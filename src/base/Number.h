// Numbers as files spell them: decimal, with a point whatever the locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarnwell::base {

// The number that the whole of the text spells, as "5", "-.25", "+5." or "1.5E+07". Nothing for any
// other text, blanks around the number included, and for a number that a double cannot hold.
std::optional<double> ParseNumber(std::string_view text);

// The number with up to 15 significant digits (a single: 7) and no zero before the point, as "4100"
// or "-.25"; with an exponent below 1E-04 and from 1E+15 (a single: 1E+07) on. ParseNumber reads
// every such text. Infinities and what is not a number have no spelling and give "0".
std::string SpellNumber(double number);
std::string SpellNumber(float number);

}  // namespace tarnwell::base
