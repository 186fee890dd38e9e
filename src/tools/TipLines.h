// The lines of a text, found by their number.
#pragma once

#include <string>
#include <string_view>

namespace tarnwell::tools {

// Lines end with LF or CR LF, in a text without any LF with CR. Behind the last end comes no line
// more, and a mark of the byte order at the start is no part of the first. Only the text is kept:
// a file of nothing but line ends has as many lines as bytes.
class TipLines {
 public:
  TipLines() = default;
  explicit TipLines(std::string text);

  int Count() const { return count_; }
  // Counts from 1, up to Count.
  std::string_view At(int number) const;

 private:
  std::string_view TakeLine(std::string_view& rest) const;

  std::string text_;
  char end_ = '\n';
  int count_ = 0;
};

}  // namespace tarnwell::tools
