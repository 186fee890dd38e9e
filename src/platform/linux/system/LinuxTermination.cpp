#include "platform/linux/system/LinuxTermination.h"

#include <glib-unix.h>

#include <csignal>
#include <utility>

#include "platform/GuardedCall.h"

namespace tarnwell::platform {

// By handlers, since those who are started inherit what is ignored.
void OutliveFailedWrites() {
  for (const int signal : {SIGXFSZ, SIGPIPE}) std::signal(signal, [](int) {});
}

LinuxTermination::LinuxTermination(std::function<void()> quit) : quit_(std::move(quit)) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    sources_.push_back(g_unix_signal_add(
        signal,
        [](gpointer self) -> gboolean {
          GuardedCall(static_cast<LinuxTermination*>(self)->quit_);
          return G_SOURCE_CONTINUE;
        },
        this));
  }
}

LinuxTermination::~LinuxTermination() {
  for (const unsigned source : sources_) g_source_remove(source);
}

}  // namespace tarnwell::platform
