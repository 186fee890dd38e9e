#include "fileops/FileOperate.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "fileops/ShownFolder.h"
#include "lists/ShowPlaced.h"
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
  const std::string& what = items.empty() && from != nullptr ? from->ActiveItemName() : items;
  if (what.empty()) {
    messenger_.Message("No files selected for this operation.", forms::MessageKind::Ok);
    watches.LeaveOpen();
    return;
  }
  if (const std::string refusal = platform_.Refusal(function, what); !refusal.empty()) {
    messenger_.Message(refusal, forms::MessageKind::Ok);
    return;
  }
  Carry(function, source, target, std::move(folder), refreshChild, std::string(what));
}

// `items` is a copy: a list makes its own anew whenever it is asked what is selected.
void FileOperations::Carry(FileFunction function, lister::ListId source, lister::ListId target,
                           std::string folder, bool refreshChild, const std::string& items) {
  const bool leaves = function == FileFunction::Delete && DeletesFolderOnShow(source, items);
  platform::OperationRequest request;
  request.Function = function;
  request.Items = items;
  if (function == FileFunction::Copy || function == FileFunction::Move) {
    folder = syntax_.AddSeparator(folder);
    base::ItemList::Add(request.Destination, folder);
  } else {
    base::ItemList::Add(request.Destination, "");
  }
  request.Flags = FlagsOf(function, items, folder);
  // What went wrong, the platform has told.
  const platform::OperationResult result = platform_.Run(request);

  lister::ListerControl& shown = workspace_.Lists[target];
  if (function != FileFunction::Delete && source >= 0 && !lister::IsFileList(source) &&
      !lister::IsFileList(target)) {
    shown.RefreshAfterOperation();
  }
  if (leaves) navigation_.MoveFocusUpOneFolder(source);
  shown.RefreshList();
  if (!refreshChild) refreshChild = shown.OperationResult;
  if (refreshChild && !lister::IsFileList(target)) {
    lister::ListerControl& child = workspace_.Lists.Files(lister::PaneOf(target));
    child.RefreshList();
    child.WatchStart();
  }
  shown.OperationResult = false;
  if (source >= 0 && function == FileFunction::Move) workspace_.Lists[source].RefreshList();
  lists::ShowPlaced(workspace_, target, result.Placed);
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
                                        std::int32_t& result) {
  result = platform_
               .Run({.Function = FileFunction::Copy,
                     .Items = base::ItemList::TextOf({source}),
                     .Destination = base::ItemList::TextOf({destination}),
                     .Flags = platform::Silent | platform::SimpleProgress})
               .Code;
}

}  // namespace tarnwell::fileops
