#include "lister/tree/FolderNotices.h"

#include <cstddef>
#include <utility>

#include "lister/rows/NameFilter.h"

namespace tarnwell::lister {
namespace {

// With more names than this it is quicker to read the folder.
constexpr std::size_t MostNoticeNames = 256;

}  // namespace

void FolderNotices::Gather(const std::string& folder, const platform::FolderChanges& changes) {
  Changes& known = waiting_[folder];
  known.FolderGone = known.FolderGone || changes.FolderGone;
  known.Everything = known.Everything || changes.Everything ||
                     known.Names.size() + changes.Names.size() > MostNoticeNames;
  if (known.Everything) {
    known.Names.clear();
  } else {
    known.Names.insert(changes.Names.begin(), changes.Names.end());
  }
}

void FolderNotices::Apply() {
  const std::map<std::string, Changes> waiting = std::exchange(waiting_, {});
  if (!tree_.Has(FolderTree::TopRow)) return;
  // A folder comes before those that lie in it.
  for (const auto& [folder, changes] : waiting) {
    if (!folders_.GoesOn()) break;
    ApplyTo(folder, changes);
  }
  // A notice from elsewhere must not wait for a share; that it went from there is told in time.
  const RowId open = tree_.Open();
  if (tree_.Has(open) && !folders_.Follower.IsAfar(tree_.PathOf(open))) RemoveIfGone(open);
}

void FolderNotices::ApplyTo(const std::string& folder, const Changes& changes) {
  const RowId row = tree_.Find(folder);
  if (row == NoRow) return;
  if (changes.FolderGone) {
    RemoveIfGone(row);
    // It may have come again, as another folder.
    if (tree_.Find(folder) == row) reader_.RefreshAllBelow(row);
  } else if (tree_.Node(row).State != BranchState::Unread) {
    if (changes.Everything) {
      reader_.Reread(row);
    } else {
      ApplyNames(row, folder, changes.Names);
    }
  }
}

void FolderNotices::ApplyNames(RowId row, const std::string& folder,
                               const std::set<std::string>& names) {
  const platform::FileSystem& files = folders_.List.Services.Files;
  const ListState& list = folders_.List;
  std::vector<RowId> gone;
  std::vector<Subfolder> come;
  std::vector<std::string> changed;
  bool reread = false;
  for (const std::string& name : names) {
    if (!folders_.GoesOn()) break;
    platform::ItemAttributes attributes;
    const bool isFolder = files.ReadAttributes(folder, name, attributes) &&
                          attributes.Kind == platform::ItemKind::Folder;
    const RowId child = tree_.FindChild(row, name);
    if (child != NoRow) {
      const FolderNode& node = tree_.Node(child);
      if (!isFolder) gone.push_back(child);
      if (isFolder) changed.push_back(name);
      // Another spelling of the name, or another kind of item.
      reread = reread || (isFolder && (node.Name != name || node.IsLink != attributes.IsLink ||
                                       node.IsHidden != attributes.IsHidden));
    } else if (isFolder && !list.IsFilteredOut({.Name = name,
                                                .IsHidden = attributes.IsHidden,
                                                .IsSystem = attributes.IsSystem})) {
      come.push_back({name, attributes.IsLink, attributes.IsHidden, attributes.IsSystem});
    }
  }
  // Where case does not count both names are there, and only the folder tells which one is right.
  std::set<std::string> known;
  for (const std::string& name : changed) known.insert(LowerCase(name));
  const auto isRespelt = [&](const Subfolder& its) { return known.contains(LowerCase(its.Name)); };
  reread = std::erase_if(come, isRespelt) > 0 || reread;
  Forget(gone);
  tree_.Change(row, gone, std::move(come), folders_.View());
  if (reread) reader_.Reread(row);
  for (const std::string& name : changed) {
    const RowId child = tree_.FindChild(row, name);
    if (child == NoRow) continue;
    tree_.AskAnew(child);
    // It may be another folder of that name.
    if (tree_.Node(child).State != BranchState::Unread) reader_.RefreshAllBelow(child);
  }
}

void FolderNotices::RemoveIfGone(RowId row) {
  RowId highest = NoRow;
  for (; row > FolderTree::TopRow && !reader_.IsFolder(tree_.PathOf(row));
       row = tree_.Node(row).Parent) {
    highest = row;
  }
  if (highest == NoRow) return;
  Forget({highest});
  tree_.Change(row, {highest}, {}, folders_.View());
}

// They are gone for certain.
void FolderNotices::Forget(const std::vector<RowId>& gone) {
  for (const RowId row : gone) folders_.List.Expanded.RemoveWithin(tree_.PathOf(row));
}

}  // namespace tarnwell::lister
