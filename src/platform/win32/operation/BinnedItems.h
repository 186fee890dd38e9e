// Items in the system's bin.
#pragma once

#include <string>
#include <vector>

#include "base/Status.h"
#include "platform/FileOperation.h"

namespace tarnwell::platform {

// All of these need a ComThread.

// Whether the item's volume keeps what is deleted: those of sticks and of other machines do not,
// and the user may have switched the bin off.
bool HasBin(const std::string& path);

// An item that has been deleted, as it was: at its full path.
struct BinnedItem {
  std::string Path;
  ItemFingerprint Print;
};

// Where those that are in the bin are by now; `To` is the path of what the bin keeps, as the shell
// has it. Where the shell gives no such path, it is the bin's own name, a separator and the path
// that the item had, and the fingerprint is empty.
std::vector<DoneItem> FindInBin(const std::vector<BinnedItem>& items);

// Puts the item at that `place` back, which can go to its old path alone. The shell asks where that
// is taken.
base::Status RestoreFromBin(const std::string& place, const std::string& target);

}  // namespace tarnwell::platform
