#include "TestProgram.h"
#include "settings/Skin.h"

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
  EXPECT_EQ(
      (Numbers{form.BackColour, form.txtCurrentPath.BackColour, form.txtCurrentPath.ForeColour,
               form.cboCommand.BackColour, form.cboCommand.ForeColour, form.MenuBackColour,
               form.shpBack[4].BackColour, form.lblNoRoom[104].BackColour}),
      (Numbers{100, 100, 122, 123, 124, 125, 120, 120}));
  EXPECT_EQ((Numbers{form.TitleBar[0].BackColour, form.TitleBar[0].ForeColour,
                     form.TitleBar[1].BackColour, form.TitleBar[1].ForeColour}),
            (Numbers{106, 115, 107, 117}));
  Panes.ChangePanes(3);  // a pane that is set up later gets them too
  for (const lister::ListId list : workspace::Ids{0, 101, 3, 103}) {
    const lister::ListerColours& own = Space.Lists[list].Colours();
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
  EXPECT_EQ(Colours[ColorListText], 1);
  EXPECT_EQ(Colours[ColorDriveText], base::White);
  EXPECT_EQ(Colours[ColorInActiveListOutline], 9);
  EXPECT_EQ(Colours[ColorMainMenu], 0);
  EXPECT_EQ(Space.Settings.SkinName, "inside");
  EXPECT_EQ(Space.Form.BackColour, 3);  // shown all the same

  Colours[ColorProgramBackground] = 5;
  AddSkin("locked.twk", "").ReadFault = fakes::MemoryFileSystem::Denied();
  for (const char* name : {"NONE", "LOCKED", "", "..\\USER"}) {
    Messages.Texts.clear();
    CurrentSkin.LoadSkin(name);
    EXPECT_EQ(Messages.Texts,
              (Texts{"The last used 'skin' could not be found.\r\n\r\nIt is recommended that you "
                     "create a suitable color scheme by selecting 'Choose Skin' from the 'Layout' "
                     "menu."}))
        << name;
    EXPECT_EQ(Space.Settings.SkinName, name);
    EXPECT_EQ(Space.Form.BackColour, 3);
  }
  CurrentSkin.LoadSkin("earl grey");  // has no colour
  EXPECT_EQ(Space.Form.BackColour, 5);
}

}  // namespace
}  // namespace tarnwell::settings
