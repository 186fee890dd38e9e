// What volumes of some kinds cannot do.
#pragma once

namespace tarnwell::platform {

struct VolumeTraits {
  // False where the volume makes inode numbers up and may give an item another one once it has not
  // been in use for a while: two looks at different times cannot be compared by number there.
  bool HasLastingNumbers = true;
  // False where an item counts as newly made once it is changed or renamed.
  bool HasLastingBirth = true;
  // False where times are rounded down, to full two seconds at worst.
  bool HasFineTimes = true;
  // False where some characters may stand in no name.
  bool TakesAnyName = true;
};

// Of the volume that the open folder is on. One of which nothing can be learnt is taken for one
// that can do all.
VolumeTraits TraitsOf(int folder);

}  // namespace tarnwell::platform
