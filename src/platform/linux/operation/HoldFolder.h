// A place for the last look at an item before it is deleted.
#pragma once

#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/ErrorNumber.h"
#include "platform/linux/posix/TemporaryName.h"

namespace tarnwell::platform {

// No call deletes an item only if it still is the one that was looked at. So the item goes to a
// private folder beside it, where nobody puts another one under its name, and is looked at and
// deleted there. The folder is gone with this object; one that a killed run has left is emptied by
// SweepTemporaries.
class HoldFolder {
 public:
  // Of the open folder.
  explicit HoldFolder(int folder);
  HoldFolder(const HoldFolder&) = delete;
  HoldFolder& operator=(const HoldFolder&) = delete;
  ~HoldFolder();

  // -1 if there is none: the volume may be full.
  int Get() const { return held_.Get(); }
  // Takes the item in under its own name.
  ErrorNumber Take(const char* name) const;

 private:
  Descriptor folder_;
  TemporaryName name_;
  Descriptor held_;
};

// Gives an item of the open folder `from` its name in the folder `to` back, or the name of a twin
// if somebody has taken that meanwhile.
ErrorNumber PutBack(int from, const char* name, int to);

}  // namespace tarnwell::platform
