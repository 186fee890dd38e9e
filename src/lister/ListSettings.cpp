#include "lister/ListSettings.h"

namespace tarnwell::lister {
namespace {

struct ColourProperty {
  std::string_view Name;
  base::Colour ListerColours::*Colour;
};

constexpr ColourProperty ColourProperties[] = {
    {"ColorActiveHeading", &ListerColours::ActiveHeading},
    {"ColorActiveHeadingText", &ListerColours::ActiveHeadingText},
    {"ColorInactiveHeading", &ListerColours::InactiveHeading},
    {"ColorInactiveHeadingText", &ListerColours::InactiveHeadingText},
    {"ColorHeadingHoverText", &ListerColours::HeadingHoverText},
    {"ColorProgramBackground", &ListerColours::ProgramBackground},
    {"ColorPaneBackground", &ListerColours::PaneBackground},
    {"ColorDriveList", &ListerColours::DriveList},
    {"ColorDriveText", &ListerColours::DriveText},
    {"ColorStatusBackground", &ListerColours::StatusBackground},
    {"ColorStatusText", &ListerColours::StatusText},
    {"ColorMinorToolbar", &ListerColours::MinorToolbar},
    {"ColorListBackground", &ListerColours::ListBackground},
    {"ColorListText", &ListerColours::ListText},
    {"ColorActiveListOutline", &ListerColours::ActiveListOutline},
    {"ColorInActiveListOutline", &ListerColours::InActiveListOutline},
    {"ColorActiveItemOutline", &ListerColours::ActiveItemOutline},
    {"ColorActiveItemUnderline", &ListerColours::ActiveItemUnderline},
    {"ColorTextSecondary", &ListerColours::TextSecondary},
};

struct SwitchProperty {
  std::string_view Name;
  bool ListSettings::*Switch;
};

constexpr SwitchProperty SwitchProperties[] = {
    {"ShowFileIcons", &ListSettings::ShowFileIcons},
    {"ShowFolderIcons", &ListSettings::ShowFolderIcons},
};

// Settings of colour coding, of text typed to find an item and of a border, none of which the list
// has. They are checked, so that a slip in a caller shows, and not kept.
struct UnusedProperty {
  std::string_view Name;
  void (*Check)(const base::Value&);
};

constexpr UnusedProperty UnusedProperties[] = {
    {"FileCountMax", [](const base::Value& value) { base::ToInt32(value); }},
    {"ActiveButton", [](const base::Value& value) { base::ToInt32(value); }},
    {"BorderWidth", [](const base::Value& value) { base::ToInt32(value); }},
    {"ShowColor", [](const base::Value& value) { base::ToBoolean(value); }},
    {"ActiveString", [](const base::Value& value) { base::ToText(value); }},
};

}  // namespace

bool ListSettings::Set(std::string_view name, const base::Value& value) {
  for (const ColourProperty& property : ColourProperties) {
    if (property.Name == name) Colours.*property.Colour = base::ToInt32(value);
  }
  for (const UnusedProperty& property : UnusedProperties) {
    if (property.Name == name) property.Check(value);
  }
  for (const SwitchProperty& property : SwitchProperties) {
    if (property.Name != name) continue;
    this->*property.Switch = base::ToBoolean(value);
    return true;
  }
  return false;
}

}  // namespace tarnwell::lister
