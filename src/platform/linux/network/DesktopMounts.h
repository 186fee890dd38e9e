// What programs of the desktop have mounted beside the system's own table: places on the network,
// cameras, phones. They all lie below one mount of the table, which cannot tell them.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarnwell::platform {

struct DesktopMount {
  std::string Name;     // for people
  std::string Address;  // of its top, "sftp://ann@host/"; holds no password
  std::string Path;     // local folder of its top; empty where no program shows one
};

// To be used on the thread of the default main context alone.
class DesktopMounts {
 public:
  using Changed = std::function<void()>;

  DesktopMounts();
  ~DesktopMounts();
  DesktopMounts(const DesktopMounts&) = delete;
  DesktopMounts& operator=(const DesktopMounts&) = delete;

  // Calls `changed` from the main context when the desktop has answered, when something was mounted
  // and when something went, while what it gives lives. The first call asks the desktop, which
  // starts services that may hang: a thread waits for them.
  std::shared_ptr<void> Listen(Changed changed);
  // False until the desktop has answered.
  bool IsReady() const;
  // Empty until then.
  std::vector<DesktopMount> List() const;
  // GIO's object for the mount of that address, a GMount; null if there is none.
  std::shared_ptr<void> Find(const std::string& address) const;

 private:
  struct State;
  struct Answer;
  std::shared_ptr<State> state_;
};

}  // namespace tarnwell::platform
