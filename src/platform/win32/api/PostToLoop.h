// From a thread to the event loop.
#pragma once

#include <functional>

namespace tarnwell::platform {

// Has the call made from the loop of messages of the thread that the process began with, in the
// order of the posts, also while a menu or a dialog of the system runs a loop of its own. Callable
// from any thread. A call that the loop does not come to any more is never made.
void PostToLoop(std::function<void()> call);

}  // namespace tarnwell::platform
