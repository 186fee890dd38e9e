#include "lister/files/SelectedColours.h"

#include <string>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "lister/files/FileStatus.h"
#include "lister/list/KeepColour.h"
#include "lister/list/Pacer.h"
#include "platform/CountedTexts.h"

namespace tarnwell::lister {

namespace {

void Show(FileListState& files, RowId row, const std::string& folder, const std::string& name,
          ItemColour colour) {
  const FileRows& rows = files.Rows;
  if (rows.Folder() != folder || !rows.IsUsed(row) || rows.Name(row) != name) return;
  files.Rows.SetColour(row, colour);
  const int position = rows.PositionOf(row);
  if (position >= 0) files.View().CellsChanged(RootRow, position, position);
}

}  // namespace

std::vector<ColouredItem> KeepSelectedColours(FileListState& files, ItemColour colour) {
  ListState& list = files.List;
  const std::string folder = files.Rows.Folder();
  std::vector<std::pair<RowId, std::string>> items;
  for (const RowId row : files.Rows.Order()) {
    if (files.Rows.Row(row).IsSelected) items.emplace_back(row, files.Rows.Name(row));
  }
  const platform::NumberForms& forms = list.Services.Forms;
  std::vector<ColouredItem> changed;
  ColourReader reader(list.Services.Files);
  ColourFailures failures;
  std::size_t done = 0;
  bool told = false;
  Pacer pace(list.Services.Clock, list.Services.Pump);
  list.Fields.CancelRequested = false;
  for (const auto& [row, name] : items) {
    if (pace.IsDue()) {
      const auto show = [&](platform::CountedText text) {
        list.SetStatus(platform::Counted(forms, text, items.size(), {forms.Grouped(done)}));
      };
      show(platform::CountedText::Colouring);
      told = true;
      pace.Pump();
      if (list.IsTerminated) return changed;
      if (list.Fields.CancelRequested) {
        show(platform::CountedText::ColouringStopped);
        told = false;
        break;
      }
    }
    ++done;
    const base::Status status =
        WriteColour(list, reader, list.Syntax.Join(folder, name), colour, changed);
    if (status) {
      Show(files, row, folder, name, colour);
    } else {
      failures.Add(base::ForDisplay(name), status);
    }
  }
  list.Fields.CancelRequested = false;
  if (told) ShowSummary(files);
  failures.Tell(list);
  return changed;
}

}  // namespace tarnwell::lister
