// What the desktop shows of the program outside its windows, by the session bus.
#pragma once

#include <memory>
#include <string>

#include "platform/DesktopNotices.h"

namespace tarnwell::platform {

// A call that the bus is not there for yet is made when it is; where there is none, never.
class LinuxDesktopNotices : public DesktopNotices {
 public:
  // `program` is the name of the desktop entry, without ".desktop".
  explicit LinuxDesktopNotices(std::string program);
  // Sees to it that what was told last still reaches the desktop.
  ~LinuxDesktopNotices() override;

  void ShowTaskEntry(const TaskEntry& entry) override;
  void Notify(const Notification& notification) override;

 private:
  class Sender;
  std::shared_ptr<Sender> sender_;
};

}  // namespace tarnwell::platform
