// Whether a volume has to move anything to reach what lies elsewhere on it.
#pragma once

namespace tarnwell::platform {

// Of the volume that the open folder is on: true for one of this machine that lies in memory, or on
// a disk that does not turn, so that several threads at once get more done there. False where that
// cannot be learnt.
bool IsSeekFree(int folder);

}  // namespace tarnwell::platform
