#include "lister/list/ListingFile.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/Text.h"
#include "lister/list/Pacer.h"
#include "platform/CountedTexts.h"

namespace tarnwell::lister {
namespace {

// What a spreadsheet takes for the start of a formula, or for a mark that it drops.
constexpr std::string_view FormulaStarts = "=+-@\t\r'";

// The rows on show from the top, the children of each behind it.
std::vector<RowId> RowsOnShow(const ListBody& body) {
  std::vector<RowId> rows, left{RootRow};
  while (!left.empty()) {
    const RowId row = left.back();
    left.pop_back();
    if (row != RootRow) rows.push_back(row);
    if (row != RootRow && !body.StateOf(row).IsExpanded) continue;
    for (int at = body.ChildCount(row); at-- > 0;) left.push_back(body.Child(row, at));
  }
  return rows;
}

std::vector<HeadingId> Columns(const ListState& list, const ListBody& body) {
  std::vector<HeadingId> columns;
  for (const HeadingId heading : list.Table.Order()) {
    if (list.Table.IsShown(heading)) columns.push_back(heading);
  }
  // The names of a tree say little without their places.
  const bool hasPath = std::ranges::find(columns, HeadingId::Path) != columns.end();
  if ((!IsFileList(list.Id) || body.ShowsFound()) && !hasPath) columns.push_back(HeadingId::Path);
  return columns;
}

// False when it was ended; `reason` then tells why.
bool MakeListing(ListState& list, const ListBody& body, std::string& text, std::string& reason) {
  const std::vector<HeadingId> columns = Columns(list, body);
  const std::string folder = list.Folder, drive = list.Drive;
  std::vector<std::string> fields;
  fields.reserve(columns.size());
  for (const HeadingId column : columns) fields.push_back(list.Table[column].Caption);
  AppendLine(text, fields);

  const platform::NumberForms& forms = list.Services.Forms;
  Pacer pace(list.Services.Clock, list.Services.Pump);
  std::size_t done = 0;
  const std::vector<RowId> rows = RowsOnShow(body);
  for (const RowId row : rows) {
    if (pace.IsDue()) {
      list.SetStatus(platform::Counted(forms, platform::CountedText::Listing, rows.size(),
                                       {forms.Grouped(done)}));
      pace.Pump();
      if (list.Fields.CancelRequested) reason = "stopped";
      if (IsFileList(list.Id) && list.Folder != folder) reason = "the folder has changed";
      if (list.Drive != drive) reason = "the drive has changed";
      if (list.IsTerminated) reason = "the program ends";
      if (!reason.empty()) return false;
    }
    ++done;
    if (body.PositionOf(row) < 0) continue;  // gone since
    fields.clear();
    for (const HeadingId column : columns) fields.push_back(body.CellBytes(row, column));
    AppendLine(text, fields);
  }
  return true;
}

}  // namespace

void AppendLine(std::string& text, const std::vector<std::string>& fields) {
  constexpr std::string_view hexDigits = "0123456789ABCDEF";
  bool first = true;
  for (const std::string& field : fields) {
    if (!std::exchange(first, false)) text += ',';
    const auto isBlank = [](char byte) { return byte == ' ' || byte == '\t'; };
    const bool quoted = field.find_first_of(",\"\r\n") != std::string::npos ||
                        (!field.empty() && (isBlank(field.front()) || isBlank(field.back())));
    if (quoted) text += '"';
    if (!field.empty() && FormulaStarts.find(field.front()) != std::string_view::npos) text += '\'';
    for (std::size_t position = 0; position < field.size();) {
      const char32_t code = base::NextCodePoint(field, position);
      if (base::IsStrayByte(code)) {
        const auto byte = static_cast<unsigned char>(field[position - 1]);
        text += {'\\', 'x', hexDigits[byte >> 4], hexDigits[byte & 0xF]};
        continue;
      }
      if (code == U'"' || code == U'\\') text += static_cast<char>(code);
      base::AppendCodePoint(text, code);
    }
    if (quoted) text += '"';
  }
  text += "\r\n";
}

bool WriteListing(ListState& list, const ListBody& body, const std::string& path) {
  list.Fields.CancelRequested = false;
  std::string text, reason;
  if (MakeListing(list, body, text, reason)) {
    reason = list.Services.Files.WriteFile(path, text).Reason;
  }
  list.Fields.CancelRequested = false;
  const std::string file = base::ForDisplay(path);
  list.SetStatus(reason.empty() ? "Listing written to " + file
                                : "Cannot write the listing to " + file + ": " + reason);
  return reason.empty();
}

}  // namespace tarnwell::lister
