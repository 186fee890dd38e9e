// What the task bar and the notification area show of the program outside its windows.
#pragma once

#include <memory>
#include <string>

#include "platform/DesktopNotices.h"
#include "platform/OwnerWindow.h"

namespace tarnwell::platform {

// To be used by the thread with the loop of messages, where COM is there. What the task bar shows
// belongs to the main window's button: a button that is made anew has it from the next call on. A
// notification comes with an icon in the notification area, which goes with it; a newer one takes
// the place of an older. It goes as well when this ends.
class WindowsDesktopNotices : public DesktopNotices {
 public:
  explicit WindowsDesktopNotices(OwnerWindow owner);
  ~WindowsDesktopNotices() override;

  void ShowTaskEntry(const TaskEntry& entry) override;
  void Notify(const Notification& notification) override;

 private:
  class Button;
  class Balloon;
  const OwnerWindow owner_;
  const std::unique_ptr<Button> button_;
  std::unique_ptr<Balloon> balloon_;
};

}  // namespace tarnwell::platform
