#include "commands/Commands.h"

#include <algorithm>
#include <array>
#include <exception>

namespace tarnwell::commands {
namespace {

using Parts = const CommandParts&;

struct CommandRow {
  std::string_view Name;
  void (*Run)(Parts);
};

bool IsPressed(Parts parts, std::string_view button) {
  return parts.Space.Form.Toolbar1[button].Pressed;
}

template <int Pane>
void ChangePane(Parts parts) {
  parts.Panes.ChangePanes(Pane);
}

constexpr auto MenuCommands = std::to_array<CommandRow>({
    {"mnuOptions", [](Parts parts) { parts.Program.ShowOptions(); }},
    {"mnuExit", [](Parts parts) { parts.Program.Exit(); }},
    {"mnuPane0", ChangePane<0>},
    {"mnuPane1", ChangePane<1>},
    {"mnuPane2", ChangePane<2>},
    {"mnuPane3", ChangePane<3>},
    {"mnuPane4", ChangePane<4>},
    {"mnuHidden", [](Parts parts) { parts.Lists.HiddenShowHide(); }},
    {"mnuSystem", [](Parts parts) { parts.Lists.SystemShowHide(); }},
    {"mnuHeadLeft", [](Parts parts) { parts.Lists.MoveHeading("headleft"); }},
    {"mnuHeadRight", [](Parts parts) { parts.Lists.MoveHeading("headright"); }},
    {"mnuSortAsc", [](Parts parts) { parts.Lists.Sort("asc"); }},
    {"mnuSortDes", [](Parts parts) { parts.Lists.Sort("des"); }},
    {"mnuSortAscAdd", [](Parts parts) { parts.Lists.Sort("ascadd"); }},
    {"mnuSortAddDes", [](Parts parts) { parts.Lists.Sort("desadd"); }},
    {"mnuFindFiles", [](Parts parts) { parts.Program.FindFiles(); }},
    {"mnuCalculateFolderSizes", [](Parts parts) { parts.Lists.CalculateFolderSizes(); }},
    {"mnuCompareSize",
     [](Parts parts) { parts.Switches.ToggleCompare("mnuCompareSize", "compare_size"); }},
    {"mnuCompareDate",
     [](Parts parts) { parts.Switches.ToggleCompare("mnuCompareDate", "compare_date"); }},
    {"mnuCompare", [](Parts parts) { parts.Comparison.CompareFolders(); }},
    {"mnuSaveFileListing", [](Parts parts) { parts.Program.SaveFileListing(); }},
    {"mnuRCOpenRecycleBin", [](Parts parts) { parts.Program.OpenRecycleBin(); }},
    {"mnuRCEmptyRecycleBin", [](Parts parts) { parts.Program.EmptyRecycleBin(); }},
    {"mnuMapNetworkDrive", [](Parts parts) { parts.Program.MapNetworkDrive(); }},
    {"mnuDisconnectNetworkDrive", [](Parts parts) { parts.Program.DisconnectNetworkDrive(); }},
    {"mnuShowTips", [](Parts parts) { parts.Program.ShowTips(); }},
    {"mnuVertical", [](Parts parts) { parts.Layout.SwitchLayout("vertical"); }},
    {"mnuHorizontal", [](Parts parts) { parts.Layout.SwitchLayout("horizontal"); }},
    {"mnuAutoExpandOn", [](Parts parts) { parts.Layout.SwitchAutoExpand(true); }},
    {"mnuAutoExpandOff", [](Parts parts) { parts.Layout.SwitchAutoExpand(false); }},
    {"mnuCommandOn", [](Parts parts) { parts.Switches.ShowCommandLine(true, false); }},
    {"mnuCommandOff", [](Parts parts) { parts.Switches.ShowCommandLine(false, false); }},
    {"mnuColorOn", [](Parts parts) { parts.Switches.ShowColor(true); }},
    {"mnuColorOff", [](Parts parts) { parts.Switches.ShowColor(false); }},
    {"mnuChooseSkin", [](Parts parts) { parts.Program.ColorChooser(); }},
    {"mnuHelp", [](Parts parts) { parts.Program.OpenHelp(); }},
    {"mnuWebsite", [](Parts parts) { parts.Program.OpenWebSite(); }},
    {"mnuAbout", [](Parts parts) { parts.Program.ShowAbout(); }},
    {"mnuCheckUpdate", [](Parts parts) { parts.Program.CheckForUpdate(); }},
    {"mPopRestore", [](Parts parts) { parts.Program.RestoreWindow(); }},
    {"mPopExit", [](Parts parts) { parts.Program.ExitFromTray(); }},
});

// The entries of headings go to the current list under their own names.
constexpr std::array<std::string_view, 8> HeadingEntries = {
    "mnuHeadingExtension",        "mnuHeadingSize",
    "mnuHeadingDateLastModified", "mnuHeadingDateCreated",
    "mnuHeadingDateLastAccessed", "mnuHeadingFileType",
    "mnuHeadingAttributes",       "mnuHeadingComments"};

// In the order of the toolbar. Check buttons pass on how they stand.
constexpr auto ButtonCommands = std::to_array<CommandRow>({
    {"pane0", ChangePane<0>},
    {"pane1", ChangePane<1>},
    {"pane2", ChangePane<2>},
    {"pane3", ChangePane<3>},
    {"pane4", ChangePane<4>},
    {"headleft", [](Parts parts) { parts.Lists.MoveHeading("headleft"); }},
    {"headright", [](Parts parts) { parts.Lists.MoveHeading("headright"); }},
    {"headasc", [](Parts parts) { parts.Lists.Sort("asc"); }},
    {"headdes", [](Parts parts) { parts.Lists.Sort("des"); }},
    {"headascadd", [](Parts parts) { parts.Lists.Sort("ascadd"); }},
    {"headdesadd", [](Parts parts) { parts.Lists.Sort("desadd"); }},
    {"layoutvertical", [](Parts parts) { parts.Layout.SwitchLayout("vertical"); }},
    {"layouthorizontal", [](Parts parts) { parts.Layout.SwitchLayout("horizontal"); }},
    {"layoutautoexpand",
     [](Parts parts) { parts.Layout.SwitchAutoExpand(IsPressed(parts, "layoutautoexpand")); }},
    {"useenhancedmode", [](Parts) {}},  // changes the button alone
    {"showcommandline",
     [](Parts parts) {
       parts.Switches.ShowCommandLine(IsPressed(parts, "showcommandline"), false);
     }},
    {"showcolor", [](Parts parts) { parts.Switches.ShowColor(IsPressed(parts, "showcolor")); }},
    {"skindefault", [](Parts parts) { parts.Skin.LoadSkin("earl grey"); }},
    {"skinsecond", [](Parts parts) { parts.Skin.LoadSkin("grasshopper"); }},
    {"choosecolors", [](Parts parts) { parts.Program.ColorChooser(); }},
    {"compare_size", [](Parts parts) { parts.Switches.SetCompareMode(); }},
    {"compare_date", [](Parts parts) { parts.Switches.SetCompareMode(); }},
    {"compare", [](Parts parts) { parts.Comparison.CompareFolders(); }},
    {"recyclebin", [](Parts parts) { parts.Program.OpenRecycleBin(); }},
});

template <typename Rows>
void Run(const Rows& rows, std::string_view name, Parts parts) {
  const auto row = std::ranges::find(rows, name, &CommandRow::Name);
  if (row != rows.end()) row->Run(parts);
}

}  // namespace

bool Commands::IsCommand(std::string_view name) {
  const auto holds = [name](const auto& rows) {
    return std::ranges::find(rows, name, &CommandRow::Name) != rows.end();
  };
  return holds(MenuCommands) || holds(ButtonCommands) ||
         std::ranges::find(HeadingEntries, name) != HeadingEntries.end();
}

void Commands::MenuClick(std::string_view name) const {
  if (std::ranges::find(HeadingEntries, name) != HeadingEntries.end()) {
    parts_.Lists.ToggleHeading(name);
    return;
  }
  Run(MenuCommands, name, parts_);
}

void Commands::ButtonClick(std::string_view key) const {
  try {
    Run(ButtonCommands, key, parts_);
  } catch (const std::exception&) {
    // A button has nothing to say of a failure that its command has not told itself.
  }
}

}  // namespace tarnwell::commands
