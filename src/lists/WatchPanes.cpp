#include "lists/WatchPanes.h"

#include <cstddef>
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
      const bool isOpen = workspace.Panes[static_cast<std::size_t>(pane)].IsOpen();
      if (isOpen && list != nullptr) list->WatchResume();
    }
  }
}

WatchBracket::WatchBracket(workspace::Workspace& workspace, std::function<void()> resume)
    : resume_(std::move(resume)) {
  WatchStopPanes(workspace);
}

WatchBracket::WatchBracket(lister::ListerControl& list) : resume_([&list] { list.WatchStart(); }) {}

WatchBracket::~WatchBracket() {
  try {
    if (resume_) resume_();
  } catch (...) {
    // A list tells itself what it cannot read; nothing else is to be told from here.
  }
}

}  // namespace tarnwell::lists
