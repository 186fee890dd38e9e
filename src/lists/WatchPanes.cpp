#include "lists/WatchPanes.h"

#include <utility>

namespace tarnwell::lists {

void WatchStopPanes(workspace::Workspace& workspace) {
  workspace.ForEachList([](lister::ListerControl& list) { list.WatchStop(); });
}

void WatchStartPanes(workspace::Workspace& workspace) {
  workspace.ForEachList([](lister::ListerControl& list) { list.WatchStart(); });
}

void WatchResumePanesAll(workspace::Workspace& workspace) {
  workspace.ForEachList([](lister::ListerControl& list) { list.WatchResume(); });
}

void WatchResumePanes(workspace::Workspace& workspace, lister::ListId skipFolderList,
                      lister::ListId skipFileList) {
  for (const auto listOf : {lister::FolderListOf, lister::FileListOf}) {
    for (int pane = 0; pane < lister::PaneCount; ++pane) {
      const lister::ListId id = listOf(pane);
      if (id == skipFolderList || id == skipFileList) continue;
      lister::ListerControl* const list = workspace.Lists.Find(id);
      const bool isOpen = workspace.Panes[pane].IsOpen();
      if (isOpen && list != nullptr) list->WatchResume();
    }
  }
}

void LookAtPanes(workspace::Workspace& workspace) {
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    const workspace::PaneRecord& record = workspace.Panes[pane];
    if (!record.Initialized || !record.IsOpen()) continue;
    workspace.Lists.Folders(pane).LookAtDisk(lister::LookReason::Operation);
    workspace.Lists.Files(pane).LookAtDisk(lister::LookReason::Operation);
  }
}

WatchBracket::WatchBracket(workspace::Workspace& workspace, std::function<void()> resume)
    : workspace_(workspace), resume_(std::move(resume)) {
  lister::ListerControl* const current = workspace.Lists.Find(workspace.CurrentList);
  if (current != nullptr) current->LookAtDisk(lister::LookReason::User);
  WatchStopPanes(workspace);
  ++workspace_.OpenBrackets;  // last: what throws here closes nothing
}

WatchBracket::WatchBracket(workspace::Workspace& workspace, lister::ListerControl& list)
    : workspace_(workspace), resume_([&list] { list.WatchStart(); }) {
  ++workspace_.OpenBrackets;
}

WatchBracket::~WatchBracket() {
  try {
    if (resume_) resume_();
  } catch (...) {
    // As below.
  }
  --workspace_.OpenBrackets;
  try {
    LookAtPanes(workspace_);
  } catch (...) {
    // A list tells itself what it cannot read; nothing else is to be told from here.
  }
}

}  // namespace tarnwell::lists
