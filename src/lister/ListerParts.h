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
  Parts(ListId list, ListFields& fields, const ListServices& services, ListerEvents& events)
      : State(list, fields, services, events) {
    if (IsFileList(list)) {
      Body = std::make_unique<FileBody>(State);
    } else {
      Body = std::make_unique<FolderBody>(State);
    }
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
