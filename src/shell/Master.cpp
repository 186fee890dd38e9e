#include "shell/Master.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "commands/MenuTable.h"
#include "commands/ToolbarTable.h"
#include "shell/ProgramFiles.h"
#include "workspace/Highlight.h"

namespace tarnwell::shell {
namespace {

// Where the window stands until the settings say otherwise.
constexpr base::Twips StartLeft = 1500;
constexpr base::Twips StartTop = 1050;
constexpr base::Twips StartWidth = 15600;
constexpr base::Twips StartHeight = 10200;

workspace::FormTables Tables() {
  return {.Menu = commands::MenuTable(),
          .Toolbar = commands::ToolbarTable(),
          .Images = commands::ImageKeys()};
}

}  // namespace

Master::Master(const Services& services, const base::Version& version, Splash& splash)
    : services_(services),
      splash_(splash),
      space_(Tables(),
             [this](lister::ListId list) {
               return std::make_unique<lister::ListerControl>(
                   list,
                   lister::ListServices{services_.Files, services_.Drives, services_.Watches,
                                        services_.Pump, services_.Clock, services_.Order,
                                        services_.Launcher, services_.Forms, services_.Stamps,
                                        space_.Cut, space_.OpenBrackets},
                   ListEvents(list));
             }),
      messages_(services_.Host, space_.Form),
      tray_(space_, services_.Tray, [this] { MenuClick("mPopExit"); }),
      layout_(space_, messages_, tray_),
      switches_(space_, layout_,
                [this](std::string_view name, const base::Value& value) {
                  skin_.SendProperty(name, value);
                  options_.ShowSettings();
                }),
      targets_{space_, layout_, colours_, switches_},
      settingsFile_(services_.Files, ProgramFile(SettingsName), targets_),
      skinFiles_(services_.Files, services_.Stamps, services_.System.SkinFolder()),
      skin_(skinFiles_, targets_, messages_),
      skinChooser_(
          {services_.Host, services_.Files, services_.Drives, services_.Dialogs, messages_},
          targets_, skin_, skinFiles_, version.Number()),
      options_(space_, switches_, skin_, services_.Host),
      help_(services_.Host, [this] { OpenGuide(); }),
      tips_({services_.Host, services_.Files, services_.Clock, services_.User, messages_, markers_,
             [this] { OpenHelp(); }},
            services_.System.FolderOf(tools::TipsName)),
      panes_(space_, layout_, services_.Host, messages_, *this),
      splitters_(space_, layout_, services_.Host),
      navigation_(space_, services_.Files.Syntax(), services_.Host),
      newFolder_(space_, services_.Files, services_.Operation, services_.Host, messages_,
                 dialogFields_),
      rename_(space_, services_.Files, services_.Operation, services_.Host, messages_,
              dialogFields_),
      renameItems_(space_, {services_.Files, services_.Operation, services_.Clock, services_.Forms,
                            services_.Host, messages_, services_.Regex}),
      operations_(space_, services_.Files.Syntax(), services_.Operation, navigation_, messages_,
                  dialogFields_),
      delete_(space_, services_.Files.Syntax(), services_.Operation, operations_, navigation_,
              services_.Host, messages_, dialogFields_,
              [this] { return contextMenu_.ShowShellMenu(0, 0, "", shellmenu::MenuMode::Delete); }),
      duplicate_(services_.Files, services_.Operation, services_.Clock, services_.Host, messages_),
      undo_(space_, {services_.Operation, services_.History, services_.Engine, services_.Files,
                     services_.Pump, services_.Clock, services_.Forms, messages_}),
      contextMenu_(space_,
                   {services_.Files.Syntax(), services_.Drives, services_.ItemMenus,
                    services_.ItemPopups, services_.Operation, services_.Forms, services_.Shell},
                   messages_,
                   {newFolder_, rename_, renameItems_, duplicate_, operations_, delete_,
                    [this] { commandLine_.OpenCommandLine(); },
                    [this](const std::string& path) { commandLine_.CompactDatabase(path); },
                    [this] { undo_.Undo(); }, [this] { return undo_.Caption(); },
                    [this](auto items) { undo_.NoteColours(std::move(items)); }}),
      titleMenu_(space_, services_.Files.Syntax(), navigation_, services_.Popups),
      drop_(space_, services_.Files, services_.Drives, operations_, services_.Host, messages_,
            dialogFields_),
      events_(space_, layout_, navigation_, messages_, RequestsOfLists()),
      foundEvents_(space_, navigation_, messages_, RequestsOfLists()),
      loggedEvents_(services_.Log == nullptr
                        ? nullptr
                        : std::make_unique<tools::LoggedListEvents>(events_, *services_.Log)),
      listCommands_(space_),
      comparison_(space_, services_.Host, messages_),
      listing_(space_, {services_.Host, services_.Files, services_.Drives, services_.Dialogs,
                        services_.System, services_.Clock, messages_}),
      commandLine_(space_, services_.Files.Syntax(), services_.Launcher, messages_),
      foundLists_(space_, navigation_, services_.Files, services_.Drives),
      find_({services_.Host,
             services_.Search,
             services_.User,
             services_.Dialogs,
             messages_,
             {services_.Files.Syntax(), services_.Clock, services_.Forms, services_.Regex}},
            foundLists_),
      updates_(space_, {services_.Host, services_.Web, messages_, [this] { OpenWebSite(); }},
               version, services_.Site),
      commands_({space_, panes_, layout_, listCommands_, switches_, comparison_, skin_, *this}),
      keyboard_(space_, messages_, *this) {
  workspace::MainForm& form = space_.Form;
  form.Left = StartLeft;
  form.Top = StartTop;
  form.Width = StartWidth;
  form.Height = StartHeight;
  if (services_.Own) MakeOwnForms(*services_.Own);
  space_.Lists.Create(0);
  space_.Lists.SetUpFound = [this](lister::ListerControl& list) { panes_.SetUpFoundList(list); };
}

lists::ListRequests Master::RequestsOfLists() {
  return {.Close = [this] { Exit(); },
          .CreateNewFolder = [this] { newFolder_.CreateNewFolder(true); },
          .ShowContextMenu =
              [this](float x, float y, const std::string& clicked, const std::string& path) {
                contextMenu_.ShowForClick(x, y, clicked, path);
                Activated();  // a menu of the system's leaves the window active
              },
          .DropItems = [this](lister::ListId list,
                              const lister::Drop& drop) { drop_.DropItems(list, drop); }};
}

lister::ListerEvents& Master::ListEvents(lister::ListId list) {
  if (list == lister::FoundList) return foundEvents_;
  if (loggedEvents_) return *loggedEvents_;
  return events_;
}

std::string Master::ProgramFile(std::string_view name) const {
  return services_.Files.Syntax().Join(services_.System.ProgramFolder(), name);
}

void Master::MakeOwnForms(const OwnWindows& windows) {
  const fileops::TrashServices trash{
      services_.Host,      services_.Files, services_.Drives, windows.Trash,
      services_.Operation, services_.Pump,  messages_,        {services_.Forms, services_.Clock}};
  own_.emplace(
      space_, windows, trash, services_.Order, services_.User,
      [this](const std::string& path) { OpenFolder(path); },
      [this](const std::string& path) {
        navigation_.OpenOnDrive(space_.CurrentList, services_.Drives.DriveOf(path), path);
      });
}

void Master::Resize() {
  workspace::MainForm& form = space_.Form;
  if (!form.ResizeEnabled) return;
  splitters_.GiveUp();  // its measures are of another room
  layout_.ResizeForm(false);
  if (!form.FirstResizePending) return;
  form.FirstResizePending = false;
  if (lister::ListerControl* active = space_.Lists.Find(space_.ActiveList)) {
    active->TakeFocus();
    // In place of the arrangement, which took the keyboard.
    form.ActiveControl = workspace::KeyboardFocus::Other;
  }
}

// A command by key may come while the mouse drags a bar: its panes may be others afterwards.
void Master::MenuClick(std::string_view name) {
  splitters_.GiveUp();
  commands_.MenuClick(name);
}

void Master::ButtonClick(std::string_view key) {
  if (!commands::Commands::IsCommand(key)) return;
  splitters_.GiveUp();
  // The click has pressed or raised the button before its command runs.
  forms::ToolbarButton& button = space_.Form.Toolbar1[key];
  if (button.Style == forms::ButtonStyle::Check) button.Pressed = !button.Pressed;
  space_.Form.Touch();
  commands_.ButtonClick(key);
}

void Master::TitleClick(int pane) {
  workspace::ColourTitleBar(space_, lister::FolderListOf(pane));
  workspace::HighlightActiveList(space_, false);
  // Keys go where the keyboard is, and they are to go to the active list.
  if (lister::ListerControl* active = space_.Lists.Find(space_.ActiveList)) active->TakeFocus();
}

void Master::TitleMouseDown(int pane) {
  space_.CurrentList = lister::FolderListOf(pane);
  workspace::HighlightActiveList(space_, false);
}

void Master::TitlePictureClick(int pane) {
  TitleClick(pane);
  titleMenu_.Show(pane);
}

void Master::OpenTitleMenu() {
  if (space_.Lists.Find(space_.CurrentList) == nullptr) return;
  titleMenu_.Show(lister::PaneOf(space_.CurrentList));
}

void Master::WheelTurned(int delta) {
  if (auto* const active = space_.Lists.Find(space_.ActiveList)) active->WheelScroll(delta >= 1);
}

void Master::OpenFolder(const std::string& path) {
  if (auto* const list = space_.Lists.Find(space_.CurrentList)) list->GoToFolder(path);
}

void Master::OpenFolders(const std::vector<std::string>& paths) {
  splitters_.GiveUp();
  const int count = std::min(static_cast<int>(paths.size()), lister::PaneCount);
  for (int pane = 0; pane < count; ++pane) {
    const std::string& path = paths[static_cast<std::size_t>(pane)];
    if (!space_.Panes[pane].IsOpen()) panes_.ChangePanes(pane);
    navigation_.OpenOnDrive(lister::FolderListOf(pane), services_.Drives.DriveOf(path), path);
  }
  if (count > 0) {
    TitleMouseDown(0);
    TitleClick(0);
  }
  BringBack();
}

void Master::BringBack() {
  const workspace::MainForm& form = space_.Form;
  if (form.InTray || form.State == forms::WindowState::Minimised) tray_.RestoreWindow();
}

// A folder that the program was started with is in the place of the one that was open last.
void Master::LoadFolders(int pane) {
  const auto at = static_cast<std::size_t>(pane);
  if (at < services_.StartFolders.size() && !services_.StartFolders[at].empty()) {
    const std::string folder = services_.StartFolders[at];
    std::string drive = services_.Drives.DriveOf(folder);
    space_.Lists.Folders(pane).SetDriveFolder(drive, folder);
    space_.Panes[pane].InitialDrive = std::move(drive);
    services_.StartFolders[at].clear();
  }
  navigation_.LoadFolders(pane);
}

void Master::EscapeKey() {
  if (splitters_.GiveUp()) return;
  updates_.GiveUp();  // these may run unseen, so they are not all that the key is for
  if (own_) own_->Empty.GiveUp();
  undo_.GiveUp();
  events_.EscapeKey();
}

void Master::ShowOptions() {
  services_.Host.Open(options_);
  options_.CentreOn(space_.Form);
  services_.Host.Show(options_, &space_.Form);
}

void Master::OpenRecycleBin() {
  own_ ? own_->RecycleBin.ShowOver(space_.Form) : services_.Shell->OpenRecycleBin();
}

void Master::EmptyRecycleBin() {
  std::string all;
  own_ ? own_->Empty.EmptyRecycleBin(all)
       : fileops::EmptyByShell(space_, services_.Host, messages_, *services_.Shell, all);
}

void Master::MapNetworkDrive() {
  own_ ? own_->MapDrive.ShowOver(space_.Form) : services_.Shell->MapNetworkDrive();
}

void Master::DisconnectNetworkDrive() {
  own_ ? own_->Disconnect.ShowOver(space_.Form) : services_.Shell->DisconnectNetworkDrive();
}

void Master::ShowTips() {
  tips_.ForceShow = true;
  tips_.ShowOver(space_.Form);
}

void Master::ShowAbout() {
  services_.Host.Open(splash_);
  splash_.CentreOn(space_.Form);
  services_.Host.Show(splash_, &space_.Form);
}

void Master::OpenGuide() {
  const std::string page = services_.System.GuidePage();
  OpenOutside("user guide " + base::ForDisplay(page), page);
}

void Master::OpenOutside(const std::string& name, const std::string& address) {
  const base::Status status =
      services_.Launcher.Execute({.File = address, .Parameters = {}, .Folder = {}});
  if (status) return;
  messages_.Message("The " + name + " cannot be opened.\r\n\r\n" + status.Reason + ".",
                    forms::MessageKind::Ok);
}

// Changes to the skin are asked about while the answer still finds its way into the settings.
void Master::Exit() {
  if (!skinChooser_.QueryUnload()) return;
  services_.Host.Unload(space_.Form);
}

// The unload does not take the icon away.
void Master::ExitFromTray() {
  tray_.ShellTrayRemove();
  Exit();
  if (toSave_) tray_.RestoreWindow();  // the program was kept, by a question
}

// Only a run that has loaded what was saved may save again, and take the marker away.
void Master::SaveOnce() {
  if (std::exchange(toSave_, false)) settingsFile_.SaveSettings();
}

void Master::RemoveMarkerOnce() {
  if (std::exchange(toUnmark_, false)) services_.Files.RemoveFile(ProgramFile(RunMarkerName));
}

void Master::SaveWithoutWindows() {
  SaveOnce();
  RemoveMarkerOnce();
}

// Operations at work come to their own end. What commands wanted to do then is for the lists, and
// those go now.
void Master::Shutdown() {
  SaveOnce();
  services_.Operation.DropContinuations();
  services_.Operation.WhenIdle([this] { RemoveMarkerOnce(); });
  UnloadAllForms();
}

void Master::UnloadAllForms() {
  updates_.GiveUp();
  listing_.GiveUp();
  undo_.GiveUp();
  services_.Drives.OnChange({});
  space_.ForEachList([](lister::ListerControl& list) { list.Terminate(); });
  const std::vector<forms::Form*> open = services_.Host.OpenForms();
  for (forms::Form* form : open) {
    try {
      services_.Host.Unload(*form);
    } catch (const std::exception&) {
      // One form that will not go must not keep the others.
    }
  }
  space_.Form.MenuImages.Detach();
}

}  // namespace tarnwell::shell
