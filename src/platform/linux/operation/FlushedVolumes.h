// Making sure that what was written has arrived.
#pragma once

#include <vector>

#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/ErrorNumber.h"
#include "platform/linux/posix/ItemIdentity.h"

namespace tarnwell::platform {

// For a move, sees to it that all is on the disk: volumes that can be flushed as a whole are
// flushed once for all files, and on the others, network volumes above all, every file for itself.
// A plain copy only asks those others whether they have taken the file.
class FlushedVolumes {
 public:
  explicit FlushedVolumes(bool toDisk) : toDisk_(toDisk) {}

  // Takes notice of an open file or folder that was written.
  ErrorNumber Take(int item, const struct statx& found);
  // Takes notice of an open folder with all that is about to be written into it. False where each
  // of that has to be taken for itself.
  bool TakeAll(int folder, const struct statx& found);
  // Returns when all that was taken is on the disk.
  ErrorNumber Flush();

 private:
  struct Volume {
    ItemIdentity Device;
    Descriptor Item;  // any on the volume; none where each file is flushed for itself
    bool HasNews = false;
  };

  Volume& Find(int item, const struct statx& found);

  bool toDisk_;
  std::vector<Volume> volumes_;
};

}  // namespace tarnwell::platform
