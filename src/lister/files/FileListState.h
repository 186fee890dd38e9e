// What the parts of a file list work on together.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "lister/list/ListBody.h"
#include "lister/rows/FileRows.h"
#include "lister/rows/KnownSizes.h"

namespace tarnwell::lister {

struct FileListState {
  explicit FileListState(ListState& list) : List(list), Sizes(list.Syntax) {}

  ListState& List;
  FileRows Rows;  // of the folder on show, which may lag behind List.Folder
  RowId Current = NoRow;
  int Orders = 0;                     // changes when rows come, go or change places
  KnownSizes Sizes;                   // of folders
  bool NamesAreRead = false;          // Rows are what the folder holds, as far as it can be read
  std::uint64_t HiddenCount = 0;      // items left out since the user does not want to see them
  std::function<void()> BeforeReset;  // all rows are about to go
  std::function<void()> AfterStop;    // the user has ended a read

  // For the status line.
  std::string Progress;    // what is being read and how far; empty when nothing is
  std::string Trouble;     // why not all of the folder is there
  std::string Note;        // what the program has to tell, until another folder is read
  std::string Reason;      // why an item could not be looked at
  std::string Unfollowed;  // the folder in which it is told that changes are not followed, or empty
  platform::Space Space;   // of the volume; Total is 0 where that is not known

  // The view's calls on the rows of the root.
  ListerView& View() { return List.View(); }

  // The rows are of what was found below their folder, not of what that holds.
  bool ShowsFound() const { return Rows.HoldsPaths(); }
  std::string PathOf(RowId row) const { return List.Syntax.Join(Rows.Folder(), Rows.Name(row)); }
  // The folder that holds the item.
  std::string FolderOf(RowId row) const {
    return ShowsFound() ? List.Syntax.ParentOf(PathOf(row)) : Rows.Folder();
  }
  // The row on show that had the cursor when the folder was last on show; NoRow for none.
  RowId Remembered() const {
    if (ShowsFound()) return NoRow;
    const RowId row = Rows.Find(List.Active.Find(Rows.Folder()));
    return Rows.Has(row) ? row : NoRow;
  }
  bool ShowsComments() const { return List.Table[HeadingId::Comments].Active; }
  bool ShowsColours() const {
    return List.Settings.ShowColour && FileCount() <= List.Settings.FileCountMax;
  }
  // To be called once the attributes of a folder have come: shows its size if it has been measured
  // and the folder has not changed since.
  void ShowKnownSize(RowId row) {
    if (Sizes.IsEmpty() || !Rows.Row(row).IsFolder() || Rows.Row(row).IsLink) return;
    const std::string path = PathOf(row);
    Sizes.Verify(path, Rows.Row(row).Modified);
    if (const auto size = Sizes.Find(path)) Rows.SetFolderSize(row, *size);
  }
  // In the folder, whether or not the filter takes them. Folders come first in any order.
  int FileCount() const {
    const std::vector<RowId>& all = Rows.All();
    const auto first = std::partition_point(all.begin(), all.end(),
                                            [this](RowId row) { return Rows.Row(row).IsFolder(); });
    return static_cast<int>(all.end() - first);
  }
};

}  // namespace tarnwell::lister
