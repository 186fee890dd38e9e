#include "lister/files/FileBody.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "lister/files/FileCells.h"
#include "lister/files/OpenFiles.h"
#include "lister/files/SelectedColours.h"
#include "lister/rows/CellText.h"
#include "lister/rows/PlacedNames.h"

namespace tarnwell::lister {

void FileBody::SetFilterText(const std::string& text) {
  files_.List.Filter.SetText(text);
  reader_.FilterChanged();
}

void FileBody::SetExtensionFilter(const std::string& extension) {
  files_.List.Filter.SetExtension(extension);
  reader_.FilterChanged();
}

std::vector<ExtensionChoice> FileBody::ExtensionChoices() const {
  return files_.Rows.Extensions(state_.Names);
}

void FileBody::MoveCurrent(RowId row) {
  if (!files_.Rows.Has(row)) return;
  SetCurrent(row);
  const int most = std::numeric_limits<std::int16_t>::max();
  state_.Events.ItemFocused(state_.Id,
                            static_cast<std::int16_t>(std::min(files_.Rows.PositionOf(row), most)));
}

void FileBody::SetCurrent(RowId row) {
  if (std::exchange(files_.Current, row) != row) state_.View().CurrentChanged();
  if (!files_.ShowsFound())
    state_.Active.Set(files_.Rows.Folder(), std::string(files_.Rows.Name(row)));
}

void FileBody::PlaceCursor(const std::vector<platform::PlacedItem>& placed,
                           std::function<bool()> tells) {
  if (ShowsFound()) return;  // what came of the operation was not looked for
  PlacedNames names = NamesIn(state_.Folder, placed, state_.Syntax);
  if (names.Placed.empty()) return;
  // The rows may not have heard of them yet.
  reader_.FolderChanged({.Names = MissingNames(files_.Rows, names)});
  reader_.WhenDone(
      [this, names = std::move(names), tells = std::move(tells), wasInAction = state_.InAction] {
        const std::vector<RowId> rows = RowsOf(files_.Rows, names);
        // A menu that has come up is for what is selected.
        if (rows.empty() || (state_.InAction && !wasInAction)) return;
        if (MaySelect(files_.Rows, names, files_.Current)) input_.SelectThese(rows);
        // The cursor last: it raises an event, on which anything may happen to the rows.
        SetCurrent(rows.front());
        state_.View().ScrollToCurrent();
        if (tells()) MoveCurrent(rows.front());
      });
}

// The steps of an operation ask for it more than once, and its bracket ends with a look.
void FileBody::Refresh() {
  sizes_.HeedCancel();
  looksLater_ = ShowsFound() && state_.Services.OpenBrackets > 0;
  if (!looksLater_) reader_.Refresh();
}

// From the event loop: nobody is to wait for it.
void FileBody::LookAtFound() {
  if (looksLater_) files_.View().CatchUpLater(0);
}

void FileBody::DrivesChanged() {
  looksLater_ = ShowsFound();
  LookAtFound();
}

void FileBody::Activate(RowId row) {
  OpenRow(files_, row);
}

void FileBody::ShowStatus(const std::string& text) {
  files_.Note = text;
  ShowSummary(files_);
}

// --- Tools.

std::vector<ColouredItem> FileBody::SetItemColour(ItemColour colour) {
  return KeepSelectedColours(files_, colour);
}

int FileBody::FileCount() const {
  return files_.FileCount();
}

void FileBody::CalculateFolderSizes() {
  sizes_.AskForAll();
  MeasureSizes();
}

void FileBody::CalculateItemSize() {
  sizes_.AskForItem();
  MeasureSizes();
}

// What waits for a read goes on from the event loop: whoever asked for that read is not to wait.
void FileBody::MeasureSizes() {
  if (!reader_.IsReading()) return sizes_.Work();
  if (sizes_.HasWishes()) reader_.WhenDone([this] { files_.View().CatchUpLater(0); });
}

void FileBody::CatchUp() {
  if (std::exchange(looksLater_, false) && ShowsFound()) reader_.Refresh();
  reader_.CatchUp();
  MeasureSizes();
}

std::vector<CompareRecord> FileBody::CompareRecords() const {
  return MakeRecords(files_.Rows, state_.Syntax);
}

void FileBody::CompareAgainst(std::vector<CompareRecord>& records, std::int32_t mode) {
  ShowMarks(MarkRows(files_.Rows, records, mode, state_.Syntax));
}

void FileBody::CompareSelf(const std::vector<CompareRecord>& records) {
  ShowMarks(MarkOwnRows(files_.Rows, records, state_.Syntax));
}

void FileBody::ShowMarks(const CompareCounts& counts) {
  if (files_.Rows.Count() > 0) state_.View().CellsChanged(RootRow, 0, files_.Rows.Count() - 1);
  state_.SetStatus(CompareSummary(counts, state_.Services.Forms), files_.Rows.Marks(), true);
}

// --- What the widget and the form ask.

int FileBody::ChildCount(RowId parent) const {
  return parent == RootRow ? files_.Rows.Count() : 0;
}

RowId FileBody::Child(RowId parent, int position) const {
  return position >= 0 && position < ChildCount(parent) ? files_.Rows.At(position) : NoRow;
}

int FileBody::PositionOf(RowId row) const {
  return files_.Rows.Has(row) ? files_.Rows.PositionOf(row) : -1;
}

RowState FileBody::OwnStateOf(RowId row) const {
  return files_.Rows.Has(row) ? FileRowState(files_, row) : RowState{};
}

std::string FileBody::CellText(RowId row, HeadingId heading) const {
  return files_.Rows.Has(row) ? FileCellText(files_, row, heading) : "";
}

std::int64_t FileBody::MomentOf(RowId row, HeadingId heading) const {
  return files_.Rows.Has(row) ? DateOf(files_.Rows.Row(row), heading) : platform::UnknownTime;
}

bool FileBody::IsSizePartial(RowId row) const {
  return files_.Rows.Has(row) && files_.Rows.Row(row).IsSizePartial;
}

std::string FileBody::CellBytes(RowId row, HeadingId heading) const {
  return files_.Rows.Has(row) ? FileCellBytes(files_, row, heading) : "";
}

std::string FileBody::PathOf(RowId row) const {
  return files_.Rows.Has(row) ? files_.PathOf(row) : "";
}

}  // namespace tarnwell::lister
