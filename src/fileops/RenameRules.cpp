#include "fileops/RenameRules.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/LetterCase.h"
#include "base/Text.h"
#include "platform/CountedTexts.h"

namespace tarnwell::fileops {
namespace {

struct FoldedLetter {
  char32_t Letter;
  std::size_t End;  // byte behind it
};

// As it is compared, and where each letter stands.
std::vector<FoldedLetter> Folded(std::string_view text, bool matchesCase) {
  std::vector<FoldedLetter> letters;
  for (std::size_t at = 0; at < text.size();) {
    const char32_t letter = base::NextCodePoint(text, at);
    letters.push_back({matchesCase ? letter : base::CapitalLetter(letter), at});
  }
  return letters;
}

// The reason, and what stands ahead of the place.
constexpr std::string_view BreaksAt = "No regular expression: %1, behind \"%2\".";

bool IsOfWord(char32_t letter) {
  const bool isDigit = letter >= '0' && letter <= '9';
  return isDigit || letter == '\'' || letter >= 0x80 ||
         base::CapitalLetter(letter) != base::SmallLetter(letter);
}

char32_t LetterInCase(char32_t letter, NameCase wanted, bool isInside) {
  const bool isCapital = wanted == NameCase::Capitals || (wanted != NameCase::Small && !isInside);
  return isCapital ? base::CapitalLetter(letter) : base::SmallLetter(letter);
}

}  // namespace

std::string InCase(std::string_view text, NameCase wanted) {
  if (wanted == NameCase::AsIs) return std::string(text);
  std::string result;
  bool isInside = false;  // of a word, or for First behind the first letter
  for (std::size_t at = 0; at < text.size();) {
    const char32_t letter = base::NextCodePoint(text, at);
    base::AppendCodePoint(result, LetterInCase(letter, wanted, isInside));
    isInside = IsOfWord(letter) || (wanted == NameCase::First && isInside);
  }
  return result;
}

std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement,
                       bool matchesCase) {
  const std::vector<FoldedLetter> wanted = Folded(find, matchesCase);
  if (wanted.empty()) return std::string(text);
  const std::vector<FoldedLetter> letters = Folded(text, matchesCase);
  std::string result;
  std::size_t taken = 0;  // bytes
  for (auto from = letters.begin();;) {
    const auto found = std::search(from, letters.end(), wanted.begin(), wanted.end(),
                                   [](const FoldedLetter& one, const FoldedLetter& other) {
                                     return one.Letter == other.Letter;
                                   });
    if (found == letters.end()) break;
    const auto end = found + static_cast<std::ptrdiff_t>(wanted.size());
    const std::size_t start = found == letters.begin() ? 0 : std::prev(found)->End;
    result.append(text.substr(taken, start - taken)).append(replacement);
    taken = std::prev(end)->End;
    from = end;
  }
  return result.append(text.substr(taken));
}

bool NameRules::Read(const RenameRules& rules, std::string& fault) {
  NamePattern::Fault found;
  NamePattern pattern;
  if (!pattern.Read(rules.Pattern, found)) {
    fault = found.Text;
    return false;
  }
  std::unique_ptr<platform::Regex> regex;
  if (!rules.Find.empty() && rules.IsRegex && compile_) {
    platform::RegexFault broken;
    regex = compile_(rules.Find, {.IgnoresCase = !rules.MatchesCase}, broken);
    if (!regex || !regex->SetReplacement(rules.Replace, broken)) {
      const std::string& text = regex ? rules.Replace : rules.Find;
      fault =
          platform::Filled(BreaksAt, {broken.Reason, base::ForDisplay(text.substr(0, broken.At))});
      return false;
    }
  }
  rules_ = rules;
  pattern_ = std::move(pattern);
  regex_ = std::move(regex);
  hasGivenUp_ = false;
  return true;
}

std::string NameRules::Replaced(std::string_view text) {
  if (!regex_) return ReplaceAll(text, rules_.Find, rules_.Replace, rules_.MatchesCase);
  std::string result(text);
  if (!hasGivenUp_) hasGivenUp_ = regex_->Replace(text, result) == platform::RegexOutcome::TooMuch;
  return result;
}

std::string NameRules::NameOf(const NameSubject& subject, std::size_t number) {
  std::string name = pattern_.NameOf(subject, rules_.Counter, number);
  if (rules_.TakesExtension) name = Replaced(name);
  std::size_t cut = ExtensionStart(name, subject.IsFolder);
  if (!rules_.TakesExtension) {
    const std::string stem = Replaced(std::string_view(name).substr(0, cut));
    name.replace(0, cut, stem);
    cut = stem.size();
  }
  if (rules_.CaseOfName == NameCase::AsIs && rules_.CaseOfExtension == NameCase::AsIs) return name;
  return InCase(std::string_view(name).substr(0, cut), rules_.CaseOfName) +
         InCase(std::string_view(name).substr(cut), rules_.CaseOfExtension);
}

}  // namespace tarnwell::fileops
