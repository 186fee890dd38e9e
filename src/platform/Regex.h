// Port: regular expressions, in the syntax that pcre2syntax(3) tells.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tarnwell::platform {

struct RegexOptions {
  bool IsLiteral = false;  // the expression is plain text, without special characters
  bool IgnoresCase = false;
  bool IsWholeWords = false;  // neither ends within a word
  // The text is one of many lines, each of which is matched for itself. Otherwise it is one name:
  // an end of line in it is a character like any other.
  bool HasLines = false;
};

// Why a text cannot be taken, and the byte at which that shows: from 0 to its length.
struct RegexFault {
  std::string Reason;
  std::size_t At = 0;
};

enum class RegexOutcome : std::uint8_t {
  None,
  Found,
  TooMuch,  // given up: the expression tries too many ways on this text
};

// Whether the ends of a text are those of its first and its last line, or those lines go on.
struct LineEnds {
  bool Begins = true;
  bool Ends = true;
};

// An expression that was taken. Serves one thread at a time. Texts are bytes: where they are UTF-8,
// characters are theirs. A name that is not is matched byte by byte; of lines that are not, the
// bytes that are no UTF-8 are in no match. Within seconds each call has found, or given up.
class Regex {
 public:
  virtual ~Regex() = default;

  virtual RegexOutcome Find(std::string_view text, LineEnds ends = {}) = 0;

  // Takes over what Replace puts in, unless it is faulty; then the one before stays. "$1" or "\1"
  // is what the first group holds, "$0" the whole match, "${12}" and "${name}" are groups too, "$$"
  // and "\\" a single "$" and "\". A literal has no groups: its replacement stands as it is.
  virtual bool SetReplacement(std::string_view replacement, RegexFault& fault) = 0;
  // Replaces each match. The result is the text where nothing is found, or it is given up.
  virtual RegexOutcome Replace(std::string_view text, std::string& result) = 0;
};

// Null, with the reason, for what is no expression.
using CompileRegex = std::function<std::unique_ptr<Regex>(
    std::string_view expression, const RegexOptions& options, RegexFault& fault)>;

}  // namespace tarnwell::platform
