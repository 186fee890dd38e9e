#include "lister/ListSizes.h"

#include <algorithm>
#include <iterator>

namespace tarnwell::lister {

bool FileSizes::IsFolder(RowId row) const {
  return files_.Rows.IsUsed(row) && files_.Rows.Row(row).IsFolder() && !files_.Rows.Row(row).IsLink;
}

std::string FileSizes::PathOf(RowId row) const {
  return list_.Syntax.Join(files_.Rows.Folder(), files_.Rows.Name(row));
}

std::vector<RowId> FileSizes::Folders() const {
  const std::vector<RowId>& order = files_.Rows.Order();
  std::vector<RowId> folders;
  std::copy_if(order.begin(), order.end(), std::back_inserter(folders),
               [this](RowId row) { return IsFolder(row); });
  const RowRange visible = list_.View().VisibleRows();
  std::stable_partition(folders.begin(), folders.end(), [&](RowId row) {
    const int position = files_.Rows.PositionOf(row);
    return position >= visible.First && position <= visible.Last;
  });
  return folders;
}

void FileSizes::Show(RowId row, const FolderSize& size) {
  files_.Rows.SetFolderSize(row, size);
  const int position = files_.Rows.PositionOf(row);
  if (position >= 0) list_.View().CellsChanged(RootRow, position, position);
}

void FileSizes::Finish() {
  const std::vector<SortKey>& keys = list_.Keys.Entries();
  const auto bySize = [](const SortKey& key) { return key.Heading == HeadingId::Size; };
  if (std::any_of(keys.begin(), keys.end(), bySize)) reader_.Resort();
}

std::string TreeSizes::Place() const {
  return tree_.Has(FolderTree::TopRow) ? tree_.Node(FolderTree::TopRow).Name : "";
}

std::vector<RowId> TreeSizes::Folders() const {
  std::vector<RowId> folders, left;
  if (tree_.Has(FolderTree::TopRow)) left.push_back(FolderTree::TopRow);
  while (!left.empty()) {  // parents and last children first, to be turned round
    const RowId row = left.back();
    left.pop_back();
    if (IsFolder(row)) folders.push_back(row);
    const FolderNode& node = tree_.Node(row);
    if (node.IsExpanded) left.insert(left.end(), node.Children.begin(), node.Children.end());
  }
  std::reverse(folders.begin(), folders.end());
  return folders;
}

void TreeSizes::Show(RowId row, const FolderSize&) {
  const FolderNode& node = tree_.Node(row);
  list_.View().CellsChanged(node.Parent, node.Position, node.Position);
}

void TreeSizes::Finish() {
  const SortKey key = list_.Keys.Entries()[0];
  if (key.Heading == HeadingId::Size) tree_.SortBy(key, list_.View());
}

void TreeSizes::FolderWasRead(RowId row) {
  const auto before = SizeOf(row);
  if (!before) return;
  const std::string path = tree_.PathOf(row);
  platform::ItemAttributes attributes;
  if (!list_.Services.Files.ReadAttributes(path, "", attributes)) return;
  known_.Verify(path, attributes.Modified);
  if (!SizeOf(row)) Show(row, {});
}

}  // namespace tarnwell::lister
