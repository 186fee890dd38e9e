// What a ListerControl is made of.
#pragma once

#include <memory>
#include <string>

#include "lister/FileBody.h"
#include "lister/FolderBody.h"
#include "lister/ListBody.h"
#include "lister/ListerControl.h"

namespace tarnwell::lister {

struct ListerControl::Parts {
  Parts(ListerControl& control, const ListerServices& services, ListerEvents& events)
      : State(control, services, events) {
    if (IsFileList(control.Id())) {
      Body = std::make_unique<FileBody>(State);
    } else {
      Body = std::make_unique<FolderBody>(State);
    }
  }

  ListState State;
  std::unique_ptr<ListBody> Body;
  int ActiveHeading = 0;
  bool IsActive = false;
  int Shift = 0;  // modifiers of the key that is being handled
  std::string ActiveItemName;
  std::string DropFolder;
  bool DragGraphicsOn = false;
  bool HoverGraphicsOn = false;
};

}  // namespace tarnwell::lister
