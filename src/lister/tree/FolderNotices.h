// Gathers notices of changes on disk in the branches of a folder tree, and brings the tree up to
// date as a command of its own: what is named touches those children alone.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "lister/tree/BranchReader.h"

namespace tarnwell::lister {

class FolderNotices {
 public:
  FolderNotices(FolderListState& folders, BranchReader& reader)
      : folders_(folders), tree_(folders.Tree), reader_(reader) {}

  // As FolderFollower gives it.
  void Gather(const std::string& folder, const platform::FolderChanges& changes);
  bool AnyWaiting() const { return !waiting_.empty(); }
  void Clear() { waiting_.clear(); }
  // Part of a command. The marks of nodes that are gone lie on the nearest folder above afterwards.
  void Apply();

 private:
  struct Changes {
    std::set<std::string> Names;
    bool Everything = false;
    bool FolderGone = false;
  };

  void ApplyTo(const std::string& folder, const Changes& changes);
  void ApplyNames(RowId row, const std::string& folder, const std::set<std::string>& names);
  // Removes the node, or the highest above it, that is no longer there.
  void RemoveIfGone(RowId row);
  void Forget(const std::vector<RowId>& gone);

  FolderListState& folders_;
  FolderTree& tree_;
  BranchReader& reader_;
  std::map<std::string, Changes> waiting_;  // by folder
};

}  // namespace tarnwell::lister
