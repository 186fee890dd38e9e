#include "shellmenu/ShowShellMenu.h"

#include <cstdio>
#include <memory>
#include <utility>

#include "base/Measure.h"
#include "base/Text.h"
#include "fileops/modProperties.h"
#include "lists/ShowPlaced.h"
#include "lists/WatchPanes.h"
#include "platform/CountedTexts.h"

namespace tarnwell::shellmenu {
namespace {

// The rows that are meant are shown as such. A list hears of no further right click until the end,
// so there is one on every way out, and none waits for an operation.
class ActionBracket {
 public:
  explicit ActionBracket(workspace::Workspace& workspace)
      : workspace_(workspace), contextList_(workspace.CurrentList) {
    workspace_.Lists[contextList_].BeginContextAction();
  }
  ~ActionBracket() { End(); }
  ActionBracket(const ActionBracket&) = delete;
  ActionBracket& operator=(const ActionBracket&) = delete;

  void End() {
    if (std::exchange(isOver_, true)) return;
    End(workspace_.CurrentList);
    if (workspace_.CurrentList != contextList_) End(contextList_);
  }

 private:
  void End(lister::ListId id) {
    if (lister::ListerControl* const list = workspace_.Lists.Find(id)) list->EndAction();
  }

  workspace::Workspace& workspace_;
  const lister::ListId contextList_;
  bool isOver_ = false;
};

// The pictures of the program's own menus stand back while the platform draws its menu.
class PicturesOff {
 public:
  explicit PicturesOff(forms::MenuImageHelper& pictures) : pictures_(pictures) {
    pictures_.Detach();
  }
  ~PicturesOff() { pictures_.Attach(); }
  PicturesOff(const PicturesOff&) = delete;
  PicturesOff& operator=(const PicturesOff&) = delete;

 private:
  forms::MenuImageHelper& pictures_;
};

// The nearest folder that all of the items are in, with a separator at its end; of one item that
// ends with it, that item.
std::string FolderOfAll(const std::vector<std::string>& paths, const base::PathSyntax& syntax) {
  std::string folder = syntax.GetFolderPath(paths.front());
  for (const std::string& path : paths) {
    while (!path.starts_with(folder)) {
      const std::string above = syntax.AddSeparator(syntax.ParentOf(folder));
      if (above == folder) break;
      folder = above;
    }
  }
  return folder;
}

int PixelOf(float twips) {
  return base::RoundToTwips(twips) / base::TwipsPerPixel;
}

}  // namespace

void ContextMenuCommand::ShowForClick(float x, float y, const std::string& clicked,
                                      const std::string& path) {
  clickedItemPath_ = clicked;
  ShowShellMenu(x, y, path, MenuMode::Show);
}

platform::OperationId ContextMenuCommand::ShowShellMenu(float x, float y, std::string path,
                                                        MenuMode mode) {
  lister::ListerControl* const list = workspace_.Lists.Find(workspace_.CurrentList);
  if (list == nullptr) return platform::NoOperation;
  lists::WatchBracket watches(workspace_, [this] { lists::WatchResumePanesAll(workspace_); });
  const auto action = std::make_shared<ActionBracket>(workspace_);
  const bool isForNothing = mode == MenuMode::Properties && list->FirstSelected().empty();
  if (mode == MenuMode::Paste || isForNothing) {
    path = OwnFolder(*list);
    if (path.empty()) return platform::NoOperation;
  }
  if (mode != MenuMode::Show) clickedItemPath_.clear();
  const MenuItems items = collector_.Collect(*list, path, clickedItemPath_, mode);
  if (mode == MenuMode::Properties && platform_.Shell != nullptr) {
    if (!items.Paths.empty()) fileops::ShowProperties(*platform_.Shell, messenger_, items.Paths);
    return platform::NoOperation;
  }
  MenuRequest request;
  request.Mode = mode;
  request.X = PixelOf(x);
  request.Y = PixelOf(y);
  const MenuFollowUp next = dispatch_.Dispatch(Choose(items, std::move(request)), items.Paths);
  if (next.Operation == platform::NoOperation) return next.Operation;
  const auto followUp = [this, action, then = next.Then,
                         cursor = lists::MarkCursor(workspace_, workspace_.CurrentList)](
                            const platform::OperationResult& result) {
    action->End();
    const bool isUntouched = lists::StandsAt(workspace_, cursor);
    if (then) then(result);
    if (isUntouched) lists::ShowPlaced(workspace_, cursor.Files, result.Placed);
  };
  watches.EndAfter(platform_.Operation, next.Operation, followUp);
  action->End();
  return next.Operation;
}

// A drive's root is no path without its separator.
std::string ContextMenuCommand::OwnFolder(const lister::ListerControl& list) const {
  const std::string folder = list.TargetFolder(true, true);
  return platform_.Syntax.IsDriveRoot(folder) ? folder : platform_.Syntax.RemoveRightSlash(folder);
}

MenuOutcome ContextMenuCommand::Choose(const MenuItems& items, MenuRequest request) {
  if (items.Paths.empty()) return {};
  const base::PathSyntax& syntax = platform_.Syntax;
  std::vector<std::string> gone;
  request.FirstPath = items.Paths.front();
  request.Folder =
      items.AreFound ? FolderOfAll(items.Paths, syntax) : syntax.GetFolderPath(request.FirstPath);
  for (const std::string& path : items.Paths) {
    const std::string name(syntax.LastComponent(path));
    const base::Status status = platform_.Menu.Find(path);
    if (status) {
      request.Names.push_back(items.AreFound ? path.substr(request.Folder.size()) : name);
    } else {
      gone.push_back(name);
    }
    if (!status && gone.size() == 1) Tell(status);
    if (!status && &path == &items.Paths.front()) return {};
  }
  TellMoreGone(gone);
  // It ends with a separator: the folder itself is meant, as seen from within.
  const bool isFolderItself = request.Folder == request.FirstPath;
  if (isFolderItself) request.Names.clear();
  request.IsDriveRoot = items.IsDriveRoot || isFolderItself;
  const bool isForEmptySpace = isFolderItself && clickedItemPath_.empty();
  if (isForEmptySpace && request.Mode == MenuMode::Show) request.Undo = undoCaption_();
  const PicturesOff pictures(workspace_.Form.MenuImages);
  return builder_.BuildAndTrackMenu(request);
}

void ContextMenuCommand::Tell(const base::Status& status) {
  char code[16];
  std::snprintf(code, sizeof code, "%X", static_cast<unsigned>(status.Code));
  messenger_.Message(std::string("Error: &H") + code + ", " + status.Reason,
                     forms::MessageKind::Ok);
}

void ContextMenuCommand::TellMoreGone(const std::vector<std::string>& names) {
  constexpr std::size_t mostNamed = 10;
  if (names.size() < 2) return;
  std::string text =
      platform::Counted(platform_.Forms, platform::CountedText::FurtherNotFound, names.size() - 1) +
      "\r\n";
  for (std::size_t at = 1; at < names.size() && at <= mostNamed; ++at) {
    text += "\r\n     " + base::ForDisplay(names[at]);
  }
  if (names.size() > mostNamed + 1) text += "\r\n     ...";
  messenger_.Message(text, forms::MessageKind::Ok);
}

}  // namespace tarnwell::shellmenu
