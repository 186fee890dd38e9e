#include "fileops/OperationTexts.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "base/ItemList.h"
#include "base/Text.h"
#include "lister/rows/CellText.h"

namespace tarnwell::fileops {

using platform::CommandKind;
using platform::FileFunction;

namespace {

struct TitleRow {
  CommandKind Kind;
  std::string_view Doing;
  bool TellsFolder;      // that it goes to
  std::string_view End;  // after the items
};

// Colours, undo and redo bring their own titles; the last row is for what has none.
constexpr TitleRow TitleRows[] = {
    {CommandKind::Copy, "Copying ", true, ""},
    {CommandKind::Move, "Moving ", true, ""},
    {CommandKind::Rename, "Renaming ", false, ""},
    {CommandKind::Duplicate, "Duplicating ", false, ""},
    {CommandKind::NewFolder, "Making ", false, ""},
    {CommandKind::Shortcut, "Making shortcuts to ", false, ""},
    {CommandKind::Trash, "Moving ", false, " to the trash"},
    {CommandKind::Delete, "Deleting ", false, ""},
    {CommandKind::Restore, "Restoring ", false, ""},
    {CommandKind::Other, "Working on ", false, ""},
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

std::string ItemsText(const platform::OperationOrder& order, const base::PathSyntax& syntax,
                      const platform::NumberForms& forms) {
  std::uint64_t count = 0;
  std::string_view first;
  for (const platform::OperationRequest& request : order.Requests) {
    const base::ItemList items(request.Items);
    if (count == 0) first = PathOfOnly(request);
    count += static_cast<std::uint64_t>(std::ranges::distance(items.begin(), items.end()));
  }
  return count == 1 ? "\"" + TitleName(first, syntax) + "\""
                    : lister::CountText(forms, count, "item");
}

std::string FolderText(const platform::OperationOrder& order, const base::PathSyntax& syntax) {
  for (const platform::OperationRequest& request : order.Requests) {
    const std::string_view folder = base::ItemList(request.Destination).First();
    const bool isFolder =
        folder.ends_with(syntax.Separator) && (request.Flags & platform::OwnTargets) == 0;
    if (isFolder) return " to " + TitleName(folder, syntax);
  }
  return "";
}

}  // namespace

std::string OperationTitle(const platform::OperationOrder& order, const base::PathSyntax& syntax,
                           const platform::NumberForms& forms) {
  if (!order.Title.empty()) return order.Title;
  const auto* row = std::ranges::find(TitleRows, order.Kind, &TitleRow::Kind);
  if (row == std::end(TitleRows)) --row;
  return std::string(row->Doing) + ItemsText(order, syntax, forms) +
         (row->TellsFolder ? FolderText(order, syntax) : "").append(row->End);
}

std::string InUseText(FileFunction function, std::string_view item, const std::string& title,
                      const base::PathSyntax& syntax) {
  const auto* const row = std::ranges::find(FunctionRows, function, &FunctionRow::Function);
  const std::string_view done = row == std::end(FunctionRows) ? "changed" : row->Done;
  return "\"" + TitleName(item, syntax) + "\" cannot be " + std::string(done) +
         " while it is in use by another operation: " + title + ".";
}

}  // namespace tarnwell::fileops
