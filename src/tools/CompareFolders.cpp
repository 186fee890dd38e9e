#include "tools/CompareFolders.h"

#include <vector>

#include "forms/PointerScope.h"
#include "lists/WatchPanes.h"

namespace tarnwell::tools {
namespace {

// What was found is in many folders, and its names may be there several times.
bool TakesNoPart(lister::ListerControl& files) {
  if (files.ShowsFound()) files.ShowStatus("What was found is not compared");
  return files.ShowsFound();
}

}  // namespace

void FolderComparison::CompareFolders() {
  workspace::MainForm& form = workspace_.Form;
  const forms::PointerScope pointers(host_, &form.Toolbar1);
  const lists::WatchBracket watches(workspace_, [this] { lists::WatchStartPanes(workspace_); });
  form.Menus["mnuCompareSize"].Checked = form.Toolbar1["compare_size"].Pressed;
  form.Menus["mnuCompareDate"].Checked = form.Toolbar1["compare_date"].Pressed;
  form.Touch();
  if (workspace_.OpenPaneCount == 1) {
    messenger_.Message("You are only showing one folder currently, so there is nothing to compare.",
                       forms::MessageKind::Ok);
  } else {
    Compare();
  }
}

void FolderComparison::Compare() {
  if (workspace_.Lists.Find(workspace_.CurrentList) == nullptr) return;
  const int reference = lister::PaneOf(workspace_.CurrentList);
  lister::ListerControl& files = workspace_.Lists.Files(reference);
  if (TakesNoPart(files)) return;
  std::vector<lister::CompareRecord> records = files.CompareRecords();
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    if (pane == reference || workspace_.Panes[pane].Status != workspace::Open) continue;
    if (TakesNoPart(workspace_.Lists.Files(pane))) {
      if (workspace_.OpenPaneCount == 2) return;
      continue;
    }
    std::int32_t mode = workspace_.Settings.CompareMode;
    workspace_.Lists.Files(pane).CompareAgainst(records, mode);
  }
  if (workspace_.OpenPaneCount == 2) files.CompareSelf(records);
}

}  // namespace tarnwell::tools
