// Whether a file holds a text, told from its pieces.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Regex.h"
#include "platform/search/Utf16.h"

namespace tarnwell::platform {

enum class ScanOutcome : std::uint8_t {
  GoesOn,  // wants the next piece
  None,    // the text is not there
  Found,
  Binary,   // no text, and not to be taken for one
  TooMuch,  // see RegexOutcome
};

// Takes a file after the other, and of each a piece after the other. What stands at the end of one
// is kept for the next, so that nothing is missed between them; of a line that is longer than
// `LongestLine`, the tests see stretches that overlap, and end between words where there are any.
class TextScan {
 public:
  static constexpr std::size_t PieceSize = std::size_t{256} << 10;
  static constexpr std::size_t LongestLine = std::size_t{64} << 10;  // bytes

  // For these bytes, of which there are LongestLine at most, or a regular expression with lines.
  explicit TextScan(std::string text, bool looksIntoBinary)
      : text_(std::move(text)), looksIntoBinary_(looksIntoBinary) {}
  explicit TextScan(std::unique_ptr<Regex> regex, bool looksIntoBinary)
      : regex_(std::move(regex)), looksIntoBinary_(looksIntoBinary) {}

  void Begin();
  // PieceSize bytes for the next piece.
  char* Room() { return bytes_.get() + LongestLine; }
  // The piece of that many bytes in Room. Never GoesOn for the last one.
  ScanOutcome Take(std::size_t size, bool isLast);

 private:
  bool IsBinary(std::string_view start) const;
  ScanOutcome ScanLines(std::string_view window, bool isLast, std::size_t& keptFrom);
  ScanOutcome ScanBytes(std::string_view window, bool isLast, std::size_t& keptFrom) const;

  const std::string text_;
  const std::unique_ptr<Regex> regex_;
  const bool looksIntoBinary_;
  // What is kept ends where the room begins.
  std::unique_ptr<char[]> bytes_ = std::make_unique_for_overwrite<char[]>(LongestLine + PieceSize);
  std::size_t kept_ = 0;
  bool isFirst_ = true;
  bool isWithinLine_ = false;  // what is kept begins there
  std::optional<Utf16Reader> utf16_;
  std::string decoded_;  // of UTF-16, what is kept and what comes
};

}  // namespace tarnwell::platform
