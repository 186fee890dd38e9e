#include "lister/tree/TreeSizes.h"

#include <algorithm>

namespace tarnwell::lister {

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
