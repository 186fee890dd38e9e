// A desktop with a few applications, which tell how they were started, and dialogs and windows
// that note what they are asked and answer what a test says.
#pragma once

#include <gio/gio.h>

#include "NotedDialogs.h"
#include "TempFolder.h"
#include "fakes/FakeForms.h"
#include "platform/ItemWindows.h"

namespace tarnwell::platform {

// Registrations of its own. Made before main, since GLib looks for the user's but once.
struct TestDesktop {
  static constexpr const char* OddName = "-a $HOME;false `id` 'q\" \xff%u";

  TestDesktop() {
    setenv("XDG_DATA_HOME", Folder.Path().c_str(), 1);
    setenv("XDG_CONFIG_HOME", Folder.Path().c_str(), 1);
    setenv("XDG_CURRENT_DESKTOP", "", 1);
    // Each program tells its name, its folder, what it was given and whether it got a descriptor.
    const std::string place = "'" + Folder.Path() + "/'";
    const std::string tell =
        "#!/bin/sh\n{ echo \"${0##*/} in $PWD\"; for each; do echo \"[$each]\"; done;"
        "[ -e /proc/$$/fd/9 ] && echo leak; } > " +
        place + "new.$$; mv " + place + "new.$$ " + place + "log.\"${0##*/}\"\n";
    for (const char* name : {"open it", "viewer", "windowed", "tool", OddName})
      Put(Folder / name, tell, 0755);
    // The worst of terminals: a shell reads all of its words once more.
    Put(Folder / "terminal", "#!/bin/sh\nshift\nexec sh -c \"$*\"\n", 0755);
    Folder.Make({"applications/opener.desktop=" + Entry("\"" + Folder / "open it" + "\" %U"),
                 "applications/viewer.desktop=" + Entry(Folder / "viewer" + " %F", "See & show") +
                     "Icon=eye\n",
                 "applications/windowed.desktop=" + Entry(Folder / "windowed" + " --new %F"),
                 "applications/tool.desktop=" + Entry(Folder / "tool") + "Terminal=true\n",
                 "mimeapps.list="
                 "[Default Applications]\ntext/plain=opener.desktop\nimage/png=viewer.desktop\n"
                 "application/x-shellscript=opener.desktop\n"
                 "inode/directory=viewer.desktop\nx-scheme-handler/odd=opener.desktop\n"
                 "[Added Associations]\ntext/plain=viewer.desktop\n"});
    // GLib loses what it has read of types when it is first asked where they are described.
    g_content_type_get_mime_dirs();
  }
  static std::string Entry(const std::string& command, const std::string& name = "x") {
    return "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + command + "\n";
  }
  // What the started program told; empty after ten seconds without it.
  std::string Told(const std::string& program) const {
    const std::string log = Folder / ("log." + program);
    for (int wait = 0; wait < 1000 && access(log.c_str(), F_OK) != 0; ++wait) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    const std::string told = Get(log);
    unlink(log.c_str());
    return told;
  }

  bool WasTold(const std::string& program, const std::string& part) const {
    return Told(program).find(part) != std::string::npos;
  }

  const TempFolder Folder;
};

inline const TestDesktop desktop;

struct NotedWindows : ItemWindows {
  std::string Noted;
  std::vector<ApplicationChoice> Offered;
  std::optional<ChosenApplication> Choice;
  RunChoice Run = RunChoice::Cancel;

  void ShowProperties(const std::vector<std::string>& paths) override {
    for (const std::string& path : paths) Noted += "properties " + path + "|";
  }
  std::optional<ChosenApplication> ChooseApplication(
      const std::string& path, const std::string& type,
      const std::vector<ApplicationChoice>& applications) override {
    Noted += "choose " + path + " " + type + "|";
    Offered = applications;
    return Choice;
  }
  RunChoice AskRun(const RunQuestion& question) override {
    Noted += "run";
    for (const std::string& path : question.Programs) {
      Noted += " " + std::filesystem::path(path).filename().string();
    }
    if (!question.Command.empty()) Noted += " (" + question.Command + ")";
    Noted += " of " + std::to_string(question.Files) + (question.CanOpen ? ", or open|" : "|");
    return Run;
  }
  void OpenFolder(const std::string& path) override { Noted += "open " + path + "|"; }
};

}  // namespace tarnwell::platform
