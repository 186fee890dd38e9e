#include "platform/linux/posix/PostToLoop.h"

#include <glib.h>

#include <utility>

#include "platform/GuardedCall.h"

namespace tarnwell::platform {

void PostToLoop(std::function<void()> call) {
  using Call = std::function<void()>;
  g_idle_add_full(
      G_PRIORITY_DEFAULT,
      [](gpointer data) noexcept -> gboolean {
        GuardedCall(*static_cast<Call*>(data));
        return G_SOURCE_REMOVE;
      },
      new Call(std::move(call)), [](gpointer data) { delete static_cast<Call*>(data); });
}

}  // namespace tarnwell::platform
