// The main form's object: owns what lives for the whole run, wires it together, and runs the start
// and the shutdown. Holds no other logic.
#pragma once

#include <string>

#include "commands/Dispatcher.h"
#include "commands/Switches.h"
#include "fileops/NewFolder.h"
#include "lists/ListCommands.h"
#include "lists/ListEventHandler.h"
#include "lists/Navigation.h"
#include "settings/LoadLastSettings.h"
#include "settings/SettingsFile.h"
#include "settings/Skin.h"
#include "settings/SkinColours.h"
#include "shell/MessageBox.h"
#include "shell/Services.h"
#include "shell/Splash.h"
#include "tools/CompareFolders.h"
#include "workspace/FormLayout.h"
#include "workspace/PaneSet.h"
#include "workspace/Splitters.h"
#include "workspace/Workspace.h"

namespace tarnwell::shell {

class Master : private workspace::PaneHooks {
 public:
  // The start is shown on `splash`, which must live as long as Load runs.
  Master(const Services& services, Splash& splash);

  workspace::MainForm& Form() { return space_.Form; }
  workspace::Workspace& Space() { return space_; }
  const commands::Dispatcher& Commands() const { return commands_; }
  MessageBox& Messages() { return messages_; }

  // Handler of the form's load: runs the stages in order. A failing one is named to the user, and
  // sets StartFailed on the splash; else LoadFinished is set.
  void Load();
  // Tells the lists that the program ends and closes every form. Ignores every error.
  void UnloadAllForms();

  // The part of the shutdown that needs no window, for when the display is gone: saves the settings
  // and takes the run marker away. Nothing before the load is done, nor after the form's unload.
  void SaveWithoutWindows();

  // --- What the user and the window do to the form.

  void Resize();
  void MenuClick(std::string_view name);
  void ButtonClick(std::string_view key);
  void ClosePaneClick(int pane) { panes_.ChangePanes(pane); }
  void TitleClick(int pane);
  void TitleMouseDown(int pane);
  // The mouse over the form's own surface, in twips; a press and a release of any button.
  void MouseMove(float x, float y) { splitters_.MouseMove(x, y); }
  void MouseDown(float x, float y) { splitters_.MouseDown(x, y); }
  void MouseUp() { splitters_.MouseUp(); }
  void TitleMouseMove(int pane) { layout_.TitleMouseMove(pane); }
  // Over the form but no list; a notch away from the user is 120.
  void WheelTurned(int delta);
  // Gives up the drag of a splitter if one runs; else the active list stops what it does.
  void EscapeKey();
  void KeyUp();
  void ChangeResizeFlag(bool value) { space_.Form.ResizeEnabled = value; }

 private:
  struct Stage;
  static const Stage Stages[];

  // The stages, in their order.
  void SetUpMenus();
  void LinkMenus();
  void AssignImages();
  void DetectEnvironment();
  void CreateToolbars();
  void SetInitialProperties();
  void CheckShutDown();
  void GetLastSettings();
  void PlaceRunFile();
  void PrepareViews();
  void GetMouseInformation();
  void ShowActiveList();

  void SetControlProperties();
  void ResetStartItems();
  void Shutdown();
  void Close();

  void ReplayPaneSettings(int pane) override { settingsFile_.ReplayPaneSettings(pane); }
  void ApplySkinChange() override { skin_.ApplySkinChange(); }
  void LoadFolders(int pane) override { navigation_.LoadFolders(pane); }
  void LoadPaneDrive(int pane) override { navigation_.LoadPaneDrive(pane); }

  std::string ProgramFile(std::string_view name) const;

  Services services_;
  Splash& splash_;
  workspace::Workspace space_;
  MessageBox messages_;
  workspace::FormLayout layout_;
  settings::SkinColours colours_{};
  commands::Switches switches_;
  settings::SettingTargets targets_;
  settings::SettingsFile settingsFile_;
  settings::Skin skin_;
  workspace::PaneSet panes_;
  workspace::Splitters splitters_;
  lists::Navigation navigation_;
  fileops::DialogFields dialogFields_;
  fileops::NewFolder newFolder_;
  lists::ListEventHandler events_;
  lists::ListCommands listCommands_;
  tools::FolderComparison comparison_;
  commands::Dispatcher commands_;
  settings::ReadMarkers markers_;
  bool toSave_ = false;  // the load is done, and nothing is saved yet
};

}  // namespace tarnwell::shell
