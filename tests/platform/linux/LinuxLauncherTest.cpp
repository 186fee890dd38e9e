#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "TestDesktop.h"
#include "platform/linux/LinuxLauncher.h"

namespace tarnwell::platform {
namespace {

TEST(LinuxLauncher, OpensDocumentsAndAddresses) {
  const std::string text = desktop.Folder / "a \xff$(b) %u.txt", odd = desktop.Folder / "odd";
  const std::string here = std::filesystem::current_path();
  Put(text, "some text\n");
  Put(odd, std::string("\0\1\2", 3));
  EXPECT_TRUE(LinuxLauncher().Execute({text, "", ""}));
  EXPECT_EQ(desktop.Told("open it"), "open it in " + here + "\n[" + text + "]\n");
  EXPECT_TRUE(LinuxLauncher().Execute({"odd://place?a=b&c", "", ""}));
  EXPECT_EQ(desktop.Told("open it"), "open it in " + here + "\n[odd://place?a=b&c]\n");

  const base::Status unknown = LinuxLauncher().Execute({odd, "", ""});
  EXPECT_NE(unknown.Reason.find("(application/octet-stream)"), std::string::npos) << unknown.Reason;
  const base::Status scheme = LinuxLauncher().Execute({"strange:address", "", ""});
  EXPECT_NE(scheme.Reason.find("(strange)"), std::string::npos) << scheme.Reason;
  EXPECT_EQ(LinuxLauncher().Execute({odd + "2", "", ""}).Code, ENOENT);
  EXPECT_EQ(LinuxLauncher().Execute({"no-such-program-anywhere", "x", "/"}).Code, ENOENT);
}

TEST(LinuxLauncher, StartsProgramsInTheirFolderAndTerminal) {
  const std::string folder = desktop.Folder.Path();
  const int leaking = open("/dev/null", O_RDONLY);
  dup2(leaking, 9);
  const std::string words = "a  'b c' \"$HOME\" ; >x";
  EXPECT_TRUE(LinuxLauncher().Execute({folder + "/windowed", words, "/usr"}));
  EXPECT_EQ(desktop.Told("windowed"), "windowed in /usr\n[a]\n[b c]\n[$HOME]\n[;]\n[>x]\n");
  setenv("TERMINAL", (folder + "/terminal").c_str(), 1);
  EXPECT_TRUE(LinuxLauncher().Execute({"tool", "-l", folder}));
  EXPECT_EQ(desktop.Told("terminal"),
            "terminal in " + folder + "\n[-e]\n[" + folder + "/tool]\n[-l]\n");
  EXPECT_TRUE(LinuxLauncher().Execute({"true", "", ""}));
  EXPECT_NE(desktop.Told("terminal").find("/true]\n"), std::string::npos);
  unsetenv("TERMINAL");
  close(9);
  close(leaking);

  EXPECT_FALSE(LinuxLauncher().Execute({folder + "/windowed", "'open", ""}));
  EXPECT_FALSE(LinuxLauncher().Execute({folder + "/windowed", "x", folder + "/missing"}));
  EXPECT_TRUE(waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD);  // none left behind
}

}  // namespace
}  // namespace tarnwell::platform
