// Holds the hourglass over the window for the time of a long action, and puts back the pointers.
#pragma once

#include <utility>

#include "forms/FormHost.h"
#include "forms/Toolbar.h"

namespace tarnwell::forms {

class PointerScope {
 public:
  // The pointer of the toolbar, if one is given, goes with that of the screen.
  explicit PointerScope(FormHost& host, Toolbar* toolbar = nullptr)
      : host_(host), toolbar_(toolbar), screen_(host.ScreenPointer()) {
    host_.SetScreenPointer(MousePointer::Hourglass);
    if (toolbar_) bar_ = std::exchange(toolbar_->MousePointer, MousePointer::Hourglass);
  }
  ~PointerScope() {
    if (toolbar_) toolbar_->MousePointer = bar_;
    host_.SetScreenPointer(screen_);
  }
  PointerScope(const PointerScope&) = delete;
  PointerScope& operator=(const PointerScope&) = delete;

 private:
  FormHost& host_;
  Toolbar* toolbar_;
  MousePointer screen_;
  MousePointer bar_ = MousePointer::Default;
};

}  // namespace tarnwell::forms
