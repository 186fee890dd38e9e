// Whether a volume's inode numbers last.
#pragma once

namespace tarnwell::platform {

// False where the volume makes numbers up and may give an item another one once it has not been in
// use for a while (FAT, exFAT, what runs in user space, some shares): two looks at different times
// cannot be compared by number there. `folder` is an open one.
bool HasLastingNumbers(int folder);

}  // namespace tarnwell::platform
