#include "workspace/EnhancedMode.h"

namespace tarnwell::workspace {

void SwitchMode(Workspace& workspace, bool flag, bool noRefresh) {
  forms::ToolbarButton& button = workspace.Form.Toolbar1["useenhancedmode"];
  bool& checked = workspace.Form.Menus["mnuUseEnhancedMode"].Checked;
  if (flag) {
    button.Pressed = checked;
  } else {
    checked = button.Pressed;
  }
  workspace.Form.Touch();
  const bool on = checked;
  workspace.ForEachList([&](lister::ListerControl& list) {
    if (workspace.IsOpen(list.Id())) list.SetEnhancedMode(on);
  });
  if (noRefresh) return;
  workspace.ForEachList([&](lister::ListerControl& list) {
    if (workspace.IsOpen(list.Id())) list.RefreshList();
  });
}

void DoSwitchModes() {}

void ActivateMode() {}

}  // namespace tarnwell::workspace
