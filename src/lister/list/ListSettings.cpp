#include "lister/list/ListSettings.h"

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
    {"ShowColor", &ListSettings::ShowColour},
};

struct NumberProperty {
  std::string_view Name;
  std::int32_t ListSettings::*Number;
};

constexpr NumberProperty NumberProperties[] = {
    {"FileCountMax", &ListSettings::FileCountMax},
    {"BorderWidth", &ListSettings::BorderWidth},
};

}  // namespace

bool ListSettings::Set(std::string_view name, const base::Value& value) {
  for (const ColourProperty& property : ColourProperties) {
    if (property.Name == name) Colours.*property.Colour = base::ToInt32(value);
  }
  for (const NumberProperty& property : NumberProperties) {
    if (property.Name != name) continue;
    this->*property.Number = base::ToInt32(value);
    return true;
  }
  for (const SwitchProperty& property : SwitchProperties) {
    if (property.Name != name) continue;
    this->*property.Switch = base::ToBoolean(value);
    return true;
  }
  return false;
}

}  // namespace tarnwell::lister
