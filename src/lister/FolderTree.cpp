#include "lister/FolderTree.h"

#include <algorithm>
#include <utility>

namespace tarnwell::lister {

void FolderTree::Reset(const std::string& root, ListerView& view) {
  view.BeginReset();
  ++removals_;
  nodes_.assign(1, {});
  free_.clear();
  Subfolder top;
  top.Name = root;
  Make(RootRow, std::move(top));
  At(RootRow).Children.push_back(TopRow);
  open_ = current_ = TopRow;
  view.EndReset();
}

void FolderTree::Update(RowId row, std::vector<Subfolder> folders, BranchState state,
                        ListerView& view) {
  std::sort(folders.begin(), folders.end(), [this](const Subfolder& left, const Subfolder& right) {
    return Before(left.Name, right.Name);
  });
  // A folder that changes while it is read may hand out an item twice.
  const auto twice = [](const Subfolder& left, const Subfolder& right) {
    return left.Name == right.Name;
  };
  folders.erase(std::unique(folders.begin(), folders.end(), twice), folders.end());
  const bool hadChildren = Node(row).HasChildren();
  RemoveMissing(row, folders, view);
  InsertNew(row, folders, view);
  At(row).State = state;

  // Old and new stand in the same order now.
  for (std::size_t at = 0; at < folders.size(); ++at) {
    const RowId child = Node(row).Children[at];
    FolderNode& node = At(child);
    if (node.IsLink == folders[at].IsLink && node.IsHidden == folders[at].IsHidden) continue;
    node.IsLink = folders[at].IsLink;
    node.IsHidden = folders[at].IsHidden;
    TellChanged(child, view);
  }
  if (Node(row).HasChildren() != hadChildren) TellChanged(row, view);
}

void FolderTree::Forget(RowId row, ListerView& view) {
  if (!Node(row).Children.empty()) {
    RemoveRange(row, 0, static_cast<int>(Node(row).Children.size()) - 1, view);
  }
  if (Node(row).State == BranchState::Unread) return;
  At(row).State = BranchState::Unread;
  TellChanged(row, view);
}

void FolderTree::Sort(bool descending, ListerView& view) {
  if (descending == descending_) return;
  descending_ = descending;
  for (RowId row = TopRow; row < static_cast<RowId>(nodes_.size()); ++row) {
    if (Node(row).Children.size() < 2) continue;
    view.BeginReorder(row);
    // The order is total, so the other direction is the reverse.
    std::reverse(At(row).Children.begin(), At(row).Children.end());
    Renumber(row, 0);
    view.EndReorder();
  }
}

void FolderTree::SetExpanded(RowId row, bool expanded, ListerView& view) {
  At(row).IsExpanded = expanded;
  view.ExpansionChanged(row);
}

void FolderTree::SetOpen(RowId row, ListerView& view) {
  const RowId before = std::exchange(open_, row);
  if (before == row) return;
  TellChanged(before, view);
  TellChanged(row, view);
}

void FolderTree::SetCurrent(RowId row, ListerView& view) {
  if (std::exchange(current_, row) != row) view.CurrentChanged();
}

std::string FolderTree::PathOf(RowId row) const {
  std::vector<RowId> line;
  std::size_t length = Node(TopRow).Name.size() + 1;
  for (; row > TopRow; row = Node(row).Parent) {
    line.push_back(row);
    length += Node(row).Name.size() + 1;
  }
  std::string path = Node(TopRow).Name;
  path.reserve(length);
  for (; !line.empty(); line.pop_back()) {
    if (!path.ends_with(syntax_.Separator)) path += syntax_.Separator;
    path += Node(line.back()).Name;
  }
  return path;
}

int FolderTree::LevelOf(RowId row) const {
  int level = 0;
  for (; row > RootRow; row = Node(row).Parent) ++level;
  return level;
}

RowId FolderTree::FindChild(RowId row, std::string_view name) const {
  const std::vector<RowId>& children = Node(row).Children;
  const auto match = [&](auto same) {
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&](RowId child) { return same(Node(child).Name); });
    return found == children.end() ? NoRow : *found;
  };
  // The exact name first: it is cheaper to look for, and the better match where case counts.
  const RowId exact = match([&](const std::string& other) { return other == name; });
  if (exact != NoRow || syntax_.CaseSensitive) return exact;
  return match([&](const std::string& other) { return syntax_.Same(other, name); });
}

bool FolderTree::IsWithin(RowId row, RowId ancestor) const {
  while (row > RootRow && row != ancestor) row = Node(row).Parent;
  return row == ancestor;
}

bool FolderTree::Before(const std::string& left, const std::string& right) const {
  return descending_ ? names_.Before(right, left) : names_.Before(left, right);
}

// Takes the children away that are not among the folders, which stand in the order of the tree.
void FolderTree::RemoveMissing(RowId row, const std::vector<Subfolder>& folders, ListerView& view) {
  std::vector<bool> missing;
  auto folder = folders.begin();
  for (const RowId child : Node(row).Children) {
    const std::string& name = Node(child).Name;
    while (folder != folders.end() && Before(folder->Name, name)) ++folder;
    missing.push_back(folder == folders.end() || folder->Name != name);
  }
  for (int last = static_cast<int>(missing.size()) - 1; last >= 0; --last) {
    if (!missing[static_cast<std::size_t>(last)]) continue;
    int first = last;
    while (first > 0 && missing[static_cast<std::size_t>(first - 1)]) --first;
    RemoveRange(row, first, last, view);
    last = first;
  }
}

// Puts the folders in that are not among the children, all of which are among the folders.
void FolderTree::InsertNew(RowId row, std::vector<Subfolder>& folders, ListerView& view) {
  const auto isThere = [&](std::size_t at) {
    const std::vector<RowId>& children = Node(row).Children;
    return at < children.size() && Node(children[at]).Name == folders[at].Name;
  };
  // Whatever lies before `first` has been put right, so places in both lists are the same.
  for (std::size_t first = 0; first < folders.size(); ++first) {
    if (isThere(first)) continue;
    const std::vector<RowId>& children = Node(row).Children;
    std::size_t end = folders.size();
    if (first < children.size()) {
      const std::string& next = Node(children[first]).Name;
      for (end = first; folders[end].Name != next;) ++end;
    }
    view.BeginInsert(row, static_cast<int>(first), static_cast<int>(end) - 1);
    std::vector<RowId> made;
    for (std::size_t at = first; at < end; ++at) made.push_back(Make(row, Subfolder(folders[at])));
    std::vector<RowId>& list = At(row).Children;
    list.insert(list.begin() + static_cast<std::ptrdiff_t>(first), made.begin(), made.end());
    Renumber(row, static_cast<int>(first));
    view.EndInsert();
    first = end;
  }
}

void FolderTree::RemoveRange(RowId row, int first, int last, ListerView& view) {
  const std::vector<RowId>& list = Node(row).Children;
  const std::vector<RowId> gone(list.begin() + first, list.begin() + last + 1);
  // The marks move first: the view must not be left with a current row that is being removed.
  const auto goes = [&](RowId mark) {
    while (mark > RootRow && Node(mark).Parent != row) mark = Node(mark).Parent;
    return mark > RootRow && Node(mark).Position >= first && Node(mark).Position <= last;
  };
  if (goes(open_)) SetOpen(row, view);
  if (goes(current_)) SetCurrent(row, view);
  view.BeginRemove(row, first, last);
  ++removals_;
  At(row).Children.erase(list.begin() + first, list.begin() + last + 1);
  Renumber(row, first);
  for (const RowId child : gone) Release(child);
  view.EndRemove();
}

void FolderTree::Release(RowId row) {
  std::vector<RowId> rows{row};
  while (!rows.empty()) {
    const RowId next = rows.back();
    rows.pop_back();
    rows.insert(rows.end(), Node(next).Children.begin(), Node(next).Children.end());
    At(next) = FolderNode{};
    free_.push_back(next);
  }
}

RowId FolderTree::Make(RowId parent, Subfolder&& folder) {
  RowId row = static_cast<RowId>(nodes_.size());
  if (free_.empty()) {
    nodes_.emplace_back();
  } else {
    row = free_.back();
    free_.pop_back();
  }
  static_cast<Subfolder&>(At(row)) = std::move(folder);
  At(row).Parent = parent;
  return row;
}

void FolderTree::Renumber(RowId row, int from) {
  const std::vector<RowId>& children = Node(row).Children;
  for (int at = from; at < static_cast<int>(children.size()); ++at) {
    At(children[static_cast<std::size_t>(at)]).Position = at;
  }
}

void FolderTree::TellChanged(RowId row, ListerView& view) const {
  if (!Has(row)) return;
  view.CellsChanged(Node(row).Parent, Node(row).Position, Node(row).Position);
}

}  // namespace tarnwell::lister
