// The settings that come to a list by name, one by one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/Value.h"
#include "lister/list/ListColours.h"

namespace tarnwell::lister {

struct ListSettings {
  ListColours Colours;
  bool ShowFileIcons = true;     // files look as their types do, or all the same
  bool ShowFolderIcons = false;  // folders with an icon of their own show it
  bool ShowColour = false;
  std::int32_t FileCountMax = 50;  // over this many files in a folder no colours are shown
  std::int32_t BorderWidth = 1;    // pixels round the list

  // True if the list looks different at once; colours wait for ReloadColors. A name that is not
  // known does nothing; a value of the wrong type throws base::ConversionError.
  bool Set(std::string_view name, const base::Value& value);
};

}  // namespace tarnwell::lister
