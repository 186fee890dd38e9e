// Renames of several items that count as one.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/FileOperation.h"
#include "platform/linux/files/AsideRecord.h"
#include "platform/linux/files/ProtectedItems.h"
#include "platform/linux/operation/OperationContext.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/VolumeTraits.h"

namespace tarnwell::platform {

// Takes the steps in their order, all of them or none: after a cancel, or where one fails, those
// taken go back in the other order. Then the user hears of the item and the reason, and may have it
// tried again. What cannot go back, since others were at it, keeps the new name, and is told of;
// nothing is tried again then. Replaces nothing.
class RenameTogether {
 public:
  RenameTogether(OperationContext& context, ProtectedItems& protectedItems,
                 const AsideRecord& record)
      : context_(context), protected_(protectedItems), record_(record) {}

  // Full paths, each as it is when the step's turn comes. `expected` has one for each step, or
  // none; what has been written to an item meanwhile makes it no other. Those that are gone, or
  // others by now, are left, and told of; all the rest counts as one.
  void Run(std::vector<PlacedItem> steps, const std::vector<ItemFingerprint>& expected);

 private:
  struct Place {
    Descriptor Folder;
    std::string Path;
    VolumeTraits Traits;
  };

  // False once a step has failed, which is `done_` then, or after a cancel.
  bool GoAhead(base::Status& failure);
  base::Status Take(std::size_t at);
  // False if something keeps its new name.
  bool GoBack();
  ErrorNumber OpenFolderOf(const std::string& path);
  base::Status ReasonOf(const base::Status& failure) const;
  void Note();

  OperationContext& context_;
  ProtectedItems& protected_;
  const AsideRecord& record_;
  std::vector<PlacedItem> steps_;
  std::vector<PlacedItem> wholes_;  // the same, without names for the time between
  const std::vector<ItemFingerprint>* expected_ = nullptr;
  std::vector<ItemFingerprint> prints_;  // of the items, after their steps
  std::vector<bool> stands_;             // by step
  std::vector<ErrorNumber> left_;        // by step: why it is left
  std::size_t done_ = 0;
  std::unique_ptr<Place> place_;
};

}  // namespace tarnwell::platform
