// One record of a settings or skin file.
#pragma once

#include <array>
#include <string>

#include "base/Value.h"

namespace tarnwell::settings {

struct SettingRecord {
  std::string Key;
  // F1 to F5. A value that holds nothing stands for a field that is empty or was not read.
  std::array<base::Value, 5> Fields;
};

}  // namespace tarnwell::settings
