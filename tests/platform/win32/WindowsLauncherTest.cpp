#include <shlobj.h>

#include "RunUntil.h"
#include "TempFolder.h"
#include "fakes/FakeForms.h"
#include "fakes/FakePlatform.h"
#include "platform/win32/files/WindowsFileSystem.h"
#include "platform/win32/shell/Com.h"
#include "platform/win32/shell/WindowsLauncher.h"

namespace tarnwell::platform {
namespace {

using Texts = std::vector<std::string>;
using namespace std::string_literals;

class WindowsLauncherTest : public testing::Test {
 protected:
  WindowsLauncherTest() {
    Folder.Make({"sub/",
                 "tell.bat=@cd > \"%~dp0told\"\r\n@echo.%*>> \"%~dp0told\"\r\n"
                 "@move \"%~dp0told\" \"%~dp0done\"\r\n"});
  }
  // What the batch file told: its folder and what it was given.
  Texts Told() {
    EXPECT_TRUE(RunUntil([this] { return !Get(Folder / "done").empty(); }));
    std::istringstream lines(Get(Folder / "done"));
    Texts told;
    for (std::string line; std::getline(lines, line);) {
      told.push_back(line.substr(0, line.find_last_not_of(" \r") + 1));
    }
    std::filesystem::remove(PathOf(Folder / "done"));
    told.resize(2);
    return told;
  }

  const ComThread Com;
  TempFolder Folder;
  const WindowsFileSystem Files;
  fakes::FakeDialogs Dialogs;
  fakes::FakeNumberForms Forms;
  Texts Opened;
  WindowsLauncher Launcher{{Files, Dialogs, Forms,
                            [this](const std::string& path) { Opened.push_back(path); },
                            [] { return 0; }}};
};

TEST_F(WindowsLauncherTest, StartsWhatIsTypedInItsFolder) {
  const std::string batch = Folder / "tell.bat", words = "a \"b c\" --d";
  EXPECT_TRUE(Launcher.Execute({batch, words, Folder / "sub"}));
  EXPECT_EQ(Told(), (Texts{Folder / "sub", words}));
  // By PATH, from the folder on, and by its own name there.
  EXPECT_TRUE(Launcher.Execute({"cmd", "/c " + batch + " x", Folder / "sub"}));
  EXPECT_EQ(Told(), (Texts{Folder / "sub", "x"}));
  EXPECT_TRUE(Launcher.Execute({"../tell.bat", "", Folder / "sub"}));
  EXPECT_EQ(Told().front(), Folder / "sub");
  EXPECT_TRUE(Launcher.Execute({"tell.bat", "", Folder.Path()}));
  EXPECT_EQ(Told().front(), Folder.Path());
  Folder.Make({"cmd.bat=@echo planted> it\r\n@move it done\r\n"});
  EXPECT_TRUE(Launcher.Execute({"cmd", "/c tell", Folder.Path()}));
  EXPECT_EQ(Told().front(), Folder.Path());

  EXPECT_EQ(Launcher.Execute({batch, "", Folder / "none"}).Reason,
            "There is no folder " + Folder / "none");
  EXPECT_FALSE(Launcher.OpenTerminal(Folder / "none"));
  for (const std::string file : {"", "no-such-program", "none\\at all", "strange:address"}) {
    EXPECT_FALSE(Launcher.Execute({file, "", Folder.Path()}).Reason.empty()) << file;
  }
}

TEST_F(WindowsLauncherTest, OpensFoldersInThePane) {
  for (const std::string file : {"sub", "SUB\\..\\sub\\", "\\windows", "C:"}) {
    EXPECT_TRUE(Launcher.Execute({file, "", Folder.Path()})) << file;
  }
  EXPECT_TRUE(Launcher.Execute({"file:///C:/windows", "", ""}));
  ComPtr<IShellLinkW> link;
  ComPtr<IPersistFile> file;
  ASSERT_GE(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER,
                             IID_PPV_ARGS(link.GetAddressOf())),
            0);
  link->SetPath(Wide(Folder / "sub").c_str());
  ASSERT_GE(link.As(&file), 0);
  ASSERT_GE(file->Save(Wide(Folder / "to sub.lnk").c_str(), TRUE), 0);
  EXPECT_TRUE(Launcher.OpenFiles({Folder / "to sub.lnk"}, Folder.Path()).empty());
  EXPECT_EQ(Opened, (Texts{Folder / "sub", Folder / "sub", "C:\\windows", "C:\\", "C:\\windows",
                           Folder / "sub"}));
}

TEST_F(WindowsLauncherTest, OpensWhatIsPickedAndNamesWhatFails) {
  Folder.Make({"nothing.takes-this=x", "ends/odd.bat=no program"});
  EXPECT_TRUE(Launcher.OpenFiles({Folder / "tell.bat"}, Folder / "sub").empty());
  EXPECT_EQ(Told(), (Texts{Folder / "sub", ""}));
  const Texts bad{Folder / "none", Folder / "nothing.takes-this"};
  const std::vector<LaunchFailure> failures = Launcher.OpenFiles(bad, Folder.Path());
  ASSERT_EQ(failures.size(), 2U);
  for (const std::size_t at : {0U, 1U}) {
    EXPECT_EQ(failures[at].Path, bad[at]);
    EXPECT_FALSE(failures[at].Status.Reason.empty());
  }
  // What other programs would take for another's path, or not at all, goes by the short name that
  // the volume may keep.
  const std::string it = Folder / "it", part(200, 'x');
  for (const std::string& name : {"ends./odd.bat"s, part + "/" + part + "/odd.bat"}) {
    Folder.Make({name + "=@echo odd> \"" + it + "\"\r\n@move \"" + it + "\" \"" + Folder / "done" +
                 "\"\r\n"});
    const bool hasShort = GetShortPathNameW(LongPath(Folder / name).c_str(), nullptr, 0) < MAX_PATH;
    EXPECT_EQ(Launcher.OpenFiles({Folder / name}, Folder.Path()).empty(), hasShort);
    if (hasShort && name.starts_with("ends.")) {
      EXPECT_EQ(Told().front(), "odd");
    }
  }
  for (const bool agrees : {false, true}) {
    Dialogs.Yes = agrees;
    EXPECT_EQ(Launcher.OpenFiles(Texts(31, bad[0]), Folder.Path()).size(), agrees ? 31U : 0U);
  }
}

}  // namespace
}  // namespace tarnwell::platform
