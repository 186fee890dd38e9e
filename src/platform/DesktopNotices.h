// Port: what the desktop shows of the program outside its windows.
//
// A desktop that has nothing of the kind shows nothing, and nobody is told.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tarnwell::platform {

// On the program's entry in the task bar or dock.
struct TaskEntry {
  std::optional<int> Percent;  // 0 to 100; no bar without it
  bool IsUrgent = false;       // something waits for the user
  bool operator==(const TaskEntry&) const = default;
};

struct Notification {
  std::string Title;  // may hold any name; shown without control characters
  std::string Text;   // a sentence of the program's own, without "<" and "&"
  bool IsTrouble = false;
  std::function<void()> Clicked;  // by the user, from the event loop; not after the end of the port
};

// None of the calls waits.
class DesktopNotices {
 public:
  virtual ~DesktopNotices() = default;
  // Holds until the next call; an empty one at the start.
  virtual void ShowTaskEntry(const TaskEntry& entry) = 0;
  virtual void Notify(const Notification& notification) = 0;
};

}  // namespace tarnwell::platform
