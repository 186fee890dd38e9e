#include "lister/tree/BranchReader.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

#include "base/Text.h"
#include "lister/rows/CellText.h"

namespace tarnwell::lister {

using platform::ItemKind;

namespace {

std::vector<std::string_view> NamesIn(std::string_view path, char separator) {
  std::vector<std::string_view> names;
  while (!path.empty()) {
    const std::string_view name = path.substr(0, path.find(separator));
    path.remove_prefix(std::min(path.size(), name.size() + 1));
    if (!name.empty()) names.push_back(name);
  }
  return names;
}

}  // namespace

// What a folder holds, as far as a tree has use for it.
struct BranchReader::Listing {
  std::vector<Subfolder> Folders;
  std::vector<Subfolder> Untold;  // links and what else may be a folder
  bool IsEmpty = true;
  // Keys of the names that are remembered as expanded and that the folder does not hold.
  std::set<std::string> Missing;
};

RowId BranchReader::Reach(const std::string& folder) {
  const base::PathSyntax& syntax = folders_.List.Syntax;
  const std::string path = PlainPath(syntax, folder);
  const std::string shown = base::ForDisplay(path);
  if (!IsOnTree(path)) {
    folders_.Trouble = "Cannot open " + shown + ": it is not on this drive";
    return NoRow;
  }
  platform::ItemAttributes attributes;
  const base::Status status = folders_.List.Services.Files.ReadAttributes(path, "", attributes);
  if (!status || attributes.Kind != ItemKind::Folder) {
    folders_.Trouble =
        "Cannot open " + shown + ": " + (status ? "it is not a folder" : status.Reason);
    return NoRow;
  }

  const std::vector<std::string_view> names = NamesIn(path, syntax.Separator);
  const std::string top = tree_.PathOf(FolderTree::TopRow);
  RowId row = FolderTree::TopRow;
  for (std::size_t level = NamesIn(top, syntax.Separator).size();
       level < names.size() && row != NoRow; ++level) {
    RowId child = tree_.FindChild(row, names[level]);
    std::vector<RowId> remembered;
    // Also a branch that has been read may lack the folder: it can be new, or hidden.
    if (child == NoRow && Read(row, std::string(names[level]), remembered)) {
      ExpandAll(std::move(remembered));
      child = tree_.FindChild(row, names[level]);
    }
    row = child;
  }
  if (row == NoRow && folders_.Trouble.empty()) folders_.Trouble = "Cannot open " + shown;
  return row;
}

void BranchReader::Expand(RowId row) {
  if (!tree_.Node(row).IsExpanded) ExpandAll({row});
}

bool BranchReader::ExpandAncestors(RowId row) {
  std::vector<RowId> ancestors;
  for (RowId parent = tree_.Node(row).Parent; parent > RootRow;
       parent = tree_.Node(parent).Parent) {
    if (!tree_.Node(parent).IsExpanded) ancestors.push_back(parent);
  }
  for (; !ancestors.empty(); ancestors.pop_back()) {
    const RowId next = ancestors.size() > 1 ? ancestors[ancestors.size() - 2] : row;
    const std::string name = tree_.Node(next).Name;
    Expand(ancestors.back());
    // A branch may lose what lies below it as it is read.
    if (tree_.FindChild(ancestors.back(), name) != next) return false;
  }
  return true;
}

// No call within a call for what is expanded below: trees can be deeper than the stack.
void BranchReader::ExpandAll(std::vector<RowId> rows) {
  while (!rows.empty() && folders_.GoesOn()) {
    const RowId row = rows.back();
    rows.pop_back();
    const FolderNode& node = tree_.Node(row);
    if ((IsToBeRead(row) || !node.IsFresh) && !Read(row, OpenChildOf(row), rows)) return;
    if (!tree_.Node(row).IsExpanded) ShowBranch(row);
    // They were not followed while a branch above them was collapsed.
    for (const RowId child : tree_.Node(row).Children) {
      if (tree_.Node(child).IsExpanded && !tree_.Node(child).IsFresh) rows.push_back(child);
    }
  }
}

void BranchReader::Reread(RowId row) {
  std::vector<RowId> remembered;
  if (Read(row, OpenChildOf(row), remembered)) ExpandAll(std::move(remembered));
}

void BranchReader::RefreshAllBelow(RowId row) {
  std::vector<RowId> rows{row};
  while (!rows.empty() && folders_.GoesOn()) {
    const RowId next = rows.back();
    rows.pop_back();
    const FolderNode& node = tree_.Node(next);
    const bool knownEmpty = node.State == BranchState::Read && node.Children.empty();
    if (node.IsExpanded || knownEmpty || !OpenChildOf(next).empty()) {
      Reread(next);
    } else {
      tree_.Forget(next, folders_.View());
    }
    const std::vector<RowId>& children = tree_.Node(next).Children;
    std::copy_if(children.rbegin(), children.rend(), std::back_inserter(rows),
                 [this](RowId child) { return tree_.Node(child).State != BranchState::Unread; });
  }
}

bool BranchReader::IsFolder(const std::string& path) const {
  platform::ItemAttributes attributes;
  return folders_.List.Services.Files.ReadAttributes(path, "", attributes) &&
         attributes.Kind == ItemKind::Folder;
}

bool BranchReader::IsOnTree(const std::string& folder) const {
  return tree_.Has(FolderTree::TopRow) &&
         folders_.List.Syntax.IsWithin(folder, tree_.PathOf(FolderTree::TopRow));
}

bool BranchReader::IsToBeRead(RowId row) const {
  const FolderNode& node = tree_.Node(row);
  return node.State != BranchState::Read && node.Children.empty();
}

void BranchReader::ShowBranch(RowId row) {
  const bool shows = !IsToBeRead(row);
  if (shows) folders_.List.Expanded.Add(tree_.PathOf(row));
  tree_.SetExpanded(row, shows, folders_.View());
}

bool BranchReader::Read(RowId row, const std::string& wanted, std::vector<RowId>& remembered) {
  if (!folders_.GoesOn()) return false;
  const std::string folder = tree_.PathOf(row);
  folders_.Follower.Add(folder);
  Listing listing;
  const base::Status status = ReadSubfolders(folder, wanted, listing);
  if (folders_.Stopped || folders_.List.IsTerminated) return false;
  tree_.Update(row, std::move(listing.Folders), status ? BranchState::Read : BranchState::Failed,
               folders_.View());
  tree_.SetFresh(row, true);
  folders_.Fresh.insert(row);
  sizes_.FolderWasRead(row);
  if (status) {
    CollectRemembered(row, folder, listing, remembered);
  } else {
    folders_.Trouble = CannotRead(folder, status);
  }
  return true;
}

base::Status BranchReader::ReadSubfolders(const std::string& folder, const std::string& wanted,
                                          Listing& listing) {
  const ListState& list = folders_.List;
  for (const std::string& entry : list.Expanded.In(folder)) {
    listing.Missing.insert(list.Syntax.Key(list.Syntax.LastComponent(entry)));
  }
  base::Status status;
  const std::unique_ptr<platform::OpenedFolder> opened =
      list.Services.Files.OpenFolder(folder, status);
  if (opened) {
    status = opened->Read([&](const platform::FolderEntry& entry) {
      if (!folders_.GoesOn()) return false;
      listing.IsEmpty = false;
      if (!listing.Missing.empty()) listing.Missing.erase(list.Syntax.Key(entry.Name));
      const bool untold = entry.IsLink || entry.Kind == ItemKind::Unknown;
      if (!untold && entry.Kind != ItemKind::Folder) return true;
      if (list.IsFilteredOut(entry) && (wanted.empty() || !list.Syntax.Same(entry.Name, wanted))) {
        return true;
      }
      (untold ? listing.Untold : listing.Folders)
          .push_back({std::string(entry.Name), entry.IsLink, entry.IsHidden, entry.IsSystem});
      return true;
    });
    ResolveUntold(*opened, listing);
  }
  // A folder can be entered although the one above it cannot be listed, or does not list it.
  platform::ItemAttributes attributes;
  const bool found =
      !list.Syntax.IsName(wanted) ||
      std::any_of(listing.Folders.begin(), listing.Folders.end(),
                  [&](const Subfolder& entry) { return list.Syntax.Same(entry.Name, wanted); });
  if (!found && list.Services.Files.ReadAttributes(folder, wanted, attributes) &&
      attributes.Kind == ItemKind::Folder) {
    listing.Folders.push_back(
        {wanted, attributes.IsLink, attributes.IsHidden, attributes.IsSystem});
  }
  return status;
}

void BranchReader::ResolveUntold(const platform::OpenedFolder& opened, Listing& listing) {
  platform::ItemAttributes attributes;
  for (Subfolder& entry : listing.Untold) {
    if (!folders_.GoesOn()) return;
    if (!opened.ReadAttributes(entry.Name, attributes)) continue;
    if (attributes.Kind == ItemKind::Folder) listing.Folders.push_back(std::move(entry));
  }
}

// A branch is forgotten when it is gone for certain: one that cannot be looked at may come back,
// and so may all that lies below an empty folder, which can be where a volume will be mounted.
void BranchReader::CollectRemembered(RowId row, const std::string& path, const Listing& listing,
                                     std::vector<RowId>& remembered) {
  ListState& list = folders_.List;
  for (const std::string& entry : list.Expanded.In(path)) {
    const std::string_view name = list.Syntax.LastComponent(entry);
    const RowId child = tree_.FindChild(row, name);
    platform::ItemAttributes attributes;
    if (child != NoRow) {
      if (!tree_.Node(child).IsExpanded) remembered.push_back(child);
    } else if (!listing.IsEmpty && listing.Missing.contains(list.Syntax.Key(name)) &&
               !list.Services.Files.ReadAttributes(entry, "", attributes)) {
      list.Expanded.RemoveWithin(entry);
    }
  }
}

std::string BranchReader::OpenChildOf(RowId row) const {
  RowId child = tree_.Open();
  while (child > RootRow && tree_.Node(child).Parent != row) child = tree_.Node(child).Parent;
  return child > RootRow ? tree_.Node(child).Name : "";
}

}  // namespace tarnwell::lister
