#include "workspace/PaneSet.h"

#include <algorithm>
#include <exception>
#include <string>

#include "forms/PointerScope.h"

namespace tarnwell::workspace {
namespace {

constexpr int ManyPanes = 4;
constexpr std::int16_t FirstHeading = 1;  // counted from 1

}  // namespace

void PaneSet::ChangePanes(int pane) {
  if (workspace_.Panes[pane].IsOpen()) {
    if (!ClosePane(pane)) return;
  } else {
    OpenPane(pane);
  }
  ShowPaneStates();
  workspace_.Form.Touch();
  if (workspace_.Form.Menus["mnuAutoExpandOn"].Checked) {
    layout_.DoAutoExpand();
  } else {
    EqualizePanes();
    layout_.ResizeForm(true);
  }
}

bool PaneSet::ClosePane(int pane) {
  // Counted on the spot: the user may click while another pane is still being set up.
  if (std::ranges::count_if(workspace_.Panes, &PaneRecord::IsOpen) == 1) {
    workspace_.Form.Toolbar1["pane" + std::to_string(pane)].Pressed = true;
    workspace_.Form.Touch();
    messenger_.Message(" You must always have at least one pane open.", forms::MessageKind::Ok);
    return false;
  }
  PaneRecord& record = workspace_.Panes[pane];
  record.Status = Closed;
  // A pane that the settings opened but whose set-up never ran has no lists to stop.
  if (record.Initialized) {
    workspace_.Lists.Folders(pane).WatchStop();
    workspace_.Lists.Files(pane).WatchStop();
  }
  --workspace_.OpenPaneCount;
  if (lister::PaneOf(workspace_.ActiveList) == pane) {
    workspace_.ActiveList = workspace_.CurrentList;
  }
  return true;
}

void PaneSet::OpenPane(int pane) {
  PaneRecord& record = workspace_.Panes[pane];
  record.Status = Open;
  WarnOfManyPanes();
  if (!record.Initialized) InitializePaneSet(pane);
  ++workspace_.OpenPaneCount;
  if (record.DriveLoaded) return;
  try {
    hooks_.LoadPaneDrive(pane);
  } catch (const std::exception&) {
    // The failed set-up has been told; the pane opens with what it has.
  }
}

void PaneSet::WarnOfManyPanes() {
  if (workspace_.Settings.SkipWin9XWarningPanes) return;
  const auto live = std::ranges::count_if(workspace_.Panes, [](const PaneRecord& record) {
    return record.Initialized || record.IsOpen();
  });
  if (live < ManyPanes) return;
  if (workspace_.IsWin9x) {
    messenger_.Message(
        "On older operating systems like the one your running (" + workspace_.OsName +
            ") your system may not be able to handle loading up too many panes at the same time."
            "\r\n\r\n"
            "Should Tarnwell stop responding, just restart Tarnwell and use only panes 1,2 and 3. "
            "(How about that? For once, a program tells you it might crash in advance.)",
        forms::MessageKind::Ok);
  }
  workspace_.Settings.SkipWin9XWarningPanes = true;
}

void PaneSet::ShowPaneStates() {
  const int active = lister::PaneOf(workspace_.CurrentList);
  bool activeClosed = false;
  int firstOpen = -1;
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    PaneRecord& record = workspace_.Panes[pane];
    record.NeedsRedraw = true;
    const std::string number = std::to_string(pane);
    workspace_.Form.Toolbar1["pane" + number].Pressed = record.IsOpen();
    workspace_.Form.Menus["mnuPane" + number].Checked = record.IsOpen();
    if (!record.IsOpen() && pane == active) activeClosed = true;
    if (record.IsOpen() && firstOpen < 0) firstOpen = pane;
  }
  // No list is active yet when a settings file has closed every pane.
  if (activeClosed || workspace_.CurrentList == lister::NoList) {
    workspace_.CurrentList = lister::FolderListOf(firstOpen);
    workspace_.ActiveList = workspace_.CurrentList;
  }
}

void PaneSet::EqualizePanes() {
  const int open = workspace_.OpenPaneCount;
  if (open < 1) return;
  const double share = 1.0 / open;
  const double inside = workspace_.Form.ScaleWidth - (open - 1) * workspace_.PaneGap;
  for (PaneRecord& record : workspace_.Panes) {
    if (!record.IsOpen()) continue;
    record.PercentWidth = static_cast<float>(share);
    record.PercentHeightH = static_cast<float>(share);
    record.Width = base::RoundToTwips(share * inside);
    record.HeightH = base::RoundToTwips(share * workspace_.Area.AreaWidth);
  }
}

void PaneSet::InitializePaneSet(int pane) {
  const forms::PointerScope pointers(host_, &workspace_.Form.Toolbar1);
  try {
    SetUpLists(pane);
  } catch (const std::exception&) {
    messenger_.Message("There was an error initializing one of the panes.", forms::MessageKind::Ok);
  }
}

void PaneSet::SetUpFoundList(lister::ListerControl& list) {
  constexpr std::int32_t second = 1;
  list.ListType = 2;
  list.AddSortKey(0, "sName", "asc");
  list.SetHeadingProperty(static_cast<int>(lister::HeadingId::Path), "Index", base::Value(second));
  SendSettings(list);
  list.SetActive(true);
  hooks_.ApplySkinChange();
  list.Initialize();
}

void PaneSet::SendSettings(lister::ListerControl& list) const {
  const ProgramSettings& settings = workspace_.Settings;
  list.SetProperty("FileCountMax", settings.FileCountMax);
  list.SetProperty("ShowColor", settings.ShowColor);
  list.SetProperty("ShowFileIcons", settings.ShowFileIcons);
  list.SetProperty("ShowFolderIcons", settings.ShowFolderIcons);
  list.SetProperty("ActiveHeading", std::int32_t{FirstHeading});
  // The limit of files goes under this name too; lists expect both.
  list.SetProperty("ActiveButton", settings.FileCountMax);
}

void PaneSet::SetUpLists(int pane) {
  PaneRecord& record = workspace_.Panes[pane];
  if (pane != 0) workspace_.Lists.Create(pane);
  record.Initialized = true;
  lister::ListerControl& folders = workspace_.Lists.Folders(pane);
  lister::ListerControl& files = workspace_.Lists.Files(pane);

  for (lister::ListerControl* list : {&folders, &files}) list->AddSortKey(0, "sName", "asc");
  for (lister::ListerControl* list : {&folders, &files}) list->IsWin9x = workspace_.IsWin9x;
  files.ListType = 2;
  files.ListMode = 0;
  hooks_.ReplayPaneSettings(pane);
  folders.SetNameSized((record.NameSized & SizedTree) != 0);
  files.SetNameSized((record.NameSized & SizedFiles) != 0);
  for (lister::ListerControl* list : {&folders, &files}) {
    SendSettings(*list);
  }
  folders.ListType = 1;
  hooks_.ApplySkinChange();
  folders.Initialize();
  files.Initialize();
  folders.ResetStartItem();
  files.ResetStartItem();
  hooks_.LoadFolders(pane);
}

}  // namespace tarnwell::workspace
