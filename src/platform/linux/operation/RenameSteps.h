// The steps of renames that count as one.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/linux/files/AsideRecord.h"
#include "platform/linux/files/ProtectedItems.h"
#include "platform/linux/operation/OperationContext.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/VolumeTraits.h"
#include "platform/operation/RenameTogether.h"

namespace tarnwell::platform {

class RenameSteps : public RenameSystem {
 public:
  RenameSteps(OperationContext& context, ProtectedItems& protectedItems, const AsideRecord& record)
      : context_(context), protected_(protectedItems), record_(record) {}

  TakenStep Take(const PlacedItem& step, const ItemFingerprint* expected) override;
  bool GiveBack(const PlacedItem& step) override;
  void Keep(const std::vector<PlacedItem>& steps) override { record_.Keep(steps); }
  void Drop(const std::vector<PlacedItem>& steps) override { record_.Drop(steps); }
  void TellOfOther(const std::string& path, bool isGone) override;

 private:
  struct Place {
    Descriptor Folder;
    std::string Path;
    VolumeTraits Traits;
  };
  ErrorNumber OpenFolderOf(const std::string& path);

  OperationContext& context_;
  ProtectedItems& protected_;
  const AsideRecord& record_;
  std::unique_ptr<Place> place_;
};

}  // namespace tarnwell::platform
