// Reads branches of a folder tree from disk, as part of a command: one that is expanded, one that
// has changed, those on the way to a folder. Lets messages through and stops when the user wishes;
// a branch whose read was stopped is as it was before.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "lister/tree/FolderListState.h"
#include "lister/tree/TreeSizes.h"

namespace tarnwell::lister {

class BranchReader {
 public:
  BranchReader(FolderListState& folders, TreeSizes& sizes)
      : folders_(folders), tree_(folders.Tree), sizes_(sizes) {}

  // The row of a folder of this tree, the branches above it read as needed; NoRow, with the trouble
  // told, if it cannot be found.
  RowId Reach(const std::string& folder);
  // Expands the node, and below it what was expanded before. A branch of which no notices came is
  // read again.
  void Expand(RowId row);
  // False when the node has gone with that.
  bool ExpandAncestors(RowId row);
  // Reads the branch again; branches that are remembered as expanded come back with it.
  void Reread(RowId row);
  // The same for all that lies below. A branch that nobody sees is forgotten rather than read: it
  // is read again when it is expanded.
  void RefreshAllBelow(RowId row);

  // The path is a folder, or a link to one.
  bool IsFolder(const std::string& path) const;
  bool IsOnTree(const std::string& folder) const;

 private:
  struct Listing;

  // Reads the children of a row; `wanted` is shown even if it is hidden. False when the user
  // stopped it. Adds the children to expand to `remembered`.
  bool Read(RowId row, const std::string& wanted, std::vector<RowId>& remembered);
  base::Status ReadSubfolders(const std::string& folder, const std::string& wanted,
                              Listing& listing);
  void ResolveUntold(const platform::OpenedFolder& opened, Listing& listing);
  void CollectRemembered(RowId row, const std::string& path, const Listing& listing,
                         std::vector<RowId>& remembered);
  void ExpandAll(std::vector<RowId> rows);
  bool IsToBeRead(RowId row) const;
  // Marks the branch as expanded if there is anything to show.
  void ShowBranch(RowId row);
  // The child of the row that leads to the open node; empty if none does.
  std::string OpenChildOf(RowId row) const;

  FolderListState& folders_;
  FolderTree& tree_;
  TreeSizes& sizes_;
};

}  // namespace tarnwell::lister
