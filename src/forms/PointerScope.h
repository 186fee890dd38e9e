// Holds the hourglass over the window for the time of a long action, and puts back the pointers.
#pragma once

#include "forms/FormHost.h"
#include "forms/Toolbar.h"

namespace tarnwell::forms {

class PointerScope {
 public:
  PointerScope(FormHost& host, Toolbar& toolbar)
      : host_(host), toolbar_(toolbar), screen_(host.ScreenPointer()), bar_(toolbar.MousePointer) {
    host_.SetScreenPointer(MousePointer::Hourglass);
    toolbar_.MousePointer = MousePointer::Hourglass;
  }
  ~PointerScope() {
    toolbar_.MousePointer = bar_;
    host_.SetScreenPointer(screen_);
  }
  PointerScope(const PointerScope&) = delete;
  PointerScope& operator=(const PointerScope&) = delete;

 private:
  FormHost& host_;
  Toolbar& toolbar_;
  MousePointer screen_;
  MousePointer bar_;
};

}  // namespace tarnwell::forms
