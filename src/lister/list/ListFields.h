// The plain fields of a list that its work goes by, open to the form and the widget.
#pragma once

#include "lister/rows/ListerView.h"

namespace tarnwell::lister {

struct ListFields {
  ListerView* View = nullptr;  // the list's widget; null while it has none
  bool ShowHidden = false;     // takes effect at the next RefreshList or load
  bool ShowSystem = false;
  bool CancelRequested = false;  // stops the job that runs; the list itself sets it back
  bool MouseLocked = false;      // nothing is started by the mouse
};

}  // namespace tarnwell::lister
