// The main form's object: owns what lives for the whole run, wires it together, and runs the start
// and the shutdown. Holds no other logic.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "commands/Commands.h"
#include "commands/KeyTable.h"
#include "commands/Keyboard.h"
#include "commands/Switches.h"
#include "fileops/DeleteSelection.h"
#include "fileops/DropItems.h"
#include "fileops/DuplicateItems.h"
#include "fileops/FileOperate.h"
#include "fileops/NewFolder.h"
#include "fileops/RenameItem.h"
#include "fileops/UndoCommand.h"
#include "lists/FoundListEvents.h"
#include "lists/ListCommands.h"
#include "lists/ListEventHandler.h"
#include "lists/Navigation.h"
#include "settings/LoadLastSettings.h"
#include "settings/SettingsFile.h"
#include "settings/Skin.h"
#include "settings/SkinColours.h"
#include "settings/SkinFiles.h"
#include "settings/frmOptions.h"
#include "settings/frmSkinChooser.h"
#include "shell/MessageBox.h"
#include "shell/OwnForms.h"
#include "shell/Services.h"
#include "shell/Splash.h"
#include "shellmenu/ShowShellMenu.h"
#include "shellmenu/TitleMenu.h"
#include "tools/CommandLine.h"
#include "tools/CompareFolders.h"
#include "tools/FileListing.h"
#include "tools/FoundLists.h"
#include "tools/LoggedListEvents.h"
#include "tools/UpdateCheck.h"
#include "tools/frmFind.h"
#include "tools/frmHelp.h"
#include "tools/frmTip.h"
#include "workspace/FormLayout.h"
#include "workspace/PaneSet.h"
#include "workspace/Splitters.h"
#include "workspace/SystemTray.h"
#include "workspace/Workspace.h"

namespace tarnwell::shell {

class Master : private workspace::PaneHooks,
               private commands::ProgramCommands,
               private commands::KeyActions {
 public:
  // The start is shown on `splash`, which must outlive this: it is the About box too.
  Master(const Services& services, const base::Version& version, Splash& splash);

  workspace::MainForm& Form() { return space_.Form; }
  workspace::Workspace& Space() { return space_; }
  MessageBox& Messages() { return messages_; }

  // Handler of the form's load: runs the stages in order. A failing one is named to the user, and
  // sets StartFailed on the splash; else LoadFinished is set.
  void Load();
  // The tip of the day, if the user wants it at the start.
  void ShowTipAtStart() { tips_.ShowOver(space_.Form); }
  // Tells the lists that the program ends and closes every form. Ignores every error.
  void UnloadAllForms();

  // The part of the shutdown that needs no window, for when the display is gone: saves the settings
  // and takes the run marker away. Nothing before the load is done, nor after the form's unload.
  void SaveWithoutWindows();

  // --- What the user and the window do to the form.

  void Resize();
  // `asked` by the user; see tools/UpdateCheck.h.
  void CheckForUpdate(bool asked) { updates_.CheckForUpdate(asked); }
  // Title rows get room for text of that height, in twips, and never less than their usual one.
  // Takes effect with the next Resize.
  void FitTitles(base::Twips textHeight);
  void MenuClick(std::string_view name);
  void ButtonClick(std::string_view key);
  void CommandEnter(bool shift) { commandLine_.Enter(shift); }  // Enter in cboCommand
  void ClosePaneClick(int pane) { panes_.ChangePanes(pane); }
  void TitleClick(int pane);
  void TitleMouseDown(int pane);
  // The picture in the title: what a click on the title does, then the title's menu.
  void TitlePictureClick(int pane);
  // The mouse over the form's own surface, in twips; a press and a release of any button.
  void MouseMove(float x, float y) { splitters_.MouseMove(x, y); }
  void MouseDown(float x, float y) { splitters_.MouseDown(x, y); }
  void MouseUp() { splitters_.MouseUp(); }
  void TitleMouseMove(int pane) { layout_.TitleMouseMove(pane); }
  // From the task bar or the notification area; does nothing to a window that is on the screen.
  void BringBack();
  // To the folder in the pane of the current list, as a bookmark does.
  void OpenFolder(const std::string& path);
  // Full paths, one in each pane from the first on, which are opened; a minimised window comes
  // back.
  void OpenFolders(const std::vector<std::string>& paths);
  // Over the form but no list; a notch away from the user is 120.
  void WheelTurned(int delta);
  // A key, before the control that has the keyboard sees it; see Keyboard.h.
  void KeyDown(int code, int shift) { keyboard_.KeyDown(code, shift); }
  // Of the list of what was found.
  void FoundListKeyDown(int code, int shift) {
    keyboard_.KeyDownOf(lister::FoundList, code, shift);
  }
  void KeyUp() { keyboard_.KeyUp(); }
  // Keys of the window as a whole; see KeyTable.h.
  void PressKeys(std::string_view keys) {
    splitters_.GiveUp();
    commands::RunKeys(keys, {space_, panes_, layout_, navigation_, listCommands_, newFolder_, drop_,
                             undo_, messages_, *this});
  }
  // Keys may have come up while another window, or a menu, had them.
  void Activated() { keyboard_.Activated(services_.Keys.Held()); }
  void ChangeResizeFlag(bool value) { space_.Form.ResizeEnabled = value; }

 private:
  struct Stage;
  static const Stage Stages[];

  // The stages, in their order.
  void LinkMenus();
  void AssignImages();
  void DetectEnvironment();
  void CreateToolbars();
  void SetInitialProperties();
  void TellOfAside();
  void TellOfTrouble(const std::vector<std::string>& lines);
  void CheckShutDown();
  void GetLastSettings();
  void PlaceRunFile();
  void PrepareViews();
  void GetMouseInformation();
  void ShowActiveList();

  void SetControlProperties();
  base::Status MakeRunMarker();
  void Shutdown();
  void SaveOnce();
  void RemoveMarkerOnce();
  void ReplayPaneSettings(int pane) override { settingsFile_.ReplayPaneSettings(pane); }
  void ApplySkinChange() override { skin_.ApplySkinChange(); }
  void LoadFolders(int pane) override;
  void LoadPaneDrive(int pane) override { navigation_.LoadPaneDrive(pane); }

  void Exit() override;
  void ShowOptions() override;
  void FindFiles() override { find_.ShowOver(space_.Form); }
  void SaveFileListing() override { listing_.SaveFileListing(); }
  void OpenRecycleBin() override;
  void EmptyRecycleBin() override;
  void MapNetworkDrive() override;
  void DisconnectNetworkDrive() override;
  void ShowTips() override;
  void ColorChooser() override { skinChooser_.ColorChooser(space_.Form); }
  void OpenHelp() override { help_.ShowOver(space_.Form); }
  void OpenWebSite() override { OpenOutside("site " + services_.Site, services_.Site); }
  void OpenGuide();
  // In the application for such documents or addresses; tells where it cannot be.
  void OpenOutside(const std::string& name, const std::string& address);
  void ShowAbout() override;
  void CheckForUpdate() override { CheckForUpdate(true); }
  void RestoreWindow() override { tray_.RestoreWindow(); }
  void ExitFromTray() override;

  // Gives up the drag of a splitter or a check for updates if one runs; else the active list stops
  // what it does.
  void EscapeKey() override;
  void RenameItem(bool byKey) override { rename_.RenameItem(byKey); }
  void RenameItems() override { renameItems_.RenameSelected(); }
  void OpenTitleMenu() override;
  void ShowShellMenu(shellmenu::MenuMode mode) override {
    contextMenu_.ShowShellMenu(0, 0, "", mode);
  }
  void DeleteSelection(bool permanent) override { delete_.DeleteSelection(permanent); }
  void FileOperate(const std::string& action, lister::ListId source, lister::ListId target,
                   const std::string& folder) override {
    operations_.FileOperate(action, source, target, folder, true, "");
  }

  void MakeOwnForms(const OwnWindows& windows);
  lists::ListRequests RequestsOfLists();
  lister::ListerEvents& ListEvents(lister::ListId list);
  std::string ProgramFile(std::string_view name) const;

  Services services_;
  Splash& splash_;
  workspace::Workspace space_;
  MessageBox messages_;
  workspace::SystemTray tray_;
  workspace::FormLayout layout_;
  settings::SkinColours colours_{};
  commands::Switches switches_;
  settings::SettingTargets targets_;
  settings::SettingsFile settingsFile_;
  settings::SkinFiles skinFiles_;
  settings::Skin skin_;
  settings::frmSkinChooser skinChooser_;
  settings::frmOptions options_;
  tools::frmHelp help_;
  tools::frmTip tips_;
  workspace::PaneSet panes_;
  workspace::Splitters splitters_;
  lists::Navigation navigation_;
  fileops::DialogFields dialogFields_;
  fileops::NewFolder newFolder_;
  fileops::RenameCommand rename_;
  fileops::RenameItemsCommand renameItems_;
  fileops::FileOperations operations_;
  fileops::DeleteCommand delete_;
  fileops::DuplicateCommand duplicate_;
  std::optional<OwnForms> own_;  // where the system's shell has none
  fileops::UndoCommand undo_;
  shellmenu::ContextMenuCommand contextMenu_;
  shellmenu::TitleMenu titleMenu_;
  fileops::DropCommand drop_;
  lists::ListEventHandler events_;
  lists::FoundListEvents foundEvents_;
  std::unique_ptr<tools::LoggedListEvents> loggedEvents_;  // null unless messages are logged
  lists::ListCommands listCommands_;
  tools::FolderComparison comparison_;
  tools::FileListing listing_;
  tools::CommandLine commandLine_;
  tools::FoundLists foundLists_;
  tools::frmFind find_;
  tools::UpdateCheck updates_;
  commands::Commands commands_;
  commands::Keyboard keyboard_;
  settings::ReadMarkers markers_;
  bool toSave_ = false;    // the load is done, and nothing is saved yet
  bool toUnmark_ = false;  // the load is done, and the run marker is there
};

}  // namespace tarnwell::shell
