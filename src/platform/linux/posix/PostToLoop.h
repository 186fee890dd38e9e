// From a thread to the event loop.
#pragma once

#include <functional>

namespace tarnwell::platform {

// Has the call made from the default main context of GLib, in the order of the posts; what it
// throws goes to the terminal. Callable from any thread. A call that the loop does not come to any
// more is never made.
void PostToLoop(std::function<void()> call);

}  // namespace tarnwell::platform
