#include "lists/Navigation.h"

#include <cstddef>
#include <exception>

#include "base/Caption.h"
#include "base/Text.h"
#include "forms/PointerScope.h"
#include "lists/PlacePath.h"

namespace tarnwell::lists {
namespace {

constexpr std::size_t DisplayLimit = 49;
constexpr std::size_t DisplayHead = 3;
constexpr std::size_t DisplayTail = 44;

std::string PaneCaption(int pane, const std::string& path) {
  return "Show Pane &" + std::to_string(pane + 1) + " - " + base::AsCaption(path);
}

// What to say of a folder that cannot be shown again.
std::string LostFolder(const lister::ListerControl& folders, const base::PathSyntax& syntax,
                       const std::string& lost) {
  std::string nearest = syntax.ParentOf(lost);
  while (!folders.FolderExists(nearest)) {
    const std::string above = syntax.ParentOf(nearest);
    if (syntax.Same(above, nearest)) return lost + " cannot be opened";
    nearest = above;
  }
  return lost + " cannot be opened; the nearest folder that can is " + nearest;
}

}  // namespace

std::string CutPath(std::string_view path) {
  return base::Shorten(path, DisplayLimit, DisplayHead, DisplayTail);
}

void Navigation::LoadFolders(int pane) {
  const std::string number = std::to_string(pane);
  const bool hidden = workspace_.Form.Menus["mnuHidden"].Checked;
  const bool system = workspace_.Form.Menus["mnuSystem"].Checked;
  lister::ListerControl& folders = workspace_.Lists.Folders(pane);
  lister::ListerControl& files = workspace_.Lists.Files(pane);
  folders.ShowHidden = hidden;
  files.ShowHidden = hidden;
  folders.ShowSystem = system;
  files.ShowSystem = system;

  workspace::PaneRecord& record = workspace_.Panes[pane];
  std::string path = folders.DriveFolder(record.InitialDrive);
  std::string lost;
  if (!folders.FolderExists(path)) {
    lost = LostFolder(folders, syntax_, path);
    record.InitialDrive = syntax_.DefaultDrive;
    path = syntax_.DriveRoot(record.InitialDrive);
    folders.SetDriveFolder(record.InitialDrive, path);
  }
  record.CurrentPath = syntax_.AddSeparator(path);
  const std::string shown = base::ToCapitals(CutPath(record.CurrentPath));
  workspace_.Form.Toolbar1["pane" + number].ToolTip = shown;
  workspace_.Form.Menus["mnuPane" + number].Caption = PaneCaption(pane, shown);
  workspace_.Form.Touch();
  LoadPaneDrive(pane);
  if (!lost.empty()) files.ShowStatus(lost);
}

void Navigation::LoadPaneDrive(int pane) {
  workspace::PaneRecord& record = workspace_.Panes[pane];
  lister::ListerControl& folders = workspace_.Lists.Folders(pane);
  folders.LoadDrive(record.InitialDrive, false);
  record.CurrentPath = syntax_.AddSeparator(folders.CurrentFolder());
  record.DriveLoaded = true;
}

void Navigation::UpdateChildPane(lister::ListId list) {
  const lister::ListerControl* folders = workspace_.Lists.Find(list);
  if (folders == nullptr || folders->FolderListType() != 1) return;
  const int pane = lister::PaneOf(list);
  const std::string number = std::to_string(pane);
  workspace::MainForm& form = workspace_.Form;

  std::string path = syntax_.AddSeparator(workspace_.Panes[pane].CurrentPath);
  const std::string shown = ShownPath(path);
  form.TitleBar[pane].Text = shown;
  form.Menus["mnuPane" + number].Caption = PaneCaption(pane, shown);
  const std::string cut = CutPath(shown);
  form.Toolbar1["pane" + number].ToolTip = cut;
  form.cboCommand.Text.clear();
  form.txtCurrentPath.Text = cut;
  form.Touch();
  handedOverFolder_[pane] = path;
  workspace::Visit(workspace_.Histories[pane],
                   syntax_.IsDriveRoot(path) ? path : syntax_.RemoveRightSlash(path));

  lister::ListerControl& files = workspace_.Lists.Files(pane);
  files.SetProperty("ActiveString", std::string());
  try {
    files.LoadFolderContents(path, true);
  } catch (const std::exception&) {
    // What cannot be read is the list's to tell.
  }
  // While the list read, the user may have picked another folder: then that one is the newer.
  const std::string& newest = handedOverFolder_[pane];
  files.SetCurrentFolder(newest);
  files.ParentFolder = newest;
}

bool Navigation::LeaveFound(lister::ListId list) {
  const int pane = lister::PaneOf(list);
  if (!workspace_.Lists.Files(pane).ShowsFound()) return false;
  UpdateChildPane(lister::FolderListOf(pane));
  return true;
}

void Navigation::OpenChildFolder(lister::ListId list, const std::string& folder,
                                 const std::string& branch) {
  lister::ListerControl& folders = workspace_.Lists.Folders(lister::PaneOf(list));
  if (!syntax_.IsWithin(folder, syntax_.DriveRoot(folders.InitialDrive()))) {
    folders.GoToFolder(folder);
    return;
  }
  folders.ExpandFolder(0, branch, 1);
  folders.OpenFolder(0, folder);
}

void Navigation::OpenOnDrive(lister::ListId list, std::string drive, const std::string& folder) {
  if (workspace_.Lists.Find(list) == nullptr) return;
  lister::ListerControl& folders = workspace_.Lists.Folders(lister::PaneOf(list));
  folders.SetDriveFolder(drive, folder);
  folders.LoadDrive(drive, false);
}

void Navigation::MoveFocusUpOneFolder(lister::ListId list) {
  const forms::PointerScope pointer(host_);
  if (lister::IsFileList(list) && LeaveFound(list)) return;
  const int pane = lister::PaneOf(list);
  const std::string& title = workspace_.Form.TitleBar[pane].Text;
  if (title.size() == 1 && title.front() == syntax_.Separator) return;
  lister::ListerControl& folders = workspace_.Lists.Folders(pane);
  // The text tells no root that is a mount point.
  const std::string root = syntax_.DriveRoot(folders.InitialDrive());
  if (syntax_.IsDriveRoot(title) || syntax_.Same(title, root)) return;
  if (folders.CurrentNodeLevel() == 1) {
    folders.OpenFolder(0);
    return;
  }
  folders.OpenFolder(0, folders.ParentOfKey(folders.CurrentNodeKey()));
}

void Navigation::OpenFromHistory(int pane, std::size_t place) {
  workspace::PaneHistory& history = workspace_.Histories[pane];
  if (place >= history.Folders.size() || place == history.Here) return;
  lister::ListerControl& folders = workspace_.Lists.Folders(pane);
  const std::string folder = history.Folders[place];
  if (folders.FolderExists(folder)) {
    history.Here = place;  // before the folder comes, which can take its time
  } else {
    workspace::Forget(history, place);
  }
  folders.GoToFolder(folder);
}

}  // namespace tarnwell::lists
