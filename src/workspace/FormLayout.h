// Places the controls of the main form and shows what is open.
#pragma once

#include "workspace/Workspace.h"

namespace tarnwell::workspace {

class FormLayout {
 public:
  explicit FormLayout(Workspace& workspace) : workspace_(workspace) {}

  // The one entry for every rearrangement. With `force` false, nothing moves unless the form's size
  // or the layout has changed.
  void ResizeForm(bool force);

  // Gives the active pane the most of the room, the others equal shares of the rest, and
  // rearranges.
  void DoAutoExpand();
  // Switches that on or off; both the menu entries and the toolbar button follow.
  void SwitchAutoExpand(bool turnOn);

 private:
  void PlaceControls();

  Workspace& workspace_;
  base::Twips lastWidth_ = -1;
  base::Twips lastHeight_ = -1;
  std::int32_t lastLayout_ = -1;
};

}  // namespace tarnwell::workspace
