// The one dispatcher that gives a record of a settings or skin file its effect.
#pragma once

#include "settings/SettingRecord.h"
#include "settings/SkinColours.h"
#include "settings/ViewSwitches.h"
#include "workspace/FormLayout.h"
#include "workspace/Workspace.h"

namespace tarnwell::settings {

// Records for the whole program; the scopes 0 to 4 are those of the panes.
inline constexpr int GlobalScope = -1;

// What records act on.
struct SettingTargets {
  workspace::Workspace& Space;
  workspace::FormLayout& Layout;
  SkinColours& Colours;
  ViewSwitches& Switches;
};

// With GlobalScope, the keys of the program act; with the scope of a pane, only those keys that
// speak of that pane's lists. Keys are compared without regard to case; an unknown one does
// nothing. Throws base::ConversionError or std::out_of_range at the first field that cannot be read
// or names nothing: the fields before it have taken effect, those behind it have not.
void ApplySetting(const SettingTargets& targets, const SettingRecord& record, int scope);

// Whether a key, in capitals, speaks of the lists of a pane.
bool IsPaneKey(std::string_view upperKey);

}  // namespace tarnwell::settings
