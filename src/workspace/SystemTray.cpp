#include "workspace/SystemTray.h"

namespace tarnwell::workspace {

using forms::WindowState;

void SystemTray::FollowForm() {
  const MainForm& form = workspace_.Form;
  const bool isMinimised = form.State == WindowState::Minimised;
  if (!isMinimised && form.InTray) Leave();
  if (isMinimised && !form.InTray && !workspace_.Settings.MinimizeToTaskBar) AddToSysTray();
}

void SystemTray::AddToSysTray() {
  if (!ShellTrayAdd()) return;
  MainForm& form = workspace_.Form;
  form.InTray = true;
  form.MenuImages.Detach();
  form.Touch();
}

bool SystemTray::ShellTrayAdd() {
  const forms::Menu& menus = workspace_.Form.Menus;
  return icon_.Add({.Tip = workspace_.Form.Caption,
                    .Restore = menus["mPopRestore"].Caption,
                    .Exit = menus["mPopExit"].Caption},
                   {.Restore = [this] { RestoreWindow(); },
                    .Exit = exit_,
                    // The form is still minimised, and comes back to the task bar so.
                    .Gone = [this] { Leave(); }});
}

void SystemTray::Leave() {
  MainForm& form = workspace_.Form;
  form.InTray = false;
  ShellTrayRemove();
  form.MenuImages.Attach();
  form.Touch();
}

void SystemTray::RestoreWindow() {
  MainForm& form = workspace_.Form;
  const bool wasMaximised = form.LastWindowState == WindowState::Maximised;
  form.State = wasMaximised ? WindowState::Maximised : WindowState::Normal;
  FollowForm();
  form.Refresh();
}

}  // namespace tarnwell::workspace
