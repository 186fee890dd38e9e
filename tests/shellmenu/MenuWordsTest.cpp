#include "MenuFixture.h"
#include "fileops/popNewFolder.h"
#include "fileops/popRename.h"

namespace tarnwell::shellmenu {
namespace {

using workspace::Texts;
using namespace std::string_literals;

TEST(MenuWordsTest, ComeFromCaptions) {
  struct Case {
    std::string Caption, Words;  // the second one without the platform's own verbs
    int Slot = -1;
  };
  for (const Case& each : {Case{"&Copy", "copy! copy!"},
                           {" C&&ut ", "cut! cut!"},
                           {"paste", "paste! paste"},
                           {"De&lete", "delete! delete"},
                           {"create shortcut\0more"s, "refresh! refresh!"},
                           {"Colour Code", "colour code colour code"},
                           {"", "unknown! unknown!"},
                           {"Copy" + std::string(251, ' ') + "x", "copy! copy!"},
                           {"Add to Slot 9", "ADD TO SLOT 9 ADD TO SLOT 9", 8},
                           {"&Clear Slot 10", "CLEAR SLOT10 CLEAR SLOT10", 9},
                           {"Add to slot", "ADD TO SLOTOT ADD TO SLOTOT"}}) {
    std::string words;
    for (const int mode : {1, 0}) {
      MenuWord word = WordOf(each.Caption, mode);
      words += (mode == 0 ? " " : "") + word.Word + (word.IsPlatforms ? "!" : "");
      EXPECT_EQ(TakeSlot(word.Word), each.Slot);
      EXPECT_TRUE(each.Slot < 0 || word.Word == "ADD TO SLOT" || word.Word == "CLEAR SLOT");
    }
    EXPECT_EQ(words, each.Words);
  }
}

TEST_F(ContextMenuTest, ListsAreReadAgainAfterThePlatformsWork) {
  // Which file lists have read their folders again; notices are off meanwhile.
  const int &data = Platform.Files.At("C:\\Data").Reads,
            &other = Platform.Files.At("C:\\Other").Reads;
  const auto refreshed = [&](const std::string& caption, lister::ListId list) {
    const int dataBefore = data, otherBefore = other;
    Choose(list == 100 ? "a.txt" : "o", caption, list);
    EXPECT_TRUE(IsOver());
    return std::string(data > dataBefore ? "Data " : "") + (other > otherBefore ? "Other " : "");
  };
  for (const char* caption : {"Open", "Properties", "Create Shortcut", "Copy", "Delete"}) {
    EXPECT_EQ(refreshed(caption, 100), std::string_view(caption) == "Delete" ? "Data " : "");
  }
  EXPECT_EQ(Platform.ItemMenus.Invoked,
            (Texts{"Open", "Properties", "Create Shortcut", "Copy", "Delete"}));

  EXPECT_EQ(refreshed("Cut", 100), "");
  EXPECT_EQ(refreshed("Paste", 101), "Data Other ");
  EXPECT_EQ(refreshed("Paste", 101), "Other ");  // the second has nothing to take away
  for (const char* between : {"Open", ""}) {     // also a menu that was left by Escape
    for (const char* caption : {"Cut", between}) EXPECT_EQ(refreshed(caption, 100), "");
    EXPECT_EQ(refreshed("Paste", 101), "Other ");
  }
}

TEST_F(ContextMenuTest, WordsLeadToTheProgramsCommands) {
  Host.OnModal = [this](forms::Form& form) {
    Dialogs.push_back(form.Name());
    if (auto* const dialog = dynamic_cast<fileops::popRename*>(&form)) {
      if (dialog->txtDest.Text == "b.txt") dialog->txtDest.Text = "z.txt";
      dialog->cmdRenameClick();
    } else if (auto* const folder = dynamic_cast<fileops::popNewFolder*>(&form)) {
      Dialogs.push_back(folder->txtDest.Text);
    }
  };
  Choose("b.txt", "Rename");
  EXPECT_TRUE(Platform.Files.Exists("C:\\Data\\z.txt"));
  Platform.ItemMenus.Captions.emplace_back("&RENAME");  // it is taken for the program's own
  Popups.Refused = "Rename";
  Choose("c.txt", "RENAME");
  Choose("Sub", "New Folder");
  CommandLine = [this] { Dialogs.emplace_back("line"); };
  Choose("a.txt", "Command Line");
  EXPECT_EQ(Dialogs, (Texts{"popRename", "popRename", "popNewFolder", "C:\\Data\\", "line"}));
  EXPECT_TRUE(Platform.ItemMenus.Invoked.empty());
  Select({"a.txt", "z.txt"});
  Platform.Operation.OnRun = [this](const platform::OperationRequest&) {
    Platform.Files.AddFile("C:\\Data\\twin");
    return 0;
  };
  Platform.Operation.Placed = {{"C:\\Data\\z.txt", "C:\\Data\\twin"}};
  Choose("z.txt", "Duplicate");
  ASSERT_EQ(Platform.Operation.Requests.size(), 2U);
  EXPECT_EQ(Platform.Operation.Requests[0].Items, "C:\\Data\\z.txt\0"s);
  EXPECT_EQ(Space.Lists[100].Rows().CurrentRow(), Row(100, "twin"));
  Platform.ItemMenus.Pasted = {{"C:\\Other\\b", "C:\\Data\\z.txt"}};
  Choose("a.txt", "Paste");
  EXPECT_EQ(Space.Lists[100].Rows().CurrentRow(), Row(100, "z.txt"));

  Platform.ItemMenus.Captions = {"Compact Database"};
  Choose("Sub", "Compact Database");
  ASSERT_EQ(Platform.Launcher.Requests.size(), 1U);
  EXPECT_EQ(Platform.Launcher.Requests[0].File, "C:\\Data\\Sub /compact");
  EXPECT_EQ(Platform.Launcher.Requests[0].Folder, "C:\\Data\\Sub");
}

TEST_F(ContextMenuTest, ProgramsOwnClipboardTakesThePlaceOfThePlatforms) {
  Space.ShellVerbMode = 0;
  Platform.ItemMenus.Captions = {"&Paste", "&Paste Special", "Cu&t", "&Delete"};
  Choose("a.txt", "Cut");
  EXPECT_EQ(Popups.Find("Paste Special"), nullptr);  // the lower one goes while nothing is kept
  EXPECT_NE(Popups.Find("Paste"), nullptr);
  EXPECT_EQ(Space.InternalClipAction + std::to_string(Space.InternalClipSource), "move100");
  Space.CurrentList = 101;
  Popups.Choice = "Paste";
  Menu.ShowForClick(0, 0, "", "C:\\Other\\");
  EXPECT_NE(Popups.Find("Paste Special"), nullptr);
  ASSERT_EQ(Platform.Operation.Requests.size(), 1U);
  EXPECT_EQ(Platform.Operation.Requests[0].Function, platform::FileFunction::Move);
  EXPECT_EQ(Platform.Operation.Requests[0].Items, "C:\\Data\\a.txt\0\0"s);
  EXPECT_EQ(Platform.Operation.Requests[0].Destination, "C:\\Other\\\0"s);
  EXPECT_EQ(Space.InternalClipSource, lister::NoList);
  Space.CurrentList = 100;
  Choose("a.txt", "Delete");
  EXPECT_EQ(Dialogs, Texts{"popDelete"});
  EXPECT_EQ(Platform.ItemMenus.Invoked, Texts{"Cut"});
  EXPECT_TRUE(IsOver());
}

TEST_F(ContextMenuTest, BookmarksHoldTheFolderThatWasClicked) {
  const auto slot = [this](std::size_t number) {
    return Space.Settings.Bookmarks[number - 1].Path;
  };
  Choose("Sub", "Add to Slot 1");
  Choose("a.txt", "Add to Slot 1");  // no folder: the slot keeps what it has
  Choose("Sub", "Add to Slot 10");
  Select({});
  Choose("", "Add to Slot 3");
  Choose("C:\\", "Add to Slot 4", 0);
  EXPECT_EQ(slot(1) + "|" + slot(3) + "|" + slot(4) + "|" + slot(10),
            "C:\\Data\\Sub|C:\\Data\\|C:\\|C:\\Data\\Sub");
  Choose("a.txt", "Clear Slot 10");
  EXPECT_EQ(slot(10), "(empty)");
  EXPECT_TRUE(Messages.Texts.empty());

  // A row of 100 characters is shown whole, each of two bytes.
  std::string name;
  while (name.size() < 2 * (100 - 3)) name += "\u00E4";
  for (const char* more : {"", "x"}) {
    Space.Settings.Bookmarks[1].Path = "C:\\" + name + more;
    Choose("a.txt", "Clear Slot 10");
    const std::string& shown = Space.Settings.Bookmarks[1].DisplayPath;
    EXPECT_EQ(base::CodePointCount(shown), 100U);
    EXPECT_EQ(shown.find("...") == std::string::npos, std::string_view(more).empty());
  }
  Platform.ItemMenus.Captions = {"Add to slot 77"};
  Choose("Sub", "Add to slot 77");
  EXPECT_TRUE(IsOver());
}

TEST_F(ContextMenuTest, ColoursComeWithAHintEach) {
  Space.Settings.FileCountMax = 3;
  Choose("a.txt", "Dark Green");
  EXPECT_EQ(
      Platform.Files.At("C:\\Data\\a.txt").ExtendedAttributes[platform::ExtendedAttribute::Colour],
      "dark green");
  ASSERT_EQ(Messages.Texts.size(), 1U);
  EXPECT_TRUE(Messages.Texts[0].starts_with("Note: This is the first time you are color coding"));

  Space.Settings.FirstColorEver = true;
  Space.Settings.FileCountMax = 2;
  Choose("a.txt", "Default");
  Choose("a.txt", "Red");
  // In a tree the folder that was clicked, and not the open one.
  Choose("C:\\", "Blue", 0);
  EXPECT_EQ(Platform.Files.At("C:\\").ExtendedAttributes[platform::ExtendedAttribute::Colour],
            "blue");
  ASSERT_EQ(Messages.Texts.size(), 3U);
  EXPECT_EQ(Messages.Texts[2],
            "When there are over 2 files in a folder, Tarnwell doesn't show the color coding "
            "because it takes too long to check each file.\r\n\r\nFeel free to override this "
            "behaviour in the Options if you wish.");
  EXPECT_FALSE(Space.Settings.IsFirstColorCodingOverMax);
}

}  // namespace
}  // namespace tarnwell::shellmenu
