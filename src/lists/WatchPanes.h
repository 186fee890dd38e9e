// Keeps the lists from answering the changes on disk that the program makes itself.
#pragma once

#include <functional>
#include <vector>

#include "platform/FileOperation.h"
#include "workspace/Workspace.h"

namespace tarnwell::lists {

// No list that has been set up follows its folder until one of the others.
void WatchStopPanes(workspace::Workspace& workspace);
// All follow again; what happened meanwhile is known.
void WatchStartPanes(workspace::Workspace& workspace);
// All follow again and look what happened meanwhile.
void WatchResumePanesAll(workspace::Workspace& workspace);
// The same for the lists of open panes, except two; NoList skips nothing.
void WatchResumePanes(workspace::Workspace& workspace, lister::ListId skipFolderList,
                      lister::ListId skipFileList);

// The program has moved or renamed these: rows of what was found follow.
void FollowMoved(workspace::Workspace& workspace, const std::vector<platform::PlacedItem>& placed);

// Lists of what was found look at it again, once the brackets that are open are closed.
void LookAgainAtFound(workspace::Workspace& workspace);

// After the program has changed something on disk: the lists of open panes that nobody tells of it
// take it over, and so does that of what was found.
void LookAtPanes(workspace::Workspace& workspace);

// Sees to it that lists that were stopped follow their folders again however a scope is left.
class WatchBracket {
 public:
  // Stops the lists of all panes; before that, the current one makes sure that it shows what is
  // there. At the end `resume` runs: one of the routines above, and WatchStart of the lists that it
  // skips. What it throws is dropped. The outermost bracket ends with LookAtPanes. While an
  // operation goes on beside the user `resume` is left out: the last of them to end resumes.
  WatchBracket(workspace::Workspace& workspace, std::function<void()> resume);
  // For one list, which the caller stops when the user has made up their mind. At the end
  // WatchStart.
  WatchBracket(workspace::Workspace& workspace, lister::ListerControl& list);
  ~WatchBracket();
  WatchBracket(const WatchBracket&) = delete;
  WatchBracket& operator=(const WatchBracket&) = delete;

  // What is stopped stays so.
  void LeaveOpen() { resume_ = {}; }
  // For all panes. The bracket closes here, but for the watches: they stay stopped until the
  // operation is done, and lists look for changes by themselves. Then, or at once where it is done
  // by now or is none, the bracket opens again for `steps` and ends as told above; while others of
  // all panes are open, the lists stop once more after that. `steps` and `resume` find the
  // workspace as it is then. What `steps` throws comes through once all is closed.
  void EndAfter(platform::FileOperation& operations, platform::OperationId operation,
                platform::OperationDone steps);

 private:
  workspace::Workspace& workspace_;
  std::function<void()> resume_;
  bool isOfAll_ = false;
  bool hasEnded_ = false;
};

// Whether no other operation goes on beside the one whose steps are taken.
bool IsLastAtWork(const workspace::Workspace& workspace);

}  // namespace tarnwell::lists
