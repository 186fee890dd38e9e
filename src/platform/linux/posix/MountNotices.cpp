#include "platform/linux/posix/MountNotices.h"

#include <fcntl.h>
#include <glib-unix.h>

#include <utility>

#include "platform/GuardedCall.h"
#include "platform/linux/posix/Descriptor.h"

namespace tarnwell::platform {

// GLib's own monitor of mounts would wait for services of the desktop, which may hang.
struct MountNotices::Source {
  static gboolean Report(gint, GIOCondition, gpointer data) {
    // A copy, since the call may end this object.
    const std::function<void()> changed = static_cast<Source*>(data)->Changed;
    GuardedCall(changed);
    return G_SOURCE_CONTINUE;
  }

  std::function<void()> Changed;
  // Tells of each change by being polled (proc_pid_mountinfo(5)).
  Descriptor Table{open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC)};
  guint Watch = Table ? g_unix_fd_add(Table.Get(), G_IO_PRI, &Source::Report, this) : 0;
};

MountNotices::MountNotices(std::function<void()> changed)
    : source_(new Source{std::move(changed)}) {}

MountNotices::~MountNotices() {
  if (source_->Watch != 0) g_source_remove(source_->Watch);
}

}  // namespace tarnwell::platform
