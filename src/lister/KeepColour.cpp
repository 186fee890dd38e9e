#include "lister/KeepColour.h"

#include "base/Text.h"
#include "lister/files/FileStatus.h"
#include "lister/list/Pacer.h"
#include "lister/rows/CellText.h"

namespace tarnwell::lister {
namespace {

// Gathers what went wrong, to tell it at once.
struct Failures {
  std::uint64_t Count = 0;
  std::string First;

  void Add(const std::string& name, const base::Status& status) {
    if (Count++ > 0) return;
    First = "Cannot keep the colour of " + name + ": " + status.Reason;
  }
  void Tell(ListState& list) const {
    if (Count == 0 || list.IsTerminated) return;
    const std::string more =
        Count > 1 ? " (and " + list.Services.Forms.Grouped(Count - 1) + " more)" : "";
    list.Events.StatusMessage(list.Control.Id(), First + more);
  }
};

base::Status Write(ListState& list, const std::string& path, ItemColour colour) {
  const std::string_view word = ItemColours[static_cast<std::size_t>(colour)].Word;
  return list.Services.Files.WriteExtendedAttribute(
      path, platform::ExtendedAttribute::Colour,
      colour == ItemColour::Default ? "" : std::string(word));
}

void Show(FileListState& files, RowId row, const std::string& folder, const std::string& name,
          ItemColour colour) {
  const FileRows& rows = files.Rows;
  if (rows.Folder() != folder || !rows.IsUsed(row) || rows.Name(row) != name) return;
  files.Rows.SetColour(row, colour);
  const int position = rows.PositionOf(row);
  if (position >= 0) files.View().CellsChanged(RootRow, position, position);
}

}  // namespace

void KeepColour(FileListState& files, ItemColour colour) {
  ListState& list = files.List;
  const std::string folder = files.Rows.Folder();
  std::vector<std::pair<RowId, std::string>> items;
  for (const RowId row : files.Rows.Order()) {
    if (files.Rows.Row(row).IsSelected) items.emplace_back(row, files.Rows.Name(row));
  }
  const platform::NumberForms& forms = list.Services.Forms;
  Failures failures;
  std::size_t done = 0;
  bool told = false;
  Pacer pace(list.Services.Clock, list.Services.Pump);
  list.Control.CancelRequested = false;
  for (const auto& [row, name] : items) {
    if (pace.IsDue()) {
      const std::string count =
          forms.Grouped(done) + " of " + forms.Grouped(items.size()) + " items";
      list.SetStatus("Colours: " + count + "; Escape stops");
      told = true;
      pace.Pump();
      if (list.IsTerminated) return;
      if (list.Control.CancelRequested) {
        list.SetStatus("Colours stopped: " + count + " done");
        told = false;
        break;
      }
    }
    ++done;
    const base::Status status = Write(list, list.Syntax.Join(folder, name), colour);
    if (status) {
      Show(files, row, folder, name, colour);
    } else {
      failures.Add(base::ForDisplay(name), status);
    }
  }
  list.Control.CancelRequested = false;
  if (told) ShowSummary(files);
  failures.Tell(list);
}

void KeepColour(ListState& list, const std::string& path, ItemColour colour) {
  Failures failures;
  const base::Status status = Write(list, path, colour);
  if (!status) failures.Add(NameText(list.Syntax, path), status);
  failures.Tell(list);
}

}  // namespace tarnwell::lister
