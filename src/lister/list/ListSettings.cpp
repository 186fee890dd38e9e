#include "lister/list/ListSettings.h"

namespace tarnwell::lister {
namespace {

struct ColourProperty {
  std::string_view Name;
  base::Colour ListColours::*Colour;
};

constexpr ColourProperty ColourProperties[] = {
    {"ColorActiveHeading", &ListColours::ActiveHeading},
    {"ColorActiveHeadingText", &ListColours::ActiveHeadingText},
    {"ColorInactiveHeading", &ListColours::InactiveHeading},
    {"ColorInactiveHeadingText", &ListColours::InactiveHeadingText},
    {"ColorHeadingHoverText", &ListColours::HeadingHoverText},
    {"ColorProgramBackground", &ListColours::ProgramBackground},
    {"ColorPaneBackground", &ListColours::PaneBackground},
    {"ColorDriveList", &ListColours::DriveList},
    {"ColorDriveText", &ListColours::DriveText},
    {"ColorStatusBackground", &ListColours::StatusBackground},
    {"ColorStatusText", &ListColours::StatusText},
    {"ColorMinorToolbar", &ListColours::MinorToolbar},
    {"ColorListBackground", &ListColours::ListBackground},
    {"ColorListText", &ListColours::ListText},
    {"ColorActiveListOutline", &ListColours::ActiveListOutline},
    {"ColorInActiveListOutline", &ListColours::InActiveListOutline},
    {"ColorActiveItemOutline", &ListColours::ActiveItemOutline},
    {"ColorActiveItemUnderline", &ListColours::ActiveItemUnderline},
    {"ColorTextSecondary", &ListColours::TextSecondary},
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
