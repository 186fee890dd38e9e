#include "platform/linux/LinuxCollation.h"

namespace tarnwell::platform {

void LinuxCollation::AppendWeights(std::string_view text, std::string& key) const {
  key += text;
}

}  // namespace tarnwell::platform
