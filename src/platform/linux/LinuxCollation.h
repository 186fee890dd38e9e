// The order of letters by the locale of the process.
#pragma once

#include "platform/Collation.h"

namespace tarnwell::platform {

class LinuxCollation : public Collation {
 public:
  void AppendWeights(std::string_view text, std::string& key) const override;
};

}  // namespace tarnwell::platform
