#include "lister/list/TypedText.h"

#include "base/Text.h"
#include "lister/rows/NameFilter.h"

namespace tarnwell::lister {

void TypedText::Add(std::string_view text, std::int64_t now) {
  Set((GoesOn(now) ? typed_ : "") + std::string(text));
  last_ = now;
}

void TypedText::TakeBack(std::int64_t now) {
  Set(std::string(base::FirstCodePoints(typed_, base::CodePointCount(typed_) - 1)));
  last_ = now;
}

void TypedText::Set(const std::string& text) {
  if (text.empty() && !typed_.empty()) ended_ = typed_;
  typed_ = wanted_ = text;
}

void TypedText::Resume() {
  if (typed_.empty()) Set(ended_);
}

bool TypedText::NarrowToLetter() {
  const std::string letter(base::FirstCodePoints(typed_, 1));
  std::string repeated = letter;
  while (repeated.size() < typed_.size()) repeated += letter;
  if (typed_ == letter || repeated != typed_) return false;
  wanted_ = letter;
  return true;
}

bool TypedText::TakesCurrent() const {
  return base::CodePointCount(wanted_) > 1;
}

bool TypedText::Begins(std::string_view name, std::string_view wanted) {
  if (wanted.empty()) return false;
  // As far as both are plain letters nothing need be copied.
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  for (std::size_t at = 0; at < wanted.size(); ++at) {
    if (at == name.size()) return false;
    if (!isAscii(name[at]) || !isAscii(wanted[at])) break;
    if (!base::EqualsIgnoringCase(name.substr(at, 1), wanted.substr(at, 1))) return false;
    if (at + 1 == wanted.size()) return true;
  }
  const std::string_view head = base::FirstCodePoints(name, base::CodePointCount(wanted));
  return LowerCase(head) == LowerCase(wanted);
}

}  // namespace tarnwell::lister
