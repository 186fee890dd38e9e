#include "TestProgram.h"

namespace tarnwell::settings {
namespace {

class SkinTest : public testing::Test, public TestProgram {
 protected:
  SkinTest() { Start(); }
  fakes::MemoryItem& AddSkin(const std::string& name, const std::string& content) {
    return Platform.Files.AddFile("C:\\Tarnwell\\skins\\" + name, content);
  }
};

TEST_F(SkinTest, GivesEveryPartItsColour) {
  std::string content = "\"Version\",400000042,\"Tarnwell Skin\",0,0,0\r\n";
  int colour = 100;
  for (const std::string_view key : SkinColourKeys) {
    content += "\"" + std::string(key) + "\"," + std::to_string(colour++) + ",0,0,0,0\r\n";
  }
  AddSkin("mine.TWK", content);
  CurrentSkin.LoadSkin("Mine");
  EXPECT_EQ(Space.Settings.SkinName, "MINE");
  const workspace::MainForm& form = Space.Form;
  using Numbers = std::vector<base::Colour>;
  EXPECT_EQ((Numbers{form.BackColour, form.txtCurrentPath.ForeColour, form.cboCommand.BackColour,
                     form.MenuBackColour, form.lblNoRoom[104].BackColour,
                     form.TitleBar[0].ForeColour, form.TitleBar[1].BackColour}),
            (Numbers{100, 122, 123, 125, 120, 115, 107}));
  Panes.ChangePanes(3);  // a pane that is set up later gets them too
  for (const lister::ListId list : workspace::Ids{0, 101, 3, 103}) {
    const lister::ListColours& own = Space.Lists[list].Colours();
    EXPECT_EQ((Numbers{own.ListBackground, own.ActiveHeadingText, own.InActiveListOutline,
                       own.TextSecondary, own.DriveList, own.MinorToolbar}),
              (Numbers{101, 116, 126, 127, 110, 104}));
  }
}

TEST_F(SkinTest, LoadsAShortOrDamagedFileOverTheColoursThatAre) {
  Colours[ColorListText] = 1;
  Colours[ColorProgramBackground] = 3;
  AddSkin("odd.twk",
          "\"Something else\",0,0,0,0,0\r\n\"ColorInactiveListOutline\",9,0,0,0,0\r\n"
          "\"ColorListText\",green,0,0,0,0\r\n\"SkinName\",\"inside\",0,0,0,0\r\n"
          "\"COLORDRIVETEXT\",16777215,0,0,0,0\r\n\"ColorMainMenu\",3000000000,0,0,0,0\r\n");
  CurrentSkin.LoadSkin("ODD");
  EXPECT_TRUE(Colours[ColorListText] == 1 && Colours[ColorDriveText] == base::White &&
              Colours[ColorInActiveListOutline] == 9 && Colours[ColorMainMenu] == 0);
  EXPECT_EQ(Space.Settings.SkinName, "inside");
  EXPECT_EQ(Space.Form.BackColour, 3);  // shown all the same

  Colours[ColorProgramBackground] = 5;
  AddSkin("locked.twk", "").ReadFault = fakes::MemoryFileSystem::Denied();
  for (const char* name : {"NONE", "LOCKED", "", "..\\USER"}) {
    Messages.Texts.clear();
    CurrentSkin.LoadSkin(name);
    ASSERT_EQ(Messages.Texts.size(), 1U) << name;
    EXPECT_TRUE(
        Messages.Texts[0].starts_with("The last used 'skin' could not be found.\r\n\r\nIt "));
    EXPECT_EQ(Space.Settings.SkinName, name);
    EXPECT_EQ(Space.Form.BackColour, 3);
  }
  CurrentSkin.LoadSkin("earl grey");  // has no colour
  EXPECT_EQ(Space.Form.BackColour, 5);
}

}  // namespace
}  // namespace tarnwell::settings
