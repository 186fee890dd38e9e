#include "fileops/FileOperate.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "fileops/ShownFolder.h"
#include "lists/WatchPanes.h"

namespace tarnwell::fileops {

using platform::FileFunction;

namespace {

constexpr std::pair<std::string_view, FileFunction> Words[] = {
    {platform::CopyWord, FileFunction::Copy},
    {platform::MoveWord, FileFunction::Move},
    {platform::DeleteWord, FileFunction::Delete}};

FileFunction FunctionOf(std::string_view word) {
  const auto* const row =
      std::ranges::find(Words, word, [](const auto& each) { return each.first; });
  return row == std::end(Words) ? FileFunction::None : row->second;
}

platform::CommandKind KindOf(const platform::OperationRequest& request) {
  using platform::CommandKind;
  switch (request.Function) {
    case FileFunction::Copy:
      return CommandKind::Copy;
    case FileFunction::Move:
      return CommandKind::Move;
    case FileFunction::Delete:
      return (request.Flags & platform::AllowUndo) != 0 ? CommandKind::Trash : CommandKind::Delete;
    default:
      return CommandKind::Other;
  }
}

}  // namespace

void FileOperations::FileOperate(const std::string& action, lister::ListId source,
                                 lister::ListId target, std::string folder, bool refreshChild,
                                 const std::string& items) {
  if (source == lister::NoList) return;
  const FileFunction function = FunctionOf(action);
  if (function == FileFunction::Delete) target = source;
  lists::WatchBracket watches(workspace_, [this, function, source, target] {
    const bool moves = function == FileFunction::Move;
    lists::WatchResumePanes(workspace_, moves ? source : lister::NoList, lister::NoList);
    workspace_.Lists[target].WatchStart();
    if (moves && source >= 0) workspace_.Lists[source].WatchStart();
  });
  if (action == platform::CancelWord) {
    watches.LeaveOpen();
    return;
  }
  lister::ListerControl* const from = workspace_.Lists.Find(source);
  // A copy: a list makes its own anew whenever it is asked what is selected.
  const std::string what = items.empty() && from != nullptr ? from->ActiveItemName() : items;
  if (what.empty()) {
    messenger_.Message("No files selected for this operation.", forms::MessageKind::Ok);
    watches.LeaveOpen();
    return;
  }
  if (const std::string refusal = platform_.Refusal(function, what); !refusal.empty()) {
    messenger_.Message(refusal, forms::MessageKind::Ok);
    return;
  }
  const bool copies = function == FileFunction::Copy || function == FileFunction::Move;
  if (copies) folder = syntax_.AddSeparator(folder);
  Carried carried{.Function = function,
                  .Source = source,
                  .Target = target,
                  .RefreshesChild = refreshChild,
                  .Leaving = {},
                  .Cursor = lists::MarkCursor(workspace_, target)};
  if (function == FileFunction::Delete && DeletesFolderOnShow(source, what)) {
    carried.Leaving = what;
  }
  // What goes wrong, the platform tells.
  watches.EndAfter(platform_, Start(function, folder, what),
                   [this, carried = std::move(carried)](const platform::OperationResult& result) {
                     FollowUp(carried, result);
                   });
}

platform::OperationId FileOperations::Start(FileFunction function, const std::string& folder,
                                            const std::string& items) {
  const bool copies = function == FileFunction::Copy || function == FileFunction::Move;
  platform::OperationRequest request;
  request.Function = function;
  base::ItemList::Add(request.Destination, copies ? folder : "");
  // Items of many folders may lie in the target in part: those stay there, or become twins.
  std::string here, elsewhere;
  for (const std::string_view item : base::ItemList(items)) {
    const bool isHere = copies && syntax_.GetFolderPath(item) == folder;
    base::ItemList::Add(isHere ? here : elsewhere, item);
  }
  std::vector<std::string> parts{items};
  if (!here.empty() && !elsewhere.empty()) parts = {elsewhere, here};
  if (function == FileFunction::Move && parts.size() > 1) parts.pop_back();
  platform::OperationOrder order;
  for (std::string& part : parts) {
    request.Flags = FlagsOf(function, part, folder);
    request.Items = std::move(part);
    order.Requests.push_back(request);
  }
  order.Kind = KindOf(request);
  return platform_.Start(std::move(order));
}

void FileOperations::FollowUp(const Carried& carried, const platform::OperationResult& result) {
  const auto& [function, source, target, refreshesChild, leaving, cursor] = carried;
  const bool isUntouched = lists::StandsAt(workspace_, cursor);
  lister::ListerControl& shown = workspace_.Lists[target];
  if (function != FileFunction::Delete && source >= 0 && !lister::IsFileList(source) &&
      !lister::IsFileList(target)) {
    shown.RefreshAfterOperation();
  }
  // By now it may show another folder.
  if (DeletesFolderOnShow(source, leaving)) navigation_.MoveFocusUpOneFolder(source);
  shown.RefreshList();
  if ((refreshesChild || shown.OperationResult) && !lister::IsFileList(target)) {
    lister::ListerControl& child = workspace_.Lists.Files(lister::PaneOf(target));
    child.RefreshList();
    if (lists::IsLastAtWork(workspace_)) child.WatchStart();
  }
  shown.OperationResult = false;
  if (source >= 0 && function == FileFunction::Move) workspace_.Lists[source].RefreshList();
  if (isUntouched) lists::ShowPlaced(workspace_, target, result.Placed);
}

std::uint16_t FileOperations::FlagsOf(FileFunction function, const std::string& items,
                                      const std::string& folder) const {
  const bool deletes = function == FileFunction::Delete;
  int flags = 0;
  if (!deletes || fields_.SendToRecycle) flags |= platform::AllowUndo;
  // Items that are copied to where they are become twins.
  if (syntax_.GetFolderPath(base::ItemList(items).First()) == folder)
    flags |= platform::RenameOnCollision;
  if (deletes) flags |= platform::NoConfirmation;
  return static_cast<std::uint16_t>(flags);
}

bool FileOperations::DeletesFolderOnShow(lister::ListId source, const std::string& items) const {
  return source >= 0 && !lister::IsFileList(source) &&
         ShowsOneOf(items, workspace_.Lists[source], syntax_);
}

void FileOperations::PerformShellAction(const std::string& source, const std::string& destination,
                                        std::function<void(std::int32_t result)> then) {
  const platform::OperationRequest request{.Function = FileFunction::Copy,
                                           .Items = base::ItemList::TextOf({source}),
                                           .Destination = base::ItemList::TextOf({destination}),
                                           .Flags = platform::Silent | platform::SimpleProgress};
  platform_.WhenDone(
      platform_.Start({.Kind = platform::CommandKind::Copy, .Requests = {request}}),
      [then = std::move(then)](const platform::OperationResult& result) { then(result.Code); });
}

}  // namespace tarnwell::fileops
