// What the parts of a file list work on together.
#pragma once

#include <functional>
#include <string>

#include "lister/FileRows.h"
#include "lister/KnownSizes.h"
#include "lister/ListBody.h"
#include "lister/NameFilter.h"

namespace tarnwell::lister {

struct FileListState {
  explicit FileListState(ListState& list) : List(list), Sizes(list.Syntax) {}

  ListState& List;
  FileRows Rows;  // of the folder on show, which may lag behind List.Folder
  RowId Current = NoRow;
  NameFilter Filter;
  std::string Find;  // what is being typed to find an item; empty for nothing
  int Orders = 0;    // changes when rows change places
  KnownSizes Sizes;
  std::string Trouble;                // what of the folder could not be read, for the status line
  std::function<void()> BeforeReset;  // all rows are about to go

  // The view's calls on the rows of the root.
  ListerView& View() { return List.View(); }
  // To be called once the attributes of a folder have come: shows its size if it has been measured
  // and the folder has not changed since.
  void ShowKnownSize(RowId row) {
    if (Sizes.IsEmpty() || !Rows.Row(row).IsFolder() || Rows.Row(row).IsLink) return;
    const std::string path = List.Syntax.Join(Rows.Folder(), Rows.Name(row));
    Sizes.Verify(path, Rows.Row(row).Modified);
    if (const auto bytes = Sizes.Find(path)) Rows.SetFolderSize(row, *bytes);
  }
};

}  // namespace tarnwell::lister
