// The switches of the view that a settings file turns, done by the commands of the same name.
#pragma once

namespace tarnwell::settings {

class ViewSwitches {
 public:
  virtual ~ViewSwitches() = default;
  // Colours of items on or off, in the lists, the menu and the toolbar.
  virtual void ShowColor(bool show) = 0;
  // The command line on or off. `noLayout` leaves the arrangement of the form to the caller.
  virtual void ShowCommandLine(bool show, bool noLayout) = 0;
  // The setting and the menu's ticks follow the two comparison buttons.
  virtual void SetCompareMode() = 0;
};

}  // namespace tarnwell::settings
