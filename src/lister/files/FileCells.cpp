#include "lister/files/FileCells.h"

#include "base/Text.h"
#include "lister/rows/CellText.h"

namespace tarnwell::lister {

std::string FileCellText(const FileListState& files, RowId row, HeadingId heading) {
  const FileRow& item = files.Rows.Row(row);
  const std::string_view name = files.Rows.OwnName(row);
  const ListServices& services = files.List.Services;
  switch (heading) {
    case HeadingId::Name:
      return base::ForDisplay(name);
    case HeadingId::Extension:
      return item.IsFolder() ? "" : base::ForDisplay(ExtensionOf(name));
    case HeadingId::Size:
      return item.HasSize() ? MeasuredText(services.Forms, item.Size, !item.IsSizePartial) : "";
    case HeadingId::DateLastModified:
    case HeadingId::DateCreated:
    case HeadingId::DateLastAccessed:
      return DateText(services.Forms, services.Clock, DateOf(item, heading));
    case HeadingId::FileType:
      return TypeText(name, item.Kind, item.IsLink);
    case HeadingId::Attributes:
      return AttributeText(item);
    case HeadingId::Comments:
      return base::ForDisplay(files.Rows.Comment(row));
    case HeadingId::Path:
      return base::ForDisplay(files.FolderOf(row));
    case HeadingId::Permissions:
      return item.HasAttributes ? PermissionText(item.Mode) : "";
  }
  return "";
}

std::string FileCellBytes(const FileListState& files, RowId row, HeadingId heading) {
  const FileRow& item = files.Rows.Row(row);
  const std::string_view name = files.Rows.OwnName(row);
  switch (heading) {
    case HeadingId::Name:
      return std::string(name);
    case HeadingId::Extension:
      return std::string(item.IsFolder() ? "" : ExtensionOf(name));
    case HeadingId::Size:
      return item.HasSize() ? MeasuredDigits(item.Size, !item.IsSizePartial) : "";
    case HeadingId::DateLastModified:
    case HeadingId::DateCreated:
    case HeadingId::DateLastAccessed:
      return IsoText(files.List.Services.Clock, DateOf(item, heading));
    case HeadingId::Comments:
      return std::string(files.Rows.Comment(row));
    case HeadingId::Path:
      return files.FolderOf(row);
    default:
      return FileCellText(files, row, heading);
  }
}

RowState FileRowState(const FileListState& files, RowId row) {
  const FileRow& item = files.Rows.Row(row);
  const CutItems& cut = files.List.Services.Cut;
  return {.Kind = item.Kind,
          .IsLink = item.IsLink,
          .IsBroken = item.IsBroken,
          .IsHidden = item.IsHidden,
          .IsCut = !cut.IsEmpty() && cut.Has(files.PathOf(row)),
          .IsSelected = item.IsSelected,
          .Colour = files.ShowsColours() ? item.Colour : ItemColour::Default,
          .Marks = item.Marks};
}

}  // namespace tarnwell::lister
