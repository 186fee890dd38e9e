#include "lister/ListMemory.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace tarnwell::lister {
namespace {

// Entries are numbered in 16 bits.
constexpr std::size_t MostExpanded = std::numeric_limits<std::int16_t>::max();

// Folders farther back than this are forgotten.
constexpr std::size_t MostActiveItems = 500;

}  // namespace

void ExpandedFolders::Add(const std::string& path) {
  const std::string plain = PlainPath(syntax_, path);
  if (plain.empty() || paths_.size() >= MostExpanded) return;
  const bool known = std::any_of(paths_.begin(), paths_.end(), [&](const std::string& other) {
    return syntax_.Same(other, plain);
  });
  if (!known) paths_.push_back(plain);
}

void ExpandedFolders::Remove(const std::string& path) {
  std::erase_if(paths_, [&](const std::string& other) { return syntax_.Same(other, path); });
}

void ExpandedFolders::RemoveWithin(const std::string& folder) {
  std::erase_if(paths_, [&](const std::string& path) { return syntax_.IsWithin(path, folder); });
}

std::vector<std::string> ExpandedFolders::In(const std::string& folder) const {
  std::vector<std::string> found;
  for (const std::string& path : paths_) {
    if (syntax_.Same(syntax_.ParentOf(path), folder) && !syntax_.Same(path, folder)) {
      found.push_back(path);
    }
  }
  return found;
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
