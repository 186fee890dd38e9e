// The main window's way into the notification area, where it is hidden, and back.
#pragma once

#include <functional>

#include "platform/Tray.h"
#include "workspace/Workspace.h"

namespace tarnwell::workspace {

class SystemTray {
 public:
  // `exit` is what the menu's other entry does.
  SystemTray(Workspace& workspace, platform::Tray& icon, std::function<void()> exit)
      : workspace_(workspace), icon_(icon), exit_(std::move(exit)) {}

  // Puts the form into the notification area when it is minimised, unless the setting keeps it on
  // the task bar, and takes it out when it is minimised no more. Changes nothing else.
  void FollowForm();
  // Hides the form behind an icon, whatever the setting says. Without a notification area it stays
  // on the task bar.
  void AddToSysTray();
  // Shows the form as it was before it was minimised, in front of all windows.
  void RestoreWindow();

  // The icon alone. False where there is no place for one.
  bool ShellTrayAdd();
  void ShellTrayRemove() { icon_.Remove(); }

 private:
  void Leave();

  Workspace& workspace_;
  platform::Tray& icon_;
  std::function<void()> exit_;
};

}  // namespace tarnwell::workspace
