#include "commands/Switches.h"

namespace tarnwell::commands {

bool Switches::Turn(std::string_view onEntry, std::string_view offEntry, std::string_view button,
                    bool on) {
  forms::Menu& menus = workspace_.Form.Menus;
  if (on && menus[onEntry].Checked) return false;
  if (!on && menus[offEntry].Checked) return false;
  workspace_.Form.Toolbar1[button].Pressed = on;
  menus[onEntry].Checked = on;
  menus[offEntry].Checked = !on;
  workspace_.Form.Touch();
  return true;
}

void Switches::ShowColor(bool show) {
  workspace_.Settings.ShowColor = show;
  send_("ShowColor", show);
  Turn("mnuColorOn", "mnuColorOff", "showcolor", show);
}

void Switches::ShowCommandLine(bool show, bool noLayout) {
  if (!Turn("mnuCommandOn", "mnuCommandOff", "showcommandline", show)) return;
  if (noLayout) return;
  workspace_.CommandLineChanged = true;
  layout_.ResizeForm(true);
}

void Switches::SetCompareMode() {
  const forms::Toolbar& toolbar = workspace_.Form.Toolbar1;
  const bool size = toolbar["compare_size"].Pressed;
  const bool date = toolbar["compare_date"].Pressed;
  workspace_.Settings.CompareMode = (size ? workspace::CompareSize : workspace::CompareNothing) |
                                    (date ? workspace::CompareDate : workspace::CompareNothing);
  workspace_.Form.Menus["mnuCompareSize"].Checked = size;
  workspace_.Form.Menus["mnuCompareDate"].Checked = date;
  workspace_.Form.Touch();
}

void Switches::ToggleCompare(std::string_view entry, std::string_view button) {
  bool& checked = workspace_.Form.Menus[entry].Checked;
  checked = !checked;
  workspace_.Form.Toolbar1[button].Pressed = checked;
  SetCompareMode();
}

}  // namespace tarnwell::commands
