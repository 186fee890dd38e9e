#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "TempFolder.h"
#include "platform/linux/LinuxLauncher.h"

namespace tarnwell::platform {
namespace {

// Registrations of its own. Made before main, since GLib looks for the user's but once.
struct Desktop {
  Desktop() {
    setenv("XDG_DATA_HOME", Folder.Path().c_str(), 1);
    setenv("XDG_CONFIG_HOME", Folder.Path().c_str(), 1);
    setenv("XDG_CURRENT_DESKTOP", "", 1);
    std::filesystem::create_directory(Folder / "applications");
    // Each program tells its name, its folder, what it was given and whether it got a descriptor.
    const std::string place = "'" + Folder.Path() + "/'";
    const std::string tell =
        "#!/bin/sh\n{ echo \"${0##*/} in $PWD\"; for each; do echo \"[$each]\"; done;"
        "[ -e /proc/$$/fd/9 ] && echo leak; } > " +
        place + "new; mv " + place + "new " + place + "log\n";
    for (const char* name : {"open it", "windowed", "terminal", "tool"}) Write(name, tell, 0755);
    Write("applications/opener.desktop", Entry("\"" + Folder / "open it" + "\" %u"));
    Write("applications/windowed.desktop", Entry(Folder / "windowed" + " --new %F"));
    Write("applications/tool.desktop", Entry(Folder / "tool") + "Terminal=true\n");
    Write("mimeapps.list",
          "[Default Applications]\ntext/plain=opener.desktop\n"
          "x-scheme-handler/odd=opener.desktop\n");
  }
  static std::string Entry(const std::string& command) {
    return "[Desktop Entry]\nType=Application\nName=x\nExec=" + command + "\n";
  }
  void Write(const std::string& name, const std::string& content, mode_t mode = 0644) const {
    std::ofstream(Folder / name) << content;
    chmod((Folder / name).c_str(), mode);
  }
  // What the started program told; empty after ten seconds without it.
  std::string Told() const {
    for (int wait = 0; wait < 1000 && access(Log.c_str(), F_OK) != 0; ++wait) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    const std::string told = Get(Log);
    unlink(Log.c_str());
    return told;
  }

  const TempFolder Folder;
  const std::string Log = Folder / "log";
} const desktop;

TEST(LinuxLauncher, OpensDocumentsAndAddresses) {
  const std::string text = desktop.Folder / "a \xff$(b) %u.txt", odd = desktop.Folder / "odd";
  const std::string here = std::filesystem::current_path();
  Put(text, "some text\n");
  Put(odd, std::string("\0\1\2", 3));
  EXPECT_TRUE(LinuxLauncher().Execute({text, "", ""}));
  EXPECT_EQ(desktop.Told(), "open it in " + here + "\n[" + text + "]\n");
  EXPECT_TRUE(LinuxLauncher().Execute({"odd://place?a=b&c", "", ""}));
  EXPECT_EQ(desktop.Told(), "open it in " + here + "\n[odd://place?a=b&c]\n");

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
  EXPECT_EQ(desktop.Told(), "windowed in /usr\n[a]\n[b c]\n[$HOME]\n[;]\n[>x]\n");
  setenv("TERMINAL", (folder + "/terminal").c_str(), 1);
  EXPECT_TRUE(LinuxLauncher().Execute({"tool", "-l", folder}));
  EXPECT_EQ(desktop.Told(), "terminal in " + folder + "\n[-e]\n[" + folder + "/tool]\n[-l]\n");
  EXPECT_TRUE(LinuxLauncher().Execute({"true", "", ""}));
  EXPECT_NE(desktop.Told().find("/true]\n"), std::string::npos);
  unsetenv("TERMINAL");
  close(9);
  close(leaking);

  EXPECT_FALSE(LinuxLauncher().Execute({folder + "/windowed", "'open", ""}));
  EXPECT_FALSE(LinuxLauncher().Execute({folder + "/windowed", "x", folder + "/missing"}));
  EXPECT_TRUE(waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD);  // none left behind
}

}  // namespace
}  // namespace tarnwell::platform
