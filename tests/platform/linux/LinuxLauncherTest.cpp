#include <sys/wait.h>

#include "TestDesktop.h"
#include "fakes/FakePlatform.h"
#include "platform/linux/menu/FileOpener.h"
#include "platform/linux/menu/LinuxLauncher.h"
#include "platform/linux/menu/StartProgram.h"
#include "platform/linux/menu/TerminalCall.h"

namespace tarnwell::platform {
namespace {

// In a terminal the tests stand for the program, ahead of all that is static here.
[[gnu::constructor(101)]] void AnswerInTerminal(int count, char** arguments) {
  if (const auto code = AnswerTerminalCall(count, arguments)) _exit(*code);
}

class LinuxLauncherTest : public testing::Test {
 protected:
  NotedDialogs Dialogs;
  NotedWindows Windows;
  fakes::FakeNumberForms Forms;
  LinuxLauncher Launcher{{Dialogs, Windows, Forms}};
};

TEST_F(LinuxLauncherTest, OpensDocumentsAndAddresses) {
  const std::string text = desktop.Folder / "a \xff$(b) %u.txt", odd = desktop.Folder / "odd";
  const std::string here = std::filesystem::current_path();
  Put(text, "some text\n");
  Put(odd, std::string("\0\1\2", 3));
  EXPECT_TRUE(Launcher.Execute({text, "", ""}));
  EXPECT_EQ(desktop.Told("open it"), "open it in " + here + "\n[" + text + "]\n");
  EXPECT_TRUE(Launcher.Execute({"odd://place?a=b&c", "", ""}));
  EXPECT_EQ(desktop.Told("open it"), "open it in " + here + "\n[odd://place?a=b&c]\n");

  const base::Status unknown = Launcher.Execute({odd, "", ""});
  EXPECT_NE(unknown.Reason.find("(application/octet-stream)"), std::string::npos) << unknown.Reason;
  const base::Status scheme = Launcher.Execute({"strange:address", "", ""});
  EXPECT_NE(scheme.Reason.find("(strange)"), std::string::npos) << scheme.Reason;
  EXPECT_EQ(Launcher.Execute({odd + "2", "", ""}).Code, ENOENT);
  EXPECT_EQ(Launcher.Execute({"no-such-program-anywhere", "x", "/"}).Code, ENOENT);
}

TEST_F(LinuxLauncherTest, StartsProgramsInTheirFolderAndTerminal) {
  const std::string folder = desktop.Folder.Path();
  const int leaking = open("/dev/null", O_RDONLY);
  dup2(leaking, 9);
  const std::string words = "a  'b c' \"$HOME\" ; >x";
  EXPECT_TRUE(Launcher.Execute({folder + "/windowed", words, "/usr"}));
  EXPECT_EQ(desktop.Told("windowed"), "windowed in /usr\n[a]\n[b c]\n[$HOME]\n[;]\n[>x]\n");
  // No terminal reads names in its own way, nor does an application's own wish for one change that.
  setenv("TERMINAL", (folder + "/terminal").c_str(), 1);
  const std::string odd = desktop.OddName;
  EXPECT_TRUE(Launcher.Execute({"./" + odd, "-l '' '$HOME'", folder}));
  EXPECT_EQ(desktop.Told(odd), odd + " in " + folder + "\n[-l]\n[]\n[$HOME]\n");
  desktop.Folder.Make(
      {"applications/tty.desktop=" + desktop.Entry(folder + "/tool %f") + "Terminal=true\n"});
  Opener opener;
  EXPECT_TRUE(FindOpener(folder + "/applications/tty.desktop", opener));
  EXPECT_TRUE(Launch(opener.Entry.get(), {folder + "/" + odd}));
  EXPECT_NE(desktop.Told("tool").find("\n[" + folder + "/" + odd + "]\n"), std::string::npos);
  // A bare name means PATH, and never the folder.
  EXPECT_EQ(Launcher.Execute({"tool", "-l", folder}).Code, ENOENT);
  EXPECT_EQ(OpenWithCommand("tool -l", {"x"}, folder, {}).Code, ENOENT);
  EXPECT_TRUE(OpenWithCommand("./tool -l", {"$x y"}, folder, {}));
  EXPECT_EQ(desktop.Told("tool"), "tool in " + folder + "\n[-l]\n[$x y]\n");
  const std::string path = getenv("PATH");
  setenv("PATH", (path + ":" + folder).c_str(), 1);
  EXPECT_TRUE(OpenWithCommand("tool", {"x"}, "/usr", {}));
  EXPECT_EQ(desktop.Told("tool"), "tool in /usr\n[x]\n");
  setenv("PATH", path.c_str(), 1);
  close(9);
  close(leaking);

  EXPECT_FALSE(Launcher.Execute({folder + "/windowed", "'open", ""}));
  EXPECT_FALSE(Launcher.Execute({folder + "/windowed", "x", folder + "/missing"}));
  Put(folder + "/broken",
      "\x7f"
      "ELF\2\1\1 and no more",
      0755);
  EXPECT_EQ(StartProgram({folder + "/broken"}, "", StartIn::OwnWindows).Code, ENOEXEC);
  EXPECT_TRUE(waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD);  // none left behind
}

// What a bare name means, what leads into a pane, and what starts nothing at all.
TEST_F(LinuxLauncherTest, TakesWhatIsTypedForWhatItIs) {
  const std::string folder = desktop.Folder.Path();
  for (const std::string name : {"letter", "strange:letter"}) {
    Put(folder + "/" + name, "text\n");
    EXPECT_TRUE(Launcher.Execute({name, "", folder}));
    EXPECT_TRUE(desktop.Told("open it").ends_with("\n[" + folder + "/" + name + "]\n"));
  }
  EXPECT_TRUE(Launcher.Execute({"applications", "", folder + "/"}));
  EXPECT_TRUE(Launcher.Execute({"..", "", folder + "/applications/"}));
  EXPECT_TRUE(Launcher.Execute({"/", "", ""}));
  EXPECT_EQ(Windows.Noted, "open " + folder + "/applications|open " + folder + "|open /|");
  using namespace std::string_literals;
  const std::string tool = folder + "/tool", gone = folder.substr(0, 3) + "..." + folder;
  for (const LaunchRequest& each : {LaunchRequest{"", "", folder},
                                    {tool, "'open", folder},
                                    {tool, "a\0b"s, folder},
                                    {tool + "\0"s, "", folder},
                                    {tool, "", gone},
                                    {"odd://place", "", gone},
                                    {"letter", "\"", folder},
                                    {std::string(100'000, 'x'), "", folder},
                                    {tool, std::string(100'000, 'x'), folder},
                                    {"tool\n", "", folder},
                                    {"true\nx", "", folder}}) {
    EXPECT_FALSE(Launcher.Execute(each)) << each.File.substr(0, 99);
  }
  EXPECT_EQ(access((folder + "/log.tool").c_str(), F_OK), -1);
}

TEST_F(LinuxLauncherTest, AsksBeforeItRunsWhatWasPickedInAList) {
  setenv("TERMINAL", (desktop.Folder / "terminal").c_str(), 1);
  const TempFolder place;
  const auto put = [&place](const char* name, const std::string& content, mode_t mode) {
    Put(place / name, content, mode);
    return place / name;
  };
  const std::string script = put("notes", Get(desktop.Folder / "tool"), 0755);
  const std::string entry =
      put("letter.desktop", desktop.Entry(desktop.Folder / "windowed -x %F"), 0755);
  const std::string binary = put("bin", Get("/usr/bin/true"), 0755);
  const auto open = [this](const std::vector<std::string>& paths, RunChoice choice) {
    Windows.Run = choice;
    for (const LaunchFailure& failure : Launcher.OpenFiles(paths, "/usr")) {
      Windows.Noted += failure.Status.Reason.substr(0, 14) + "|";
    }
    return std::exchange(Windows.Noted, {});
  };
  // The right to be executed makes no program, and a desktop's entry needs it to be one.
  const std::string text = put("a.txt", "echo", 0755);
  for (const std::string& path : {text, put("b.desktop", desktop.Entry("true"), 0644)}) {
    EXPECT_EQ(open({path}, RunChoice::Run), "");
    EXPECT_TRUE(desktop.Told("open it").ends_with("\n[" + path + "]\n"));
  }
  EXPECT_EQ(open({put("c", std::string("\0\1", 2), 0755)}, RunChoice::Run), "No application|");

  EXPECT_EQ(open({script}, RunChoice::Cancel), "run notes of 1, or open|");
  EXPECT_EQ(open({script}, RunChoice::Open), "run notes of 1, or open|");
  EXPECT_TRUE(desktop.Told("open it").ends_with("\n[" + script + "]\n"));
  EXPECT_EQ(open({script}, RunChoice::Run), "run notes of 1, or open|");
  EXPECT_EQ(desktop.Told("notes"), "notes in /usr\n");
  EXPECT_EQ(open({binary}, RunChoice::Run), "run bin of 1|");
  const std::string command = "(" + (desktop.Folder / "windowed") + " -x %F)";
  for (const RunChoice choice : {RunChoice::Run, RunChoice::RunInTerminal}) {
    EXPECT_EQ(open({entry}, choice), "run letter.desktop " + command + " of 1, or open|");
    EXPECT_TRUE(desktop.Told("windowed").ends_with("\n[-x]\n"));
  }
  // Many at once: one question, and what would start unasked alone is in it.
  EXPECT_EQ(open({script, text, "/usr/bin/true"}, RunChoice::RunInTerminal),
            "run notes true of 3|");
  EXPECT_EQ(desktop.Told("notes"), "notes in /usr\n");
  EXPECT_TRUE(desktop.Told("open it").ends_with("\n[" + text + "]\n"));
  EXPECT_TRUE(
      open(std::vector<std::string>(40, entry), RunChoice::Cancel).ends_with("40, or open|"));
  EXPECT_EQ(Dialogs.Told, "");

  // Part of the desktop or the system by their place.
  EXPECT_EQ(open({"/usr/bin/true"}, RunChoice::Cancel), "");
  EXPECT_EQ(open({desktop.Folder / "applications/windowed.desktop"}, RunChoice::Cancel), "");
  EXPECT_NE(desktop.Told("windowed"), "");
  const std::string path = getenv("PATH");
  setenv("PATH", (path + ":" + place.Path()).c_str(), 1);
  chmod(place.Path().c_str(), 0777);
  EXPECT_EQ(open({binary}, RunChoice::Cancel), "run bin of 1|");
  setenv("PATH", path.c_str(), 1);
}

}  // namespace
}  // namespace tarnwell::platform
