#include "fuzz/SkinProperties.h"

namespace tarnwell::settings {
namespace {

using workspace::Texts;

class SkinChooserTest : public testing::Test, public TestProgram {
 protected:
  SkinChooserTest() {
    for (std::size_t i = 0; i < Colours.size(); ++i) Colours[i] = static_cast<base::Colour>(i + 1);
    AddSkin("Mine.twk", "\"ColorListText\",7,0,0,0,0\r\n");
    Space.Settings.SkinName = "MINE";
    // The user answers each message with the next of the answers.
    Messages.OnMessage = [this] {
      Messages.Result = Answers.empty() ? "" : Answers.front();
      if (!Answers.empty()) Answers.erase(Answers.begin());
    };
    Chooser.ColorChooser(Space.Form);
  }
  void Choose(const std::string& name) {
    const auto& items = Chooser.lstSkins.Items;
    Chooser.lstSkinsClick(static_cast<int>(std::ranges::find(items, name) - items.begin()));
  }
  // Since the last look.
  Texts Said() { return std::exchange(Messages.Texts, {}); }
  std::string ContentOf(const std::string& name) {
    std::string content;
    Platform.Files.ReadFile("C:\\Tarnwell\\skins\\" + name + ".twk", content);
    return content;
  }
  bool IsOpen() { return Host.IsOpen("frmSkinChooser"); }

  Texts Answers;
};

const std::string NoDefault =
    "Sorry, you cannot save over any of the default skins.\r\n\r\nPlease use a different name.";
const std::string Punctuation = "Please don't use unusual punctuation in the skin name.";

TEST_F(SkinChooserTest, SavesUnderANameThatIsFree) {
  EXPECT_EQ(Chooser.lstSkins.Text(), "Mine");  // the current one, in any case
  Dialogs.Texts = {" roxy ", "a.b", "x\\y", "  ", "not reached"};
  Chooser.cmdSaveClick();
  EXPECT_EQ(Said(), (Texts{NoDefault, Punctuation, Punctuation}));
  EXPECT_EQ(Dialogs.Asked.back().Text, "x\\y");
  EXPECT_EQ(Dialogs.Asked.back().Place->Top, Chooser.Top + 1400);

  Chooser.Picture1Click(ColorListText);
  Chooser.Picture1Click(ColorDriveText);
  Dialogs.Texts = {"Evening Blue"};
  Chooser.cmdSaveClick();
  EXPECT_EQ(Space.Settings.SkinName, "Evening Blue");
  const std::string content = ContentOf("Evening Blue");
  EXPECT_TRUE(
      content.starts_with("\"Version\",400000042,\"Tarnwell Skin\",0,0,0\r\n"
                          "\"ColorProgramBackground\",1,0,0,0,0\r\n"
                          "\"ColorPaneBackground\",21,0,0,0,0\r\n"));
  EXPECT_TRUE(
      content.ends_with("\"ColorMainMenu\",26,0,0,0,0\r\n"
                        "\"ColorTextSecondary\",28,0,0,0,0\r\n"));
  EXPECT_EQ(std::ranges::count(content, '\n'), 29);
  CurrentSkin.LoadSkin("evening blue");
  EXPECT_EQ(Space.Settings.SkinName, "EVENING BLUE");
  Chooser.cmdOKClick();
  EXPECT_FALSE(IsOpen());
}

TEST_F(SkinChooserTest, LosesNoSkinWhereOneCannotBeWritten) {
  const std::string mine = ContentOf("Mine");
  Choose("Mine");
  Platform.Files.WriteFault = fakes::MemoryFileSystem::Denied();
  Dialogs.Texts = {"Other"};
  Chooser.cmdResaveClick();
  EXPECT_EQ(Said(), Texts());
  EXPECT_EQ(Space.Settings.SkinName, "Other");
  EXPECT_EQ(ContentOf("Mine"), mine);
  Choose("Mine");
  Dialogs.Texts = {"Other"};
  Chooser.cmdRenameClick();
  EXPECT_EQ(Said(), (Texts{"The skin Mine could not be renamed:\r\nPermission denied"}));

  Platform.Files.WriteFault = {};
  Choose("Mine");
  Dialogs.Texts = {"Other"};
  Chooser.cmdResaveClick();
  EXPECT_EQ(Chooser.lstSkins.Items, (Texts{"Earl Grey", "Other"}));
  Choose("Other");
  Dialogs.Texts = {"OTHER"};
  Chooser.cmdResaveClick();
  EXPECT_EQ(Chooser.lstSkins.Items, (Texts{"Earl Grey", "OTHER"}));
  Choose("OTHER");
  Dialogs.Texts = {"a.b", "EARL grey", "Another"};
  Chooser.cmdRenameClick();
  EXPECT_EQ(Dialogs.Asked.back().Text, "OTHER");
  EXPECT_EQ(Said(), (Texts{Punctuation,
                           "Sorry, you cannot use the name of any of the default skins.\r\n\r\n"
                           "Please use a different name."}));
  EXPECT_EQ(Space.Settings.SkinName, "OTHER");
  AddSkin("Third .twk", "");
  Choose("Another");
  Dialogs.Texts = {"third"};
  Chooser.cmdRenameClick();
  EXPECT_EQ(Said().size(), 1U);
  EXPECT_TRUE(ContentOf("Third ").empty());
  EXPECT_FALSE(ContentOf("Another").empty());
  Choose("Third ");
  Dialogs.Texts = {"third"};
  Chooser.cmdResaveClick();
  EXPECT_EQ(Chooser.lstSkins.Items, (Texts{"Another", "Earl Grey", "third"}));
}

TEST_F(SkinChooserTest, NothingWorksOnNoSkinAndLittleOnADefaultOne) {
  const std::string file = ContentOf("Earl Grey");
  for (const int selected : {-1, 0}) {
    Chooser.lstSkinsClick(selected);
    Chooser.cmdResaveClick();
    Chooser.cmdRenameClick();
    Chooser.cmdDelClick();
  }
  EXPECT_EQ(Said().size(), 6U);
  Answers = {"NO", "YES"};
  for (const bool goes : {false, true}) {
    Choose("Mine");
    Chooser.cmdDelClick();
    EXPECT_EQ(ContentOf("Mine").empty(), goes);
  }
  EXPECT_EQ(Said().back(), "Are you sure you want to delete the skin: Mine ?");
  EXPECT_EQ(ContentOf("Earl Grey"), file);
}

TEST_F(SkinChooserTest, ColoursTakeEffectAtOnce) {
  Chooser.Picture1Click(ColorProgramBackground);
  EXPECT_EQ(Chooser.HeldColour(), 1);
  Choose("Mine");
  Chooser.lstSkinsDblClick();
  EXPECT_EQ(Chooser.Picture1[ColorListText].BackColour, 7);
  Chooser.Picture1Click(ColorMainMenu);
  EXPECT_EQ(Space.Form.MenuBackColour, 1);
  EXPECT_EQ(Chooser.HeldColour(), frmSkinChooser::NoColour);

  std::vector<base::Colour> seen;
  for (const auto chosen : {std::optional<base::Colour>(), std::optional<base::Colour>(9)}) {
    Dialogs.OnColour = [&](const platform::ColourQuestion& question) {
      seen.push_back(question.Start);
      seen.push_back(question.Custom[0]);
      question.Custom[0] = 55;
      question.Shown(66);
      seen.push_back(Space.Form.MenuBackColour);
      return chosen;
    };
    Chooser.cmdChooseClick(ColorMainMenu);
    seen.push_back(Space.Form.MenuBackColour);
  }
  EXPECT_EQ(seen, (std::vector<base::Colour>{1, base::White, 66, 1, 1, 55, 66, 9}));

  Chooser.Picture1Click(ColorMainMenu);
  Chooser.Picture1Click(ColorListText);
  CurrentSkin.LoadSkin("mine");  // as a button of the toolbar does
  EXPECT_EQ(Chooser.Picture1[ColorListText].BackColour, 7);
  Chooser.CloseClick();
  EXPECT_FALSE(IsOpen());
}

TEST_F(SkinChooserTest, AsksAboutWhatIsNotSaved) {
  const auto change = [this] {
    Chooser.Picture1Click(ColorDriveText);
    Chooser.Picture1Click(ColorListText);
    ASSERT_NE(Colours[ColorListText], 7);
  };
  Choose("Mine");
  Chooser.cmdLoadClick();
  change();
  // Closed without a button, with Cancel, and with a name that is not given.
  Answers = {"", "CANCEL", "YES", "NO"};
  Chooser.CloseClick();
  Chooser.cmdOKClick();
  Chooser.cmdCancelClick();
  EXPECT_TRUE(IsOpen() && Said().size() == 4);
  for (const Texts& answers : {Texts{"NO"}, Texts{"YES", "YES"}}) {
    Answers = answers;
    Chooser.cmdCancelClick();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Colours[ColorListText], 7);
    Chooser.ColorChooser(Space.Form);
    change();
  }
  Answers = {"YES"};
  Dialogs.Texts = {"New"};
  Chooser.cmdOKClick();
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Space.Settings.SkinName, "New");
}

TEST_F(SkinChooserTest, TakesFilesFromElsewhereAndGivesThemThere) {
  Platform.Files.AddFile("D:\\Given\\Sea.skin", "anything");
  Platform.Files.AddFile("D:\\Given\\mine.txt");
  Platform.Files.AddFile("D:\\Given\\ .twk");
  for (const auto& [file, told] : {std::pair{"mine.txt", "You already have a skin by that name (m"},
                                   {"gone.twk", "The skin D:\\Given\\gone.twk could not be"},
                                   {" .twk", "The skin D:\\Given\\ .twk could not be"}}) {
    Dialogs.File = std::string("D:\\Given\\") + file;
    Chooser.cmdImportClick();
    EXPECT_TRUE(Said().at(0).starts_with(told));
  }
  Dialogs.File = "D:\\Given\\Sea.skin";
  Chooser.cmdImportClick();
  EXPECT_EQ(Chooser.lstSkins.Items, (Texts{"Earl Grey", "Mine", "Sea."}));

  Choose("Sea.");
  Dialogs.File = "D:\\Given\\out.twk";
  Chooser.cmdExportClick();
  EXPECT_EQ(Dialogs.AskedFor->Name, "Sea..twk");
  EXPECT_EQ(Platform.Files.At("D:\\Given\\out.twk").Content, "anything");
  Dialogs.File = "C:\\Tarnwell\\skins\\earl grey.twk";
  Chooser.cmdExportClick();
  EXPECT_EQ(Said(), (Texts{"An error occurred while exporting the skin."}));
  EXPECT_NE(ContentOf("Earl Grey"), "anything");
}

TEST_F(SkinChooserTest, AnyFileIsASkin) {
  Start();
  Chooser.CloseClick();
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(TARNWELL_TESTS "/fuzz/corpus")) {
    const std::string name = "fuzz/corpus/" + entry.path().filename().string();
    EXPECT_EQ(fuzz::BrokenSkinRule(*this, fakes::ReadTestFile(name)), "") << name;
    ++files;
  }
  EXPECT_GT(files, 10U);
}

// On a file system that has case, and with what others left in the folder.
TEST(SkinFilesTest, ThereIsOneFileForAName) {
  fakes::MemoryFileSystem files(base::PathSyntax::Posix());
  const auto at = [&](const char* file) -> fakes::MemoryItem& {
    return files.At("/skins/" + std::string(file));
  };
  for (const char* name :
       {"Sea.twk", "sea.TWK", "\u00C4pfel.twk", " Dawn.twk", "Dusk .twk", "no.skin"}) {
    files.AddFile("/skins/" + std::string(name), name);
  }
  files.AddFolder("/skins/Folder.twk");
  files.AddFile("/elsewhere", "precious");
  files.AddLink("/skins/Link.twk", "/elsewhere");
  const fakes::FakeFolderStamps stamps(files);
  SkinFiles skins(files, stamps, "/skins");
  EXPECT_EQ(skins.List(), (Texts{"Dawn", "Dusk ", "Link", "Sea", "\u00C4pfel"}));
  std::string content;
  for (const auto& [name, file] : {std::pair{"SEA", "Sea.twk"},
                                   {"sea", "sea.TWK"},
                                   {"\u00E4PFEL", "\u00C4pfel.twk"},
                                   {"dawn", " Dawn.twk"},
                                   {"DUSK ", "Dusk .twk"}}) {
    EXPECT_TRUE(skins.Read(name, content));
    EXPECT_EQ(content, file);
  }
  files.AddLink("/alias", "/skins");
  EXPECT_FALSE(skins.Export("Sea", "/alias/Roxy.twk") || skins.Export("Dawn", "/skins/SEA.twk"));
  EXPECT_TRUE(skins.Write("link", "new") && skins.Write("DAWN", "new"));
  EXPECT_EQ(at("Link.twk").Content + at(" Dawn.twk").Content, "newnew");
  EXPECT_EQ(files.At("/elsewhere").Content, "precious");
  EXPECT_FALSE(skins.Write("Folder", "") || skins.Rename("Dawn", "SEA"));
  EXPECT_TRUE(skins.Rename("dawn", "DAWN"));
  EXPECT_EQ(at("DAWN.twk").Content, "new");
}

}  // namespace
}  // namespace tarnwell::settings
