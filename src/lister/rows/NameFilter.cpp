#include "lister/rows/NameFilter.h"

#include <algorithm>
#include <cstddef>

#include "base/LetterCase.h"
#include "base/Text.h"
#include "lister/rows/CellText.h"

namespace tarnwell::lister {
namespace {

constexpr std::string_view Blanks = " \t";
constexpr std::string_view Wildcards = "*?#";

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(Blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

// Moves both positions over one element of the pattern, which is no `*`, where the name has it.
bool Step(std::string_view pattern, std::size_t& p, std::string_view name, std::size_t& n) {
  const char wanted = pattern[p];
  if (wanted == '?') {
    base::NextCodePoint(name, n);
  } else if (wanted == '#' ? name[n] >= '0' && name[n] <= '9' : name[n] == wanted) {
    ++n;
  } else {
    return false;
  }
  ++p;
  return true;
}

// The next position, from this one on, at which what stands in the pattern behind a `*` may begin.
std::size_t NextStart(std::string_view pattern, std::size_t behindStar, std::string_view name,
                      std::size_t from) {
  const char wanted = pattern[behindStar];
  return Wildcards.find(wanted) != Wildcards.npos ? from : name.find(wanted, from);
}

// A `*` that took too little takes some characters more. Only the last one met needs that, so the
// work is at most the product of both lengths.
bool Matches(std::string_view pattern, std::string_view name) {
  constexpr std::size_t none = std::string_view::npos;
  std::size_t p = 0, n = 0;
  std::size_t behindStar = none, taken = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == '*') {
      behindStar = ++p;
      taken = n;
    } else if (p == pattern.size() || !Step(pattern, p, name, n)) {
      if (behindStar == none) return false;
      if (behindStar == pattern.size()) return true;
      base::NextCodePoint(name, taken);
      taken = NextStart(pattern, behindStar, name, taken);
      if (taken == none) return false;
      p = behindStar;
      n = taken;
    }
  }
  return pattern.find_first_not_of('*', p) == none;
}

// The same as LowerCase; keeps what `lower` has allocated.
void MakeLowerCase(std::string_view name, std::string& lower) {
  lower = name;
  std::size_t at = 0;
  for (; at < lower.size() && static_cast<unsigned char>(lower[at]) < 0x80; ++at) {
    lower[at] = base::SmallAscii(lower[at]);
  }
  if (at == lower.size()) return;
  lower.resize(at);
  while (at < name.size()) {
    base::AppendCodePoint(lower, base::SmallLetter(base::NextCodePoint(name, at)));
  }
}

}  // namespace

void NameFilter::SetText(const std::string& text) {
  text_ = text;
  patterns_.clear();
  std::string_view rest = text_;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(';'), rest.size());
    if (const std::string_view pattern = Trimmed(rest.substr(0, end)); !pattern.empty()) {
      patterns_.push_back({LowerCase(pattern), pattern.find_first_of(Wildcards) != pattern.npos});
    }
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
}

bool NameFilter::Takes(std::string_view name, bool isFolder) const {
  if (!extension_.empty() && !isFolder) {
    MakeLowerCase(ExtensionOf(name), lower_);
    if (lower_ != extension_) return false;
  }
  if (patterns_.empty()) return true;
  MakeLowerCase(name, lower_);
  return std::any_of(patterns_.begin(), patterns_.end(), [&](const Pattern& pattern) {
    return pattern.IsWhole ? Matches(pattern.Text, lower_)
                           : lower_.find(pattern.Text) != lower_.npos;
  });
}

std::string LowerCase(std::string_view name) {
  std::string lower;
  MakeLowerCase(name, lower);
  return lower;
}

}  // namespace tarnwell::lister
