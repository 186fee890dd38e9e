// Clearing away what killed runs have left.
#pragma once

#include <functional>

namespace tarnwell::platform {

// Deletes the temporary items of the open folder that belong to this user and to a process of this
// machine that is no more. What another machine or another run of the program is writing stays, and
// so does what nobody can be told of. Says nothing, and ends early when `goesOn` gives false.
void SweepTemporaries(int folder, const std::function<bool()>& goesOn);

}  // namespace tarnwell::platform
