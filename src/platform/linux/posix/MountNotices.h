// Notices of volumes that are mounted and unmounted.
#pragma once

#include <functional>
#include <memory>

namespace tarnwell::platform {

// While it lives, `changed` is called from the default main context of GLib after the table of
// mounts changed. The call may end this object.
class MountNotices {
 public:
  explicit MountNotices(std::function<void()> changed);
  MountNotices(const MountNotices&) = delete;
  MountNotices& operator=(const MountNotices&) = delete;
  ~MountNotices();

 private:
  struct Source;
  std::unique_ptr<Source> source_;
};

}  // namespace tarnwell::platform
