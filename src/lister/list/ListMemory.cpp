#include "lister/list/ListMemory.h"

#include <cstddef>
#include <cstdint>
#include <limits>

namespace tarnwell::lister {
namespace {

// Entries are numbered in 16 bits.
constexpr std::size_t MostExpanded = std::numeric_limits<std::int16_t>::max();

// Folders farther back than this are forgotten.
constexpr std::size_t MostActiveItems = 500;

}  // namespace

const std::vector<std::string>& ExpandedFolders::Paths() const {
  if (!isNumbered_) {
    numbered_.clear();
    for (const auto& [key, path] : paths_) numbered_.push_back(path);
    isNumbered_ = true;
  }
  return numbered_;
}

void ExpandedFolders::Add(const std::string& path) {
  const std::string plain = PlainPath(syntax_, path);
  if (plain.empty() || paths_.size() >= MostExpanded) return;
  if (paths_.emplace(syntax_.Key(plain), plain).second) isNumbered_ = false;
}

void ExpandedFolders::Remove(const std::string& path) {
  if (paths_.erase(syntax_.Key(path)) > 0) isNumbered_ = false;
}

void ExpandedFolders::RemoveWithin(const std::string& folder) {
  Remove(folder);
  const std::string below = KeyBelow(folder);
  const auto first = paths_.lower_bound(below);
  auto last = first;
  while (last != paths_.end() && last->first.starts_with(below)) ++last;
  if (first != last) isNumbered_ = false;
  paths_.erase(first, last);
}

std::vector<std::string> ExpandedFolders::In(const std::string& folder) const {
  std::vector<std::string> found;
  const std::string below = KeyBelow(folder);
  for (auto entry = paths_.lower_bound(below);
       entry != paths_.end() && entry->first.starts_with(below);) {
    const std::size_t end = entry->first.find(syntax_.Separator, below.size());
    if (end == std::string::npos) {
      if (entry->first.size() > below.size()) found.push_back(entry->second);
      ++entry;
    } else {  // over all that lies below this one
      const char behind = static_cast<char>(syntax_.Separator + 1);
      entry = paths_.lower_bound(entry->first.substr(0, end) + behind);
    }
  }
  return found;
}

std::string ExpandedFolders::KeyBelow(const std::string& folder) const {
  return syntax_.AddSeparator(syntax_.Key(folder));
}

void ActiveItems::Set(const std::string& folder, const std::string& item) {
  const std::string plain = PlainPath(syntax_, folder);
  if (plain.empty()) return;
  for (auto& [known, itsItem] : entries_) {
    if (!syntax_.Same(known, plain)) continue;
    itsItem = item;
    return;
  }
  if (entries_.size() >= MostActiveItems) entries_.erase(entries_.begin());
  entries_.emplace_back(plain, item);
}

std::string ActiveItems::Find(const std::string& folder) const {
  for (const auto& [known, item] : entries_) {
    if (syntax_.Same(known, folder)) return item;
  }
  return "";
}

std::string PlainPath(const base::PathSyntax& syntax, const std::string& path) {
  std::string plain = path;
  while (plain.ends_with(syntax.Separator) && !syntax.IsDriveRoot(plain)) plain.pop_back();
  return plain;
}

}  // namespace tarnwell::lister
