#include "platform/search/TextScan.h"

#include <algorithm>
#include <cstring>

namespace tarnwell::platform {
namespace {

constexpr std::size_t binaryStart = 8192;  // bytes in which a NUL tells
// Of a line that is too long, as much is seen twice, and as much is looked through for the end of a
// word. What is kept is both of these, and another end of a word.
constexpr std::size_t overlap = TextScan::LongestLine / 2, wordRoom = TextScan::LongestLine / 4;

constexpr std::string_view utf8Mark = "\xEF\xBB\xBF", littleMark = "\xFF\xFE", bigMark = "\xFE\xFF";

// A library that has the call is several times as fast by it.
bool Holds(std::string_view text, std::string_view wanted) {
#ifdef _WIN32
  return text.find(wanted) != text.npos;
#else
  return memmem(text.data(), text.size(), wanted.data(), wanted.size()) != nullptr;
#endif
}

// The last place up to there that is right behind a character which no word holds; the same place
// where none is near.
std::size_t BetweenWords(std::string_view text, std::size_t to) {
  const auto maybeInWord = [](char byte) {
    return static_cast<unsigned char>(byte) >= 0x80 || (byte >= '0' && byte <= '9') ||
           (byte >= 'A' && byte <= 'Z') || byte == '_' || (byte >= 'a' && byte <= 'z');
  };
  for (std::size_t at = to; at > 0 && to - at < wordRoom; --at) {
    if (!maybeInWord(text[at - 1])) return at;
  }
  return to;
}

}  // namespace

void TextScan::Begin() {
  kept_ = 0;
  isFirst_ = true;
  isWithinLine_ = false;
  utf16_.reset();
  decoded_.clear();
}

bool TextScan::IsBinary(std::string_view start) const {
  return !looksIntoBinary_ &&
         std::memchr(start.data(), 0, std::min(start.size(), binaryStart)) != nullptr;
}

ScanOutcome TextScan::Take(std::size_t size, bool isLast) {
  std::string_view piece(Room(), size);
  if (isFirst_ && size > 0) {
    isFirst_ = false;
    if (piece.starts_with(littleMark)) {
      utf16_.emplace(Utf16Order::LittleEndian);
      piece.remove_prefix(littleMark.size());
    } else if (piece.starts_with(bigMark)) {
      utf16_.emplace(Utf16Order::BigEndian);
      piece.remove_prefix(bigMark.size());
    } else if (IsBinary(piece)) {
      return ScanOutcome::Binary;
    } else if (piece.starts_with(utf8Mark)) {
      piece.remove_prefix(utf8Mark.size());
    }
  }
  std::string_view window(piece.data() - kept_, kept_ + piece.size());
  if (utf16_) {
    utf16_->Take(piece, decoded_);
    if (isLast) utf16_->End(decoded_);
    window = decoded_;
  }
  std::size_t keptFrom = 0;
  const ScanOutcome outcome =
      regex_ ? ScanLines(window, isLast, keptFrom) : ScanBytes(window, isLast, keptFrom);
  if (outcome != ScanOutcome::GoesOn) return outcome;
  if (utf16_) {
    decoded_.erase(0, keptFrom);
  } else {
    kept_ = window.size() - keptFrom;
    std::memmove(Room() - kept_, window.data() + keptFrom, kept_);
  }
  return outcome;
}

ScanOutcome TextScan::ScanBytes(std::string_view window, bool isLast, std::size_t& keptFrom) const {
  if (Holds(window, text_)) return ScanOutcome::Found;
  keptFrom = window.size() - std::min(window.size(), text_.size() - 1);
  return isLast ? ScanOutcome::None : ScanOutcome::GoesOn;
}

ScanOutcome TextScan::ScanLines(std::string_view window, bool isLast, std::size_t& keptFrom) {
  LineEnds ends{.Begins = !isWithinLine_};
  std::size_t end = window.size();
  if (!isLast) {
    const std::size_t lastEnd = window.rfind('\n');
    const std::size_t lines = lastEnd == window.npos ? 0 : lastEnd + 1;
    if (window.size() - lines > LongestLine) {
      end = BetweenWords(window, window.size());
      keptFrom = BetweenWords(window, end - overlap);
      isWithinLine_ = true;
      ends.Ends = false;
    } else {
      end = keptFrom = lines;
      if (lines > 0) isWithinLine_ = false;
    }
  }
  switch (regex_->Find(window.substr(0, end), ends)) {
    case RegexOutcome::Found:
      return ScanOutcome::Found;
    case RegexOutcome::TooMuch:
      return ScanOutcome::TooMuch;
    case RegexOutcome::None:
      break;
  }
  return isLast ? ScanOutcome::None : ScanOutcome::GoesOn;
}

}  // namespace tarnwell::platform
