// One run of the program as far as its settings go: loaded at its start, saved at its end.
#pragma once

#include <sstream>
#include <string>
#include <utility>

#include "lists/TestLists.h"
#include "settings/LoadLastSettings.h"
#include "settings/SettingsFile.h"
#include "settings/Skin.h"
#include "workspace/PaneSet.h"

namespace tarnwell::settings {

using workspace::Texts;

// Switches that turn what is saved, and count what they are asked to compare.
struct PlainSwitches : ViewSwitches {
  explicit PlainSwitches(workspace::Workspace& space) : Space(space) {}
  void ShowColor(bool show) override { Space.Form.Menus["mnuColorOn"].Checked = show; }
  void ShowCommandLine(bool show, bool noLayout) override {
    EXPECT_TRUE(noLayout);
    Space.Form.Menus["mnuCommandOn"].Checked = show;
  }
  void SetCompareMode() override { ++CompareCalls; }
  workspace::Workspace& Space;
  int CompareCalls = 0;
};

class TestProgram : public lists::TestLists, public workspace::PaneHooks {
 public:
  explicit TestProgram(SharedPlatform platform = std::make_shared<fakes::FakePlatform>())
      : TestLists(std::move(platform)),
        Switches(Space),
        Targets{Space, Layout, Colours, Switches},
        File(Platform.Files, Path, Targets),
        CurrentSkin(Platform.Files, "C:\\Tarnwell\\skins", Targets, Messages),
        Panes(Space, Layout, Host, Messages, *this) {
    Platform.Files.AddFile("C:\\Tarnwell\\skins\\Earl Grey.twk", "\"Version\",1,0,0,0,0\r\n");
    Space.Lists.Create(0);
  }

  // The start with this settings file, or with what the last run has saved.
  ReadMarkers StartWith(const std::string& content) {
    Platform.Files.AddFile(Path, content);
    return Start();
  }
  ReadMarkers Start() {
    return LoadLastSettings({Space, Panes, File, CurrentSkin, Switches, Platform.Files.Syntax(),
                             [this](const std::string& text) { Status.push_back(text); }});
  }
  // The lines of the file that this run leaves.
  Texts Saved() {
    File.SaveSettings();
    Texts lines;
    std::istringstream stream(Platform.Files.At(Path).Content);
    for (std::string line; std::getline(stream, line); lines.push_back(line)) {
      EXPECT_TRUE(line.ends_with('\r')) << line;
      line.pop_back();
    }
    return lines;
  }

  void ReplayPaneSettings(int pane) override { File.ReplayPaneSettings(pane); }
  void ApplySkinChange() override { CurrentSkin.ApplySkinChange(); }
  void LoadFolders(int pane) override { Nav.LoadFolders(pane); }
  void LoadPaneDrive(int pane) override { Nav.LoadPaneDrive(pane); }

  const std::string Path = "C:\\Tarnwell\\user.usr";
  SkinColours Colours{};
  PlainSwitches Switches;
  SettingTargets Targets;
  SettingsFile File;
  Skin CurrentSkin;
  workspace::PaneSet Panes;
  Texts Status;
};

}  // namespace tarnwell::settings
