#include "lister/TypedText.h"

#include "base/Text.h"
#include "lister/NameFilter.h"

namespace tarnwell::lister {

void TypedText::Add(std::string_view text, std::int64_t now) {
  Set((GoesOn(now) ? typed_ : "") + std::string(text));
  last_ = now;
}

void TypedText::Set(const std::string& text) {
  typed_ = wanted_ = text;
  const std::string letter(base::FirstCodePoints(text, 1));
  std::string repeated;
  while (repeated.size() < text.size()) repeated += letter;
  if (repeated == text) wanted_ = letter;
}

bool TypedText::TakesCurrent() const {
  return base::CodePointCount(wanted_) > 1;
}

bool TypedText::Begins(std::string_view name, std::string_view wanted) {
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (name.empty() || wanted.empty()) return false;
  // Most names differ in the first letter, which is quicker to see without the locale.
  if (isAscii(name[0]) && isAscii(wanted[0]) &&
      !base::EqualsIgnoringCase(name.substr(0, 1), wanted.substr(0, 1))) {
    return false;
  }
  const std::string_view head = base::FirstCodePoints(name, base::CodePointCount(wanted));
  return LowerCase(head) == LowerCase(wanted);
}

}  // namespace tarnwell::lister
