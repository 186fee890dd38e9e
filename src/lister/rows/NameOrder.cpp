#include "lister/rows/NameOrder.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/LetterCase.h"
#include "base/Text.h"

namespace tarnwell::lister {
namespace {

// Before a byte that is no UTF-8, in the place of a letter's weight.
constexpr std::string_view StrayByteMark = "\xFF\xFF";
// The count of digits stands before them, so that a longer number is a greater one. Counts over a
// byte's worth are told in parts.
constexpr std::size_t DigitsAPart = 250;
constexpr char FullPart = '\xFE';
constexpr unsigned char LeastCount = 2;

constexpr bool IsDigit(char byte) {
  return byte >= '0' && byte <= '9';
}

// Letters on their way to the collation, which is asked for as many at a time as possible.
class Letters {
 public:
  Letters(const platform::Collation& collation, std::string& key)
      : collation_(collation), key_(key) {}

  void Add(char byte) {
    if (length_ == text_.size()) Flush();
    text_[length_++] = byte;
  }
  void Add(char32_t codePoint) {
    std::string bytes;
    base::AppendCodePoint(bytes, codePoint);
    if (length_ + bytes.size() > text_.size()) Flush();
    bytes.copy(text_.data() + length_, bytes.size());
    length_ += bytes.size();
  }
  void Flush() {
    if (length_ > 0) collation_.AppendWeights({text_.data(), length_}, key_);
    length_ = 0;
  }

 private:
  const platform::Collation& collation_;
  std::string& key_;
  std::array<char, 256> text_;
  std::size_t length_ = 0;
};

}  // namespace

NameOrder::NameOrder(const platform::Collation& collation) : collation_(collation) {
  // Numbers stand where their digits would: behind marks and before letters, as a rule.
  collation.AppendWeights("0", digitMark_);
}

void NameOrder::AppendKey(std::string_view name, std::string& key) const {
  Letters letters(collation_, key);
  for (std::size_t at = 0; at < name.size();) {
    const char byte = name[at];
    if (IsDigit(byte)) {
      letters.Flush();
      const std::size_t start = at;
      while (at < name.size() && IsDigit(name[at])) ++at;
      AppendDigits(name.substr(start, at - start), key);
    } else if (static_cast<unsigned char>(byte) < 0x80) {
      letters.Add(base::SmallAscii(byte));
      ++at;
    } else {
      const char32_t codePoint = base::NextCodePoint(name, at);
      if (base::IsStrayByte(codePoint)) {
        letters.Flush();
        key += StrayByteMark;
        key += byte;
      } else {
        letters.Add(base::SmallLetter(codePoint));
      }
    }
  }
  letters.Flush();
}

void NameOrder::AppendDigits(std::string_view digits, std::string& key) const {
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  key += digitMark_;
  std::size_t count = digits.size();
  for (; count >= DigitsAPart; count -= DigitsAPart) key += FullPart;
  key += static_cast<char>(LeastCount + count);
  key += digits;
}

int NameOrder::Compare(std::string_view left, std::string_view right) const {
  std::string one, other;
  AppendKey(left, one);
  AppendKey(right, other);
  return one.compare(other);
}

bool NameOrder::Before(std::string_view left, std::string_view right) const {
  const int order = Compare(left, right);
  return order != 0 ? order < 0 : left < right;
}

}  // namespace tarnwell::lister
