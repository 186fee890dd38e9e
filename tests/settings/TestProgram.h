// A program in memory as far as its settings go.
#pragma once

#include "lists/TestLists.h"
#include "settings/LoadLastSettings.h"
#include "settings/SettingsFile.h"
#include "settings/frmSkinChooser.h"
#include "workspace/PaneSet.h"

namespace tarnwell::settings {

// One run of the program as far as its settings go: loaded at its start, saved at its end.
class TestProgram : public lists::TestLists, public workspace::PaneHooks, public ViewSwitches {
 public:
  explicit TestProgram(SharedPlatform platform = std::make_shared<fakes::FakePlatform>())
      : TestLists(std::move(platform)) {
    Platform.Files.AddFile("C:\\Tarnwell\\skins\\Earl Grey.twk", "\"Version\",1,0,0,0,0\r\n");
    Space.Lists.Create(0);
  }

  // The start with this settings file, or with what the last run has saved.
  ReadMarkers StartWith(const std::string& content) {
    Platform.Files.AddFile(Path, content);
    return Start();
  }
  ReadMarkers Start() {
    return LoadLastSettings({Space, Panes, File, CurrentSkin, *this, Platform.Files.Syntax(),
                             [this](const std::string& text) { Status.push_back(text); }});
  }
  fakes::MemoryItem& AddSkin(const std::string& name, const std::string& content) {
    return Platform.Files.AddFile("C:\\Tarnwell\\skins\\" + name, content);
  }
  void ReplayPaneSettings(int pane) override { File.ReplayPaneSettings(pane); }
  void ApplySkinChange() override { CurrentSkin.ApplySkinChange(); }
  void LoadFolders(int pane) override { Nav.LoadFolders(pane); }
  void LoadPaneDrive(int pane) override { Nav.LoadPaneDrive(pane); }
  void ShowColor(bool show) override { Space.Form.Menus["mnuColorOn"].Checked = show; }
  void ShowCommandLine(bool show, bool noLayout) override {
    EXPECT_TRUE(noLayout);
    Space.Form.Menus["mnuCommandOn"].Checked = show;
  }
  void SetCompareMode() override {}

  const std::string Path = "C:\\Tarnwell\\user.usr";
  SkinColours Colours{};
  SettingTargets Targets{Space, Layout, Colours, *this};
  SettingsFile File{Platform.Files, Path, Targets};
  SkinFiles Skins{Platform.Files, Platform.Stamps, "C:\\Tarnwell\\skins"};
  Skin CurrentSkin{Skins, Targets, Messages};
  fakes::FakeDialogs Dialogs;
  frmSkinChooser Chooser{{Host, Platform.Files, Platform.Drives, Dialogs, Messages},
                         Targets,
                         CurrentSkin,
                         Skins,
                         400000042};
  workspace::PaneSet Panes{Space, Layout, Host, Messages, *this};
  workspace::Texts Status;
};

}  // namespace tarnwell::settings
