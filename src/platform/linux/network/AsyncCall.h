// Answers of GIO's asynchronous calls, for an owner that may have gone by then.
#pragma once

#include <gio/gio.h>

#include <memory>

#include "platform/GuardedCall.h"

namespace tarnwell::platform {

// The last two arguments of a call are `&AsyncCall<Owner>::Done` and what For gives. An owner that
// has gone is told nothing; one that is told lives until it returns.
template <typename Owner>
class AsyncCall {
 public:
  using Take = void (Owner::*)(GObject* source, GAsyncResult* result);

  static gpointer For(const std::shared_ptr<Owner>& owner, Take take) {
    return new AsyncCall{owner, take};
  }
  static void Done(GObject* source, GAsyncResult* result, gpointer data) {
    const std::unique_ptr<AsyncCall> call(static_cast<AsyncCall*>(data));
    const std::shared_ptr<Owner> owner = call->owner_.lock();
    if (owner) GuardedCall([&] { ((*owner).*(call->take_))(source, result); });
  }

 private:
  AsyncCall(const std::shared_ptr<Owner>& owner, Take take) : owner_(owner), take_(take) {}

  std::weak_ptr<Owner> owner_;
  Take take_;
};

}  // namespace tarnwell::platform
