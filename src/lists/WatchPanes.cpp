#include "lists/WatchPanes.h"

#include <exception>
#include <utility>

namespace tarnwell::lists {
namespace {

void CloseBracket(workspace::Workspace& workspace, const std::function<void()>& resume) {
  try {
    if (resume && workspace.OperationsAtWork == 0) resume();
  } catch (...) {
    // As below.
  }
  --workspace.OpenBrackets;
  try {
    LookAtPanes(workspace);
  } catch (...) {
    // A list tells itself what it cannot read; nothing else is to be told from here.
  }
}

}  // namespace

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

void FollowMoved(workspace::Workspace& workspace, const std::vector<platform::PlacedItem>& placed) {
  workspace.ForEachList([&](lister::ListerControl& list) { list.FollowMoved(placed); });
}

void LookAgainAtFound(workspace::Workspace& workspace) {
  workspace.ForEachList([](lister::ListerControl& list) {
    if (list.ShowsFound()) list.RefreshList();
  });
}

void LookAtPanes(workspace::Workspace& workspace) {
  lister::ListerControl* const found = workspace.Lists.Find(lister::FoundList);
  if (found != nullptr) found->LookAtDisk(lister::LookReason::Operation);
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    const workspace::PaneRecord& record = workspace.Panes[pane];
    if (!record.Initialized || !record.IsOpen()) continue;
    workspace.Lists.Folders(pane).LookAtDisk(lister::LookReason::Operation);
    workspace.Lists.Files(pane).LookAtDisk(lister::LookReason::Operation);
  }
}

WatchBracket::WatchBracket(workspace::Workspace& workspace, std::function<void()> resume)
    : workspace_(workspace), resume_(std::move(resume)), isOfAll_(true) {
  lister::ListerControl* const current = workspace.Lists.Find(workspace.CurrentList);
  if (current != nullptr) current->LookAtDisk(lister::LookReason::User);
  WatchStopPanes(workspace);
  ++workspace_.OpenBrackets;  // last: what throws here closes nothing
  ++workspace_.PaneBrackets;
}

WatchBracket::WatchBracket(workspace::Workspace& workspace, lister::ListerControl& list)
    : workspace_(workspace), resume_([&list] { list.WatchStart(); }) {
  ++workspace_.OpenBrackets;
}

WatchBracket::~WatchBracket() {
  if (hasEnded_) return;
  if (isOfAll_) --workspace_.PaneBrackets;
  CloseBracket(workspace_, resume_);
}

// The steps outlive the bracket, and go unused where the program ends before.
void WatchBracket::EndAfter(platform::FileOperation& operations, platform::OperationId operation,
                            platform::OperationDone steps) {
  hasEnded_ = true;
  --workspace_.OpenBrackets;
  --workspace_.PaneBrackets;
  ++workspace_.OperationsAtWork;
  operations.WhenDone(operation, [&workspace = workspace_, resume = std::move(resume_),
                                  steps = std::move(steps)](const auto& result) {
    ++workspace.OpenBrackets;
    std::exception_ptr fault;
    try {
      FollowMoved(workspace, result.Placed);
      LookAgainAtFound(workspace);
      steps(result);
    } catch (...) {
      fault = std::current_exception();
    }
    --workspace.OperationsAtWork;
    CloseBracket(workspace, resume);
    // Another command may be open around this, in a menu or a wait.
    if (workspace.PaneBrackets > 0) WatchStopPanes(workspace);
    if (fault) std::rethrow_exception(fault);
  });
}

bool IsLastAtWork(const workspace::Workspace& workspace) {
  return workspace.OperationsAtWork <= 1;
}

}  // namespace tarnwell::lists
