// What unfinished operations have in a folder, and clearing away what killed ones have left.
#pragma once

#include <functional>

namespace tarnwell::platform {

enum class TemporaryState {
  None,    // an item like any other
  Living,  // in use by its owner, as far as anybody can tell
  Left,    // this user's, and its owner, a process of this machine, is no more
};

// By the name of an item of the open folder, and by its owner.
TemporaryState StateOfTemporary(int folder, const char* name);

// Deletes the temporary items of the open folder that were left; whole items that were held go back
// to their places. What another machine or another run of the program is writing stays, and so does
// what nobody can be told of. Says nothing, and ends early when `goesOn` gives false.
void SweepTemporaries(int folder, const std::function<bool()>& goesOn);

}  // namespace tarnwell::platform
