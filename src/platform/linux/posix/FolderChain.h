// The folders on the way down a walk, most of them closed when the way is long.
#pragma once

#include <vector>

#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/ItemIdentity.h"

namespace tarnwell::platform {

// Holds the last few folders open, and finds the way back to the others by "..". A folder that was
// moved meanwhile has another parent, to which there is no way back: it is lost then.
class FolderChain {
 public:
  void Enter(Descriptor folder, const ItemIdentity& self);
  // Gives up the last folder and goes back to the one above it.
  void Leave();

  // The last folder; -1 if it was lost.
  int Get() const { return links_.back().Folder.Get(); }
  // The one above it, or -1. Certainly open until a deeper folder has been entered and left.
  int Above() const { return links_[links_.size() - 2].Folder.Get(); }
  const ItemIdentity& Self() const { return links_.back().Self; }
  bool IsEmpty() const { return links_.empty(); }

 private:
  struct Link {
    Descriptor Folder;
    ItemIdentity Self;
  };

  std::vector<Link> links_;
};

}  // namespace tarnwell::platform
