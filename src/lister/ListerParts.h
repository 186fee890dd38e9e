// What a ListerControl is made of.
#pragma once

#include <memory>
#include <string>

#include "lister/ListerControl.h"
#include "lister/files/FileBody.h"
#include "lister/list/ListBody.h"
#include "lister/tree/FolderBody.h"

namespace tarnwell::lister {

struct ListerControl::Parts {
  Parts(ListerControl& control, const ListServices& services, ListerEvents& events)
      : State(control, services, events) {
    if (IsFileList(control.Id())) {
      Body = std::make_unique<FileBody>(State);
    } else {
      Body = std::make_unique<FolderBody>(State);
    }
  }

  bool IsFolder(RowId row) const {
    const std::string path = Body->PathOf(row);
    if (path.empty()) return false;
    const platform::ItemKind kind = Body->StateOf(row).Kind;
    // A read may not have come as far as to tell.
    return kind == platform::ItemKind::Unknown ? State.Services.Files.FolderExists(path)
                                               : kind == platform::ItemKind::Folder;
  }
  // The top of a folder list.
  bool IsDriveRoot(RowId row) const {
    return !IsFileList(State.Control.Id()) && Body->Parent(row) == RootRow;
  }
  // The row that is marked as the one that is meant.
  bool IsTarget(RowId row) const {
    return (DragGraphicsOn && row == DragRow) || (InAction && row == Body->Input().Clicked());
  }

  ListState State;
  std::unique_ptr<ListBody> Body;
  int ActiveHeading = 0;
  bool IsActive = false;
  int Shift = 0;  // modifiers of the key that is being handled
  std::string ActiveItemName;
  std::string DropFolder;
  RowId DragRow = NoRow;  // the folder that lies under a drag
  bool InAction = false;  // a context action runs
  bool DragGraphicsOn = false;
  bool HoverGraphicsOn = false;
};

}  // namespace tarnwell::lister
