#include "lists/TestLists.h"
#include "tools/FileListing.h"

namespace tarnwell::tools {
namespace {

class FileListingTest : public testing::Test, public lists::TestLists {
 protected:
  // What was told, the folder offered, the one remembered, and the current one.
  std::string Export(const std::string& folder, std::optional<std::string> file) {
    Space.Settings.FolderFileListing = folder;
    Platform.System.CurrentFolder = "same";
    Messages.Texts = {""};
    Dialogs.File = std::move(file);
    Command.SaveFileListing();
    EXPECT_EQ(Host.ScreenPointer(), forms::MousePointer::Default);
    EXPECT_EQ(Dialogs.AskedFor->Name, "FileListing26-11-18-110645.csv");
    return Messages.Texts.back() + "|" + Dialogs.AskedFor->Folder + "|" +
           Space.Settings.FolderFileListing + "|" + Platform.System.CurrentFolder;
  }

  fakes::FakeDialogs Dialogs;
  FileListing Command{
      Space,
      {Host, Platform.Files, Platform.Drives, Dialogs, Platform.System, Platform.Clock, Messages}};
};

TEST_F(FileListingTest, OffersTheLastFolderAndTellsOfFailures) {
  Platform.Drives.Home = "C:\\home";
  Platform.Clock.Time = 1'795'000'005'000'000'000;
  OpenPane(0, "C:\\0");
  EXPECT_EQ(Export("0", {}), "|C:\\home|0|C:\\");
  EXPECT_EQ(Export("", {}), "|c:\\||C:\\");
  EXPECT_EQ(Export("C:\\gone\\", "ab"), "|C:\\home|C:\\gone\\|same");
  EXPECT_EQ(Export("C:\\0\\", " C:\\a.csv "), "|C:\\0\\|C:\\|C:\\");
  // A folder list lists itself.
  EXPECT_TRUE(Platform.Files.At("C:\\a.csv").Content.starts_with("Name,Path\r\nC:\\\\,\r\n0,"));
  Platform.Files.WriteFault = {28, "full"};
  EXPECT_EQ(Export("", "C:\\0\\a.csv"),
            "There was a problem writing the folder / file listing to the specified "
            "file.|c:\\|C:\\0\\|same");
  // What blanks have kept from the dialog's own question is not replaced without one.
  Space.CurrentList = 104;
  EXPECT_EQ(Export("", "C:\\a.csv "), "|c:\\||C:\\");
  Dialogs.Yes = true;
  EXPECT_EQ(Export("", "C:\\a.csv "),
            "An error occurred while exporting the file listing.|c:\\|C:\\|same");
}

}  // namespace
}  // namespace tarnwell::tools
