// The colours of a skin and the keys under which skin files store them.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "base/Colour.h"

namespace tarnwell::settings {

// The numbers are those of the rows in the skin chooser.
enum SkinColour : std::size_t {
  ColorProgramBackground,
  ColorListBackground,
  ColorListText,
  ColorMainToolbar,
  ColorMinorToolbar,
  ColorActiveListOutline,
  ColorActiveTitle,
  ColorInactiveTitle,
  ColorActiveHeading,
  ColorInactiveHeading,
  ColorDriveList,
  ColorDriveText,
  ColorStatusText,
  ColorActiveItemOutline,
  ColorActiveItemUnderline,
  ColorActiveTitleText,
  ColorActiveHeadingText,
  ColorInactiveTitleText,
  ColorInactiveHeadingText,
  ColorHeadingHoverText,
  ColorPaneBackground,
  ColorStatusBackground,
  ColorCurrentFolderText,
  ColorCommandLineList,
  ColorCommandLineText,
  ColorMainMenu,
  ColorInActiveListOutline,
  ColorTextSecondary,
  SkinColourCount
};

// Keys by number. "ColorInActiveListOutline" is spelled so in every skin file.
inline constexpr std::array<std::string_view, SkinColourCount> SkinColourKeys = {
    "ColorProgramBackground",   "ColorListBackground",    "ColorListText",
    "ColorMainToolbar",         "ColorMinorToolbar",      "ColorActiveListOutline",
    "ColorActiveTitle",         "ColorInactiveTitle",     "ColorActiveHeading",
    "ColorInactiveHeading",     "ColorDriveList",         "ColorDriveText",
    "ColorStatusText",          "ColorActiveItemOutline", "ColorActiveItemUnderline",
    "ColorActiveTitleText",     "ColorActiveHeadingText", "ColorInactiveTitleText",
    "ColorInactiveHeadingText", "ColorHeadingHoverText",  "ColorPaneBackground",
    "ColorStatusBackground",    "ColorCurrentFolderText", "ColorCommandLineList",
    "ColorCommandLineText",     "ColorMainMenu",          "ColorInActiveListOutline",
    "ColorTextSecondary",
};

// Labels by number, as the skin chooser shows them.
inline constexpr std::array<std::string_view, SkinColourCount> SkinColourLabels = {
    "Program Background",    "List Background",     "Main Text",
    "Main Toolbar",          "Minor Toolbars",      "Active List Outline",
    "Active Title",          "Inactive Title",      "Active Heading",
    "Inactive Heading",      "Drive List",          "Drive List Text",
    "Status Text",           "Active Item Outline", "Item Underline",
    "Active Title Text",     "Active Heading Text", "Inactive Title Text",
    "Inactive Heading Text", "Heading Hover Text",  "Pane Background",
    "Status Background",     "Current Folder Text", "Command Line List",
    "Command Line Text",     "Main Menu",           "Inactive List Outline",
    "Secondary Text",
};

// All start at zero: a skin file alone gives them their values.
using SkinColours = std::array<base::Colour, SkinColourCount>;

}  // namespace tarnwell::settings
