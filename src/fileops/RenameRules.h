// What many names are to become: by a pattern, then by search and replace, then by rules of case.
//
// Pure rules over names; looks at no disk.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "fileops/NamePattern.h"
#include "platform/Regex.h"

namespace tarnwell::fileops {

enum class NameCase : std::uint8_t {
  AsIs,
  Small,
  Capitals,
  Words,  // each word begins with a capital, the rest is small
  First,  // the first letter of all is a capital, the rest is small
};
inline constexpr std::size_t NameCaseCount = 5;

struct RenameRules {
  std::string Pattern = "{name}.{ext}";
  NameCounter Counter;
  std::string Find;  // nothing is replaced where it is empty
  std::string Replace;
  bool IsRegex = false;
  bool MatchesCase = false;
  bool TakesExtension = false;  // search and replace look at the extension too
  NameCase CaseOfName = NameCase::AsIs;
  NameCase CaseOfExtension = NameCase::AsIs;
};

class NameRules {
 public:
  // Without `compile` there are no regular expressions.
  explicit NameRules(platform::CompileRegex compile = {}) : compile_(std::move(compile)) {}

  bool TakesRegex() const { return static_cast<bool>(compile_); }
  // Takes the rules over, unless they have a fault: a sentence for people.
  bool Read(const RenameRules& rules, std::string& fault);
  // Whether names are made of the time of the last change.
  bool UsesTime() const { return pattern_.UsesTime(); }
  // The name of the item with that number, from 0 on; see NamePattern::NameOf.
  std::string NameOf(const NameSubject& subject, std::size_t number);
  // Whether the regular expression has tried too many ways on a name since Read. It is not tried on
  // any further name then.
  bool HasGivenUp() const { return hasGivenUp_; }

 private:
  std::string Replaced(std::string_view text);

  platform::CompileRegex compile_;
  RenameRules rules_;
  NamePattern pattern_;
  std::unique_ptr<platform::Regex> regex_;  // null where the search is for plain text
  bool hasGivenUp_ = false;
};

std::string InCase(std::string_view text, NameCase wanted);

// Every place where the text is found, from the left, each behind the one before.
std::string ReplaceAll(std::string_view text, std::string_view find, std::string_view replacement,
                       bool matchesCase);

}  // namespace tarnwell::fileops
