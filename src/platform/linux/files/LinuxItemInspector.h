// Facts of items and their permissions by POSIX calls; types and volumes from GIO.
#pragma once

#include <string>

#include "platform/ItemFacts.h"

namespace tarnwell::platform {

class LinuxItemInspector : public ItemInspector {
 public:
  base::Status ReadFacts(const std::string& path, ItemFacts& facts) const override;
  base::Status ReadVolume(const std::string& path, VolumeFacts& volume) const override;
  void SetPermissions(const std::string& path, const PermissionChange& change, bool inside,
                      const GoOn& goOn, PermissionOutcome& outcome) const override;
};

}  // namespace tarnwell::platform
