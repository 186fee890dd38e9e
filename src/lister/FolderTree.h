// The nodes of a folder tree. Keeps them, their order and which of them are expanded, open and
// current, and tells the view of each change; reads no folder.
//
// The drive's root is itself a node, the one child of the invisible root. A node of the tree that
// is removed hands the marks that lie below it to its parent.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/PathSyntax.h"
#include "lister/ListerView.h"
#include "lister/NameOrder.h"

namespace tarnwell::lister {

enum class BranchState { Unread, Read, Failed };

struct Subfolder {
  std::string Name;
  bool IsLink = false;
  bool IsHidden = false;
};

struct FolderNode : Subfolder {
  RowId Parent = NoRow;  // NoRow for one that is not in use
  int Position = 0;
  std::vector<RowId> Children;
  BranchState State = BranchState::Unread;
  bool IsExpanded = false;

  bool HasChildren() const { return State == BranchState::Unread || !Children.empty(); }
};

class FolderTree {
 public:
  static constexpr RowId TopRow = 1;

  FolderTree(const base::PathSyntax& syntax, const NameOrder& names)
      : syntax_(syntax), names_(names) {
    nodes_.resize(1);
  }

  // All nodes go; the root given becomes the one node, open and current.
  void Reset(const std::string& root, ListerView& view);
  // The children of the node become these, in any order. Those that were there stay the same rows.
  void Update(RowId row, std::vector<Subfolder> folders, BranchState state, ListerView& view);
  // Forgets the children of the node, which is as if it had never been read.
  void Forget(RowId row, ListerView& view);
  void Sort(bool descending, ListerView& view);
  void SetExpanded(RowId row, bool expanded, ListerView& view);
  void SetOpen(RowId row, ListerView& view);
  void SetCurrent(RowId row, ListerView& view);

  bool Has(RowId row) const {
    return row > RootRow && row < static_cast<RowId>(nodes_.size()) && Node(row).Parent != NoRow;
  }
  // The node of a row that the tree has, or the invisible root's.
  const FolderNode& Node(RowId row) const { return nodes_[static_cast<std::size_t>(row)]; }
  RowId Open() const { return open_; }
  RowId Current() const { return current_; }
  std::string PathOf(RowId row) const;
  int LevelOf(RowId row) const;
  RowId FindChild(RowId row, std::string_view name) const;
  // The node is the other one or lies below it.
  bool IsWithin(RowId row, RowId ancestor) const;
  // Changes whenever rows are removed, so that a RowId kept since may mean another folder.
  int Removals() const { return removals_; }

 private:
  FolderNode& At(RowId row) { return nodes_[static_cast<std::size_t>(row)]; }
  bool Before(const std::string& left, const std::string& right) const;
  void RemoveMissing(RowId row, const std::vector<Subfolder>& folders, ListerView& view);
  void InsertNew(RowId row, std::vector<Subfolder>& folders, ListerView& view);
  void RemoveRange(RowId row, int first, int last, ListerView& view);
  void Release(RowId row);
  RowId Make(RowId parent, Subfolder&& folder);
  void Renumber(RowId row, int from);
  void TellChanged(RowId row, ListerView& view) const;

  const base::PathSyntax& syntax_;
  const NameOrder& names_;
  std::vector<FolderNode> nodes_;  // by RowId; number 0 is the invisible root
  std::vector<RowId> free_;
  RowId open_ = NoRow;
  RowId current_ = NoRow;
  bool descending_ = false;
  int removals_ = 0;
};

}  // namespace tarnwell::lister
