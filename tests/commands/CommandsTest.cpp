#include "commands/Commands.h"
#include "commands/KeyTable.h"
#include "commands/MenuTable.h"
#include "commands/Switches.h"
#include "commands/ToolbarTable.h"
#include "fakes/FakeForms.h"
#include "fakes/FakePlatform.h"
#include "fakes/TestFile.h"

namespace tarnwell::commands {
namespace {

class CommandsTest : public testing::Test {
 protected:
  workspace::Workspace Space{{MenuTable(), ToolbarTable(), ImageKeys()}, {}};
  fakes::FakeMessenger Messages;
  fakes::FakeTray Icon;
  workspace::SystemTray Tray{Space, Icon, {}};
  workspace::FormLayout Layout{Space, Messages, Tray};
  std::string Sent;
  Switches Switch{Space, Layout, [this](std::string_view name, const base::Value& value) {
                    Sent += std::string(name) + " " + base::ToText(value) + ";";
                  }};
};

// Everything that can be chosen is a command, but for submenus and what is drawn apart.
TEST_F(CommandsTest, RowsHaveANameOfTheirOwnAPictureAndACommand) {
  using Names = std::vector<std::string_view>;
  const auto menu = MenuTable();
  std::set<std::string_view> names;
  Names without, unknown;
  int level = 0;
  for (std::size_t i = 0; i < menu.size(); ++i) {
    const forms::MenuRow& row = menu[i];
    EXPECT_TRUE(names.insert(row.Name).second) << row.Name;
    EXPECT_TRUE(row.Level >= 1 && row.Level <= level + 1) << row.Name;
    level = row.Level;
    const bool isSubmenu = i + 1 < menu.size() && menu[i + 1].Level > level;
    if (isSubmenu || row.Caption == "-" || Commands::IsCommand(row.Name)) continue;
    without.push_back(row.Name);
  }
  SetToolbarIcons(Space.Form);
  names.clear();
  for (const forms::ToolbarRow& row : ToolbarTable()) {
    if (row.Key.empty()) continue;
    EXPECT_TRUE(names.insert(row.Key).second) << row.Key;
    EXPECT_EQ(Space.Form.ImageList1.Key(Space.Form.Toolbar1[row.Key].Image), row.Image);
    if (!Commands::IsCommand(row.Key)) without.push_back(row.Key);
  }
  EXPECT_EQ(without, Names{"placeholder243"});
  for (const MenuImageRow& row : MenuImageTable()) {
    EXPECT_NO_THROW(Space.Form.ImageList1.Index(row.ImageKey)) << row.ImageKey;
    if (Space.Form.Menus.FindByCaption(row.Caption) == nullptr) unknown.push_back(row.Caption);
  }
  EXPECT_EQ(unknown, Names{"Auto Expand Pane Size"});
}

TEST_F(CommandsTest, TheGuideListsAllKeysAndNoKeyHasTwoCommands) {
  std::string lines;
  std::set<std::string_view> taken;
  for (const KeyRow& row : KeyTable()) {
    const std::string keys(row.Keys), where(row.Where), what(row.What);
    lines += where.empty() ? "| **" + keys + "** | | |\n"
                           : "| " + keys + " | " + where + " | " + what + " |\n";
    EXPECT_TRUE(row.Run == nullptr || taken.insert(row.Keys).second) << keys;
    if (!row.Entry.starts_with("mnu")) continue;
    EXPECT_NO_THROW(Space.Form.Menus[row.Entry]) << row.Entry;
  }
  const std::string guide = fakes::ReadTestFile("../docs/guide/keys.md");
  EXPECT_TRUE(guide.ends_with("|---|---|---|\n" + lines)) << lines;
}

TEST_F(CommandsTest, SwitchesKeepTicksAndButtonsTogether) {
  Space.Form.ScaleWidth = Space.Form.ScaleHeight = 9000;
  for (const bool on : {true, false, true}) {
    Switch.ShowColor(on);
    Switch.ShowCommandLine(on, true);
    EXPECT_EQ(Space.Settings.ShowColor, on);
    for (const std::string menu : {"mnuColor", "mnuCommand"}) {
      EXPECT_EQ(Space.Form.Menus[menu + "On"].Checked, on);
      EXPECT_EQ(Space.Form.Menus[menu + "Off"].Checked, !on);
    }
    EXPECT_EQ(Space.Form.Toolbar1["showcolor"].Pressed, on);
    EXPECT_EQ(Space.Form.Toolbar1["showcommandline"].Pressed, on);
  }
  EXPECT_EQ(Sent, "ShowColor True;ShowColor False;ShowColor True;");
  Switch.ShowCommandLine(true, false);  // on already
  EXPECT_EQ(Space.Area.AreaWidth, 0);
  Switch.ShowCommandLine(false, false);
  EXPECT_EQ(Space.Area.AreaWidth, 9000);  // arranged anew

  for (const int mode : {0, 1, 2, 3}) {
    Space.Form.Toolbar1["compare_size"].Pressed = (mode & 1) != 0;
    Space.Form.Toolbar1["compare_date"].Pressed = (mode & 2) != 0;
    Switch.SetCompareMode();
    EXPECT_EQ(Space.Settings.CompareMode, mode);
    EXPECT_EQ(Space.Form.Menus["mnuCompareSize"].Checked, (mode & 1) != 0);
    EXPECT_EQ(Space.Form.Menus["mnuCompareDate"].Checked, (mode & 2) != 0);
  }
}

}  // namespace
}  // namespace tarnwell::commands
