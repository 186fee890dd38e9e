#include "platform/linux/posix/MountNotices.h"

#include <gio/gunixmounts.h>

#include <utility>

#include "platform/linux/posix/GioObject.h"
#include "platform/linux/posix/GuardedCall.h"

namespace tarnwell::platform {

struct MountNotices::Source {
  static void Report(GUnixMountMonitor*, gpointer data) {
    // A copy, since the call may end this object.
    const std::function<void()> changed = static_cast<Source*>(data)->Changed;
    GuardedCall(changed);
  }

  std::function<void()> Changed;
  GioObject<GUnixMountMonitor> Monitor{g_unix_mount_monitor_get()};
  gulong Signal =
      g_signal_connect(Monitor.get(), "mounts-changed", G_CALLBACK(&Source::Report), this);
};

MountNotices::MountNotices(std::function<void()> changed)
    : source_(new Source{std::move(changed)}) {}

MountNotices::~MountNotices() {
  g_signal_handler_disconnect(source_->Monitor.get(), source_->Signal);
}

}  // namespace tarnwell::platform
