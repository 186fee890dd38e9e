// What a list keeps from run to run: branches that were expanded, items that were active.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/PathSyntax.h"

namespace tarnwell::lister {

// Paths of expanded folders, each once, in the order of their keys. Quick with as many thousands as
// a settings file may hold.
class ExpandedFolders {
 public:
  explicit ExpandedFolders(const base::PathSyntax& syntax) : syntax_(syntax) {}

  const std::vector<std::string>& Paths() const;
  void Add(const std::string& path);
  void Remove(const std::string& path);
  // Drops the folder and all that lie below it.
  void RemoveWithin(const std::string& folder);
  // The entries that lie directly in the folder.
  std::vector<std::string> In(const std::string& folder) const;

 private:
  // What the keys of all that lie below the folder begin with.
  std::string KeyBelow(const std::string& folder) const;

  const base::PathSyntax& syntax_;
  std::map<std::string, std::string> paths_;   // by key
  mutable std::vector<std::string> numbered_;  // the same paths, made when they are asked for
  mutable bool isNumbered_ = false;
};

// Pairs of a folder and the item that was active there, each folder once, the oldest first.
class ActiveItems {
 public:
  explicit ActiveItems(const base::PathSyntax& syntax) : syntax_(syntax) {}

  const std::vector<std::pair<std::string, std::string>>& Entries() const { return entries_; }
  void Set(const std::string& folder, const std::string& item);
  // Empty when there is none.
  std::string Find(const std::string& folder) const;

 private:
  const base::PathSyntax& syntax_;
  std::vector<std::pair<std::string, std::string>> entries_;
};

// The path as lists keep it: no separator at its end unless it is a root.
std::string PlainPath(const base::PathSyntax& syntax, const std::string& path);

}  // namespace tarnwell::lister
