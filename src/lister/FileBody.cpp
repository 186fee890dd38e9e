#include "lister/FileBody.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "base/Text.h"
#include "lister/CellText.h"
#include "lister/KeepColour.h"

namespace tarnwell::lister {

using platform::ItemKind;

void FileBody::SetFilterText(const std::string& text) {
  files_.Filter.SetText(text);
  reader_.FilterChanged();
}

void FileBody::SetExtensionFilter(const std::string& extension) {
  files_.Filter.SetExtension(extension);
  reader_.FilterChanged();
}

std::vector<ExtensionChoice> FileBody::ExtensionChoices() const {
  return {};
}

void FileBody::MoveCurrent(RowId row) {
  if (!files_.Rows.Has(row)) return;
  if (std::exchange(files_.Current, row) != row) state_.View().CurrentChanged();
  state_.Active.Set(files_.Rows.Folder(), std::string(files_.Rows.Name(row)));
  const int most = std::numeric_limits<std::int16_t>::max();
  state_.Events.ItemFocused(state_.Control.Id(),
                            static_cast<std::int16_t>(std::min(files_.Rows.PositionOf(row), most)));
}

void FileBody::Activate(RowId row) {
  if (!files_.Rows.Has(row)) return;
  ItemKind kind = files_.Rows.Row(row).Kind;
  if (kind == ItemKind::Unknown) {  // its turn in the read has not come
    platform::ItemAttributes attributes;
    const std::string name(files_.Rows.Name(row));
    if (state_.Services.Files.ReadAttributes(files_.Rows.Folder(), name, attributes)) {
      kind = attributes.Kind;
    }
  }
  if (kind != ItemKind::Folder) return;
  const std::string path = PathOf(row), folder = files_.Rows.Folder();
  state_.Events.OpenChildFolder(state_.Control.Id(), path, folder);
}

// --- Tools.

void FileBody::SetItemColour(ItemColour colour) {
  KeepColour(files_, colour);
}

int FileBody::FileCount() const {
  return files_.Rows.Count() - files_.Rows.FolderCount();
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
  state_.SetStatus(CompareSummary(counts));
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

RowLook FileBody::Look(RowId row) const {
  if (!files_.Rows.Has(row)) return {};
  const FileRow& item = files_.Rows.Row(row);
  return {.Kind = item.Kind,
          .IsLink = item.IsLink,
          .IsHidden = item.IsHidden,
          .IsSelected = item.IsSelected,
          .Marks = item.Marks};
}

std::string FileBody::CellText(RowId row, HeadingId heading) const {
  if (!files_.Rows.Has(row)) return "";
  const FileRow& item = files_.Rows.Row(row);
  const std::string_view name = files_.Rows.Name(row);
  const platform::Clock& clock = state_.Services.Clock;
  switch (heading) {
    case HeadingId::Name:
      return base::ForDisplay(name);
    case HeadingId::Extension:
      return item.IsFolder() ? "" : base::ForDisplay(ExtensionOf(name));
    case HeadingId::Size:
      return (item.IsFolder() ? item.HasFolderSize : item.HasAttributes) ? GroupedNumber(item.Size)
                                                                         : "";
    case HeadingId::DateLastModified:
      return DateText(clock, item.Modified);
    case HeadingId::DateCreated:
      return DateText(clock, item.Created);
    case HeadingId::DateLastAccessed:
      return DateText(clock, item.Accessed);
    case HeadingId::FileType:
      return TypeText(name, item.Kind, item.IsLink);
    case HeadingId::Attributes:
      return AttributeText(item);
    case HeadingId::Comments:
      return "";
    case HeadingId::Path:
      return base::ForDisplay(files_.Rows.Folder());
    case HeadingId::Permissions:
      return item.HasAttributes ? PermissionText(item.Mode) : "";
  }
  return "";
}

std::string FileBody::CellBytes(RowId row, HeadingId heading) const {
  if (!files_.Rows.Has(row)) return "";
  const FileRow& item = files_.Rows.Row(row);
  const std::string_view name = files_.Rows.Name(row);
  switch (heading) {
    case HeadingId::Name:
      return std::string(name);
    case HeadingId::Extension:
      return std::string(item.IsFolder() ? "" : ExtensionOf(name));
    case HeadingId::Size:
      return CellText(row, heading).empty() ? "" : std::to_string(item.Size);
    case HeadingId::Comments:
      return std::string(files_.Rows.Comment(row));
    case HeadingId::Path:
      return files_.Rows.Folder();
    default:
      return CellText(row, heading);
  }
}

std::string FileBody::PathOf(RowId row) const {
  return files_.Rows.Has(row) ? state_.Syntax.Join(files_.Rows.Folder(), files_.Rows.Name(row))
                              : "";
}

}  // namespace tarnwell::lister
