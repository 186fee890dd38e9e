#include "lister/list/ClickedItem.h"

#include "lister/list/ListBody.h"

namespace tarnwell::lister {

bool IsFolder(const ListState& list, const ListRows& rows, RowId row) {
  const std::string path = rows.PathOf(row);
  if (path.empty()) return false;
  const platform::ItemKind kind = rows.StateOf(row).Kind;
  // A read may not have come as far as to tell.
  return kind == platform::ItemKind::Unknown ? list.Services.Files.FolderExists(path)
                                             : kind == platform::ItemKind::Folder;
}

bool IsDriveRoot(const ListState& list, const ListRows& rows, RowId row) {
  return !IsFileList(list.Id) && rows.Parent(row) == RootRow;
}

ClickedItem DescribeItem(const ListState& list, const ListRows& rows, RowId row) {
  const base::PathSyntax& syntax = list.Syntax;
  const std::string path = rows.PathOf(row);
  if (path.empty()) return {};
  if (IsDriveRoot(list, rows, row)) return {ClickedDriveRoot, syntax.AddSeparator(path)};
  return {IsFolder(list, rows, row) ? ClickedFolder : ClickedFile, syntax.GetFolderPath(path),
          std::string(syntax.LastComponent(path))};
}

ClickedItem DescribeClicked(const ListState& list, const ListRows& rows, RowId row) {
  ClickedItem item = DescribeItem(list, rows, row);
  if (item.Kind != NothingClicked || !IsFileList(list.Id) || list.Folder.empty() ||
      rows.ShowsFound()) {
    return item;
  }
  return {ClickedEmptySpace, list.Syntax.AddSeparator(list.Folder)};
}

}  // namespace tarnwell::lister
