#include "lister/list/TypedText.h"

#include "base/Text.h"
#include "lister/rows/NameFilter.h"

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
