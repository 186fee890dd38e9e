#include "lister/files/FileSizes.h"

#include <algorithm>
#include <iterator>

namespace tarnwell::lister {

bool FileSizes::IsFolder(RowId row) const {
  return files_.Rows.IsUsed(row) && files_.Rows.Row(row).IsFolder() && !files_.Rows.Row(row).IsLink;
}

std::string FileSizes::PathOf(RowId row) const {
  return files_.PathOf(row);
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

}  // namespace tarnwell::lister
