#include "fileops/OperationTexts.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "base/ItemList.h"
#include "base/Text.h"
#include "lister/rows/CellText.h"
#include "platform/CountedTexts.h"

namespace tarnwell::fileops {

using platform::CommandKind;
using platform::CountedText;
using platform::FileFunction;

namespace {

struct TitleRow {
  CommandKind Kind;
  std::string_view Named;  // of one item
  CountedText Numbered;    // of several
  // The same with the folder they go to, where that is told.
  std::string_view NamedTo = {};
  CountedText NumberedTo = {};
};

// Colours, undo and redo bring their own titles; the last row is for what has none.
constexpr TitleRow TitleRows[] = {
    {CommandKind::Copy, "Copying \"%1\"", CountedText::Copying, "Copying \"%1\" to %2",
     CountedText::CopyingTo},
    {CommandKind::Move, "Moving \"%1\"", CountedText::Moving, "Moving \"%1\" to %2",
     CountedText::MovingTo},
    {CommandKind::Rename, "Renaming \"%1\"", CountedText::Renaming},
    {CommandKind::Duplicate, "Duplicating \"%1\"", CountedText::Duplicating},
    {CommandKind::NewFolder, "Making \"%1\"", CountedText::Making},
    {CommandKind::Shortcut, "Making shortcuts to \"%1\"", CountedText::MakingShortcuts},
    {CommandKind::Trash, "Moving \"%1\" to the trash", CountedText::Trashing},
    {CommandKind::Delete, "Deleting \"%1\"", CountedText::Deleting},
    {CommandKind::Restore, "Restoring \"%1\"", CountedText::Restoring},
    {CommandKind::Other, "Working on \"%1\"", CountedText::WorkingOn},
};

struct FunctionRow {
  FileFunction Function;
  std::string_view Done;
};

constexpr FunctionRow FunctionRows[] = {{FileFunction::Delete, "deleted"},
                                        {FileFunction::Move, "moved"},
                                        {FileFunction::Rename, "renamed"}};

std::string TitleName(std::string_view path, const base::PathSyntax& syntax) {
  constexpr std::size_t longest = 50, head = 35, tail = 12;
  return base::Shorten(lister::NameText(syntax, path), longest, head, tail);
}

// What lies in a trash may be called otherwise there.
std::string_view PathOfOnly(const platform::OperationRequest& request) {
  const bool comesBack = request.Function == FileFunction::Move &&
                         (request.Flags & (platform::FromTrash | platform::OwnTargets)) != 0;
  return base::ItemList(comesBack ? request.Destination : request.Items).First();
}

std::string FolderText(const platform::OperationOrder& order, const base::PathSyntax& syntax) {
  for (const platform::OperationRequest& request : order.Requests) {
    const std::string_view folder = base::ItemList(request.Destination).First();
    const bool isFolder =
        folder.ends_with(syntax.Separator) && (request.Flags & platform::OwnTargets) == 0;
    if (isFolder) return TitleName(folder, syntax);
  }
  return "";
}

}  // namespace

std::string OperationTitle(const platform::OperationOrder& order, const base::PathSyntax& syntax,
                           const platform::NumberForms& forms) {
  if (!order.Title.empty()) return order.Title;
  const auto* row = std::ranges::find(TitleRows, order.Kind, &TitleRow::Kind);
  if (row == std::end(TitleRows)) --row;
  std::uint64_t count = 0;
  std::string_view first;
  for (const platform::OperationRequest& request : order.Requests) {
    const base::ItemList items(request.Items);
    if (count == 0) first = PathOfOnly(request);
    count += static_cast<std::uint64_t>(std::ranges::distance(items.begin(), items.end()));
  }
  const std::string folder = row->NamedTo.empty() ? "" : FolderText(order, syntax);
  const bool tells = !folder.empty();
  if (count != 1) {
    return platform::Counted(forms, tells ? row->NumberedTo : row->Numbered, count, {folder});
  }
  return platform::Filled(tells ? row->NamedTo : row->Named, {TitleName(first, syntax), folder});
}

std::string InUseText(FileFunction function, std::string_view item, const std::string& title,
                      const base::PathSyntax& syntax) {
  const auto* const row = std::ranges::find(FunctionRows, function, &FunctionRow::Function);
  const std::string_view done = row == std::end(FunctionRows) ? "changed" : row->Done;
  return "\"" + TitleName(item, syntax) + "\" cannot be " + std::string(done) +
         " while it is in use by another operation: " + title + ".";
}

}  // namespace tarnwell::fileops
