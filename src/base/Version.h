// Versions of the program, as files and the web carry them.
#pragma once

#include <cstdint>
#include <string>

namespace tarnwell::base {

struct Version {
  std::int32_t Major = 0;
  std::int32_t Minor = 0;
  std::int32_t Revision = 0;

  // As one number, so that two can be compared: the digits of the major part, then four for each of
  // the others, so that 4.0.42 gives 400000042. Parts that make no number give 0.
  double Number() const;
  // "4.0.42"
  std::string Text() const;
};

// The version that the text tells as three numbers with dots between them; what stands before the
// first dot, between the first and the last, and behind the last. A part that is no 16-bit number
// is 0.
Version ReadVersion(const std::string& text);

}  // namespace tarnwell::base
