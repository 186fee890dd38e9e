#include "commands/MenuTable.h"

#include <array>

namespace tarnwell::commands {
namespace {

using forms::MenuRow;
using forms::Tick;

// Level, name, caption; then the check mark and whether it is seen.
constexpr std::array Menus = {
    MenuRow{1, "mnuFile", "&File"},
    MenuRow{2, "mnuOptions", "&Options..."},
    MenuRow{2, "sep12312", "-"},
    MenuRow{2, "mnuExit", "E&xit"},
    MenuRow{1, "mnuPane", "&Panes"},
    MenuRow{2, "mnuPane0", "Show Pane &1", Tick::Off},
    MenuRow{2, "mnuPane1", "Show Pane &2", Tick::Off},
    MenuRow{2, "mnuPane2", "Show Pane &3", Tick::Off},
    MenuRow{2, "mnuPane3", "Show Pane &4", Tick::Off},
    MenuRow{2, "mnuPane4", "Show Pane &5", Tick::Off},
    MenuRow{2, "mnuSep123", "-"},
    MenuRow{2, "mnuHidden", "Show &Hidden Files", Tick::Off},
    MenuRow{2, "mnuSystem", "Show &System Files", Tick::Off},
    MenuRow{1, "mnuHeadings", "&Headings"},
    MenuRow{2, "mnuHeadLeft", "Move &Left"},
    MenuRow{2, "mnuHeadRight", "Move &Right"},
    MenuRow{2, "sep02", "-"},
    MenuRow{2, "mnuSortAsc", "Sort &Ascending - Start New Sort"},
    MenuRow{2, "mnuSortDes", "Sort &Descending - Start New Sort"},
    MenuRow{2, "mnuSortAscAdd", "Sort Asc - Add to Current Sort"},
    MenuRow{2, "mnuSortAddDes", "Sort Des - Add to Current Sort"},
    MenuRow{2, "sep01", "-"},
    MenuRow{2, "mnuHeadingExtension", "&Extension", Tick::On},
    MenuRow{2, "mnuHeadingSize", "Si&ze", Tick::On},
    MenuRow{2, "mnuHeadingDateLastModified", "Date - Last Modi&fied", Tick::On},
    MenuRow{2, "mnuHeadingDateCreated", "Date - &Created", Tick::Off},
    MenuRow{2, "mnuHeadingDateLastAccessed", "Date Last - Acce&ssed", Tick::Off},
    MenuRow{2, "mnuHeadingFileType", "File &Type", Tick::Off},
    MenuRow{2, "mnuHeadingAttributes", "Attrib&utes", Tick::Off},
    MenuRow{2, "mnuHeadingComments", "Co&mments", Tick::Off},
    MenuRow{1, "mnuMenus", "&Tools"},
    MenuRow{2, "mnuFindFiles", "&Find Files..."},
    MenuRow{2, "sepFind", "-"},
    MenuRow{2, "mnuCalculateFolderSizes", "&Calculate Folder Sizes"},
    MenuRow{2, "sep0123", "-"},
    MenuRow{2, "mnuCompareSize", "Use Si&ze when Comparing", Tick::Off},
    MenuRow{2, "mnuCompareDate", "Use &Date when Comparing", Tick::Off},
    MenuRow{2, "mnuCompare", "Com&pare Folder Contents"},
    MenuRow{2, "sep1234", "-"},
    MenuRow{2, "mnuSaveFileListing", "E&xport File Listing..."},
    MenuRow{2, "sep034", "-"},
    MenuRow{2, "mnuRCOpenRecycleBin", "&Recycle Bin..."},
    MenuRow{2, "mnuRCEmptyRecycleBin", "&Empty Recycle Bin"},
    MenuRow{2, "mnuSep234", "-"},
    MenuRow{2, "mnuMapNetworkDrive", "&Map Network Drive..."},
    MenuRow{2, "mnuDisconnectNetworkDrive", "Disconnect &Network Drive..."},
    MenuRow{2, "sep34534", "-"},
    MenuRow{2, "mnuShowTips", "Sho&w Tips..."},
    MenuRow{1, "mnuLayout", "&Layout"},
    MenuRow{2, "mnuOrientation", "&Orientation"},
    MenuRow{3, "mnuVertical", "&Vertical"},
    MenuRow{3, "mnuHorizontal", "&Horizontal"},
    MenuRow{2, "mnuAutoExpand", "&Auto Expand Pane Size", Tick::None, false},
    MenuRow{3, "mnuAutoExpandOn", "&On", Tick::Off},
    MenuRow{3, "mnuAutoExpandOff", "O&ff", Tick::Off},
    MenuRow{2, "mnuShowCommandLine", "Command &Line"},
    MenuRow{3, "mnuCommandOn", "&On", Tick::Off},
    MenuRow{3, "mnuCommandOff", "O&ff", Tick::Off},
    MenuRow{2, "mnuUseEnhancedMode", "&Color Coding && Comments"},
    MenuRow{3, "mnuColorOn", "&On", Tick::Off},
    MenuRow{3, "mnuColorOff", "O&ff", Tick::Off},
    MenuRow{2, "mnuChooseSkin", "Choose &Skin..."},
    MenuRow{1, "mnuSoftware", "&Software"},
    MenuRow{2, "mnuHelp", "&Help..."},
    MenuRow{2, "mnuWebsite", "Tarnwell &Website..."},
    MenuRow{2, "mnuAbout", "&About Tarnwell..."},
    MenuRow{2, "mnuSep023", "-"},
    MenuRow{2, "mnuCheckUpdate", "Check for &Update..."},
    MenuRow{1, "mPopupSys", "&SysTray", Tick::None, false},
    MenuRow{2, "mPopRestore", "&Restore"},
    MenuRow{2, "mPopExit", "&Exit"},
};

// "Auto Expand Pane Size" names no entry of today's menu: its submenu is not seen.
constexpr std::array MenuImages = {
    MenuImageRow{"headleft2", "Move &Left"},
    MenuImageRow{"headright2", "Move &Right"},
    MenuImageRow{"headasc1", "Sort &Ascending - Start New Sort"},
    MenuImageRow{"headdes1", "Sort &Descending - Start New Sort"},
    MenuImageRow{"headascadd1", "Sort Asc - Add to Current Sort"},
    MenuImageRow{"headdesadd1", "Sort Des - Add to Current Sort"},
    MenuImageRow{"findfiles", "&Find Files..."},
    MenuImageRow{"calculate", "&Calculate Folder Sizes"},
    MenuImageRow{"choosecolors", "Choose &Skin..."},
    MenuImageRow{"layoutvertical", "&Vertical"},
    MenuImageRow{"layouthorizontal", "&Horizontal"},
    MenuImageRow{"layoutautoexpand", "Auto Expand Pane Size"},
    MenuImageRow{"commandline", "Command &Line"},
    MenuImageRow{"recyclebin", "&Recycle Bin..."},
    MenuImageRow{"recycleempty2", "&Empty Recycle Bin"},
    MenuImageRow{"tw1", "Tarnwell &Website..."},
    MenuImageRow{"about4", "&Help..."},
    MenuImageRow{"exit", "E&xit"},
    MenuImageRow{"compare", "Com&pare Folder Contents"},
    MenuImageRow{"colorcode", "&Color Coding && Comments"},
    MenuImageRow{"options", "&Options..."},
};

}  // namespace

std::span<const forms::MenuRow> MenuTable() {
  return Menus;
}

std::span<const MenuImageRow> MenuImageTable() {
  return MenuImages;
}

}  // namespace tarnwell::commands
