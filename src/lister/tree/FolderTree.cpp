#include "lister/tree/FolderTree.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace tarnwell::lister {
void FolderTree::Reset(const std::string& root, ListerView& view) {
  view.BeginReset();
  ++removals_;
  nodes_.assign(1, {});
  free_.clear();
  facts_.clear();
  Subfolder top;
  top.Name = root;
  Make(RootRow, std::move(top));
  At(RootRow).Children.push_back(TopRow);
  open_ = current_ = TopRow;
  view.EndReset();
}

void FolderTree::Update(RowId row, std::vector<Subfolder> folders, BranchState state,
                        ListerView& view) {
  // By name, those that have no row yet. A folder that changes while it is read may hand out an
  // item twice.
  std::unordered_map<std::string_view, std::size_t> fresh;
  fresh.reserve(folders.size());
  for (std::size_t at = 0; at < folders.size(); ++at) fresh.try_emplace(folders[at].Name, at);

  const bool hadChildren = Node(row).HasChildren();
  std::vector<char> goes(Node(row).Children.size());
  std::vector<RowId> changed;
  for (const RowId child : Node(row).Children) {
    FolderNode& node = At(child);
    const auto found = fresh.find(node.Name);
    if (found == fresh.end()) {
      goes[static_cast<std::size_t>(node.Position)] = 1;
      continue;
    }
    Subfolder& folder = folders[found->second];
    fresh.erase(found);
    node.Tried = NoFacts;
    if (node.IsLink == folder.IsLink && node.IsHidden == folder.IsHidden &&
        node.IsSystem == folder.IsSystem) {
      continue;
    }
    static_cast<Subfolder&>(node) = std::move(folder);
    changed.push_back(child);
  }
  std::vector<std::size_t> added;
  added.reserve(fresh.size());
  for (const auto& [name, at] : fresh) added.push_back(at);
  std::sort(added.begin(), added.end());
  std::vector<RowId> made;
  made.reserve(added.size());
  for (const std::size_t at : added) made.push_back(Make(row, std::move(folders[at])));

  RemoveMarked(row, std::move(goes), view);
  InsertMade(row, std::move(made), view);
  At(row).State = state;
  if (!changed.empty()) {
    const auto [first, last] = std::minmax_element(
        changed.begin(), changed.end(),
        [&](RowId left, RowId right) { return Node(left).Position < Node(right).Position; });
    view.CellsChanged(row, Node(*first).Position, Node(*last).Position);
  }
  if (Node(row).HasChildren() != hadChildren) TellChanged(row, view);
}

void FolderTree::Change(RowId row, const std::vector<RowId>& gone, std::vector<Subfolder> come,
                        ListerView& view) {
  const bool hadChildren = Node(row).HasChildren();
  std::vector<char> goes(Node(row).Children.size());
  for (const RowId child : gone) goes[static_cast<std::size_t>(Node(child).Position)] = 1;
  std::vector<RowId> made;
  made.reserve(come.size());
  for (Subfolder& folder : come) made.push_back(Make(row, std::move(folder)));
  RemoveMarked(row, std::move(goes), view);
  InsertMade(row, std::move(made), view);
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

RowId FolderTree::Find(const std::string& path) const {
  if (!Has(TopRow)) return NoRow;
  const std::string& top = Node(TopRow).Name;
  if (!path.starts_with(top)) return NoRow;
  RowId row = TopRow;
  std::string_view rest = std::string_view(path).substr(top.size());
  while (!rest.empty() && row != NoRow) {
    if (rest.front() == syntax_.Separator) {
      rest.remove_prefix(1);
    } else if (row == TopRow && !top.ends_with(syntax_.Separator)) {
      return NoRow;  // a sibling whose name begins with that of the top
    }
    const std::string_view name = rest.substr(0, rest.find(syntax_.Separator));
    row = FindChild(row, name);
    rest.remove_prefix(name.size());
  }
  return row;
}

std::vector<RowId> FolderTree::BranchesOnShow() const {
  std::vector<RowId> branches;
  std::vector<RowId> rows;
  if (Has(TopRow) && Node(TopRow).IsExpanded) rows.push_back(TopRow);
  while (!rows.empty()) {
    const RowId row = rows.back();
    rows.pop_back();
    branches.push_back(row);
    const std::vector<RowId>& children = Node(row).Children;
    std::copy_if(children.rbegin(), children.rend(), std::back_inserter(rows),
                 [this](RowId child) { return Node(child).IsExpanded; });
  }
  return branches;
}

std::uint64_t FolderTree::CountOnShow() const {
  std::uint64_t count = Has(TopRow) ? 1 : 0;
  for (const RowId row : BranchesOnShow()) count += Node(row).Children.size();
  return count;
}

bool FolderTree::IsWithin(RowId row, RowId ancestor) const {
  while (row > RootRow && row != ancestor) row = Node(row).Parent;
  return row == ancestor;
}

const FolderFacts& FolderTree::FactsOf(RowId row) const {
  static const FolderFacts none;
  const auto known = facts_.find(row);
  return known == facts_.end() ? none : known->second;
}

bool FolderTree::SetFacts(RowId row, std::uint8_t tried, const FolderFacts& facts) {
  At(row).Tried |= tried;
  if (FactsOf(row) == facts) return false;
  facts_[row] = facts;
  return true;
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
    facts_.erase(next);
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
