#include "lists/TestLists.h"
#include "tools/FileListing.h"

namespace tarnwell::tools {
namespace {

using workspace::Texts;

class FileListingTest : public testing::Test, public lists::TestLists {
 protected:
  FileListingTest() {
    Platform.Files.AddFolder("C:\\out");
    Platform.Drives.Home = "C:\\home";
    Platform.Clock.Time = 1'795'000'005'000'000'000;
    OpenPane(0, "C:\\0");
    Space.CurrentList = 0;
  }
  // What was told, with the folder that was offered.
  std::string Export(const std::string& folder, std::optional<std::string> file) {
    Space.Settings.FolderFileListing = folder;
    Platform.System.CurrentFolder = "unchanged";
    Messages.Texts.clear();
    Dialogs.File = std::move(file);
    Command.SaveFileListing();
    EXPECT_EQ(Host.ScreenPointer(), forms::MousePointer::Default);
    EXPECT_EQ(Dialogs.AskedFor->Name, "FileListing26-11-18-110645.csv");
    std::string told = Messages.Texts.empty() ? "" : Messages.Texts.at(0) + "|";
    return told + Dialogs.AskedFor->Folder + "|" + Space.Settings.FolderFileListing + "|" +
           Platform.System.CurrentFolder;
  }

  fakes::FakeDialogs Dialogs;
  FileListing Command{
      Space,
      {Host, Platform.Files, Platform.Drives, Dialogs, Platform.System, Platform.Clock, Messages}};
};

TEST_F(FileListingTest, OffersTheLastFolderAndTellsOfFailures) {
  const std::string problem =
      "There was a problem writing the folder / file listing to the specified file.|";
  EXPECT_EQ(Export("0", {}), "C:\\home|0|C:\\");
  EXPECT_EQ(Export("", {}), "c:\\||C:\\");
  EXPECT_EQ(Export("C:\\gone\\", "ab"), "C:\\home|C:\\gone\\|unchanged");
  EXPECT_EQ(Export("C:\\out\\", " C:\\a.csv "), "C:\\out\\|C:\\|C:\\");
  // A folder list lists itself.
  EXPECT_TRUE(Platform.Files.At("C:\\a.csv").Content.starts_with("Name,Path\r\nC:\\\\,\r\n0,"));
  Platform.Files.WriteFault = {28, "full"};
  EXPECT_EQ(Export("", "C:\\out\\a.csv"), problem + "c:\\|C:\\out\\|unchanged");
  Platform.Files.WriteFault = {};
  // What the blanks have kept from the dialog's own question is not replaced without one.
  Space.CurrentList = 104;
  EXPECT_EQ(Export("", "C:\\a.csv "), "c:\\||C:\\");
  Dialogs.Yes = true;
  EXPECT_EQ(Export("", "C:\\a.csv "),
            "An error occurred while exporting the file listing.|c:\\|C:\\|unchanged");
}

}  // namespace
}  // namespace tarnwell::tools
