#include "lister/FileBody.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "base/Text.h"
#include "lister/CellText.h"

namespace tarnwell::lister {

using platform::ItemKind;

struct FileBody::Job {
  Job(int number, ListState& state)
      : Number(number), Pace(state.Services.Clock, state.Services.Pump) {}

  const int Number;
  Pacer Pace;
  FileBody::Standing Standing = FileBody::Standing::Going;
  bool KindsChanged = false;  // a link turned out to lead to a folder
  int Unreadable = 0;         // items without attributes
  std::string Reason;         // of the first of them
};

// --- Reading.

void FileBody::LoadContents(const std::string& folder) {
  if (terminated_) return;
  bool again = Read(PlainPath(state_.Syntax, folder));
  while (again) again = Read(state_.Folder);
}

void FileBody::Refresh() {
  if (!state_.Folder.empty()) LoadContents(state_.Folder);
}

void FileBody::FolderChanged() {
  if (reading_) {
    stale_ = true;
  } else {
    Refresh();
  }
}

bool FileBody::Read(std::string folder) {
  Job job(++newest_, state_);
  reading_ = true;
  stale_ = false;
  state_.Control.CancelRequested = false;
  state_.Folder = folder;
  // The items of another folder must not stand under the new one while that is read.
  if (!state_.Syntax.Same(rows_.Folder(), folder)) Replace(FileRows(folder));
  Follower.Follow(folder);  // before the read, so that no change falls between the two

  FileRows fresh(std::move(folder));
  const base::Status status = ReadNames(job, fresh);
  if (job.Standing == Standing::Superseded) return false;
  if (state_.Syntax.Same(rows_.Folder(), fresh.Folder())) fresh.TakeOver(rows_);
  fresh.Sort(state_.Keys.Entries());
  Replace(std::move(fresh));

  if (job.Standing == Standing::Going) ReadAttributes(job);
  if (job.Standing == Standing::Superseded) return false;
  if (job.KindsChanged || FileRows::NeedsAttributes(state_.Keys.Entries())) Resort();

  reading_ = false;
  const bool cancelled = job.Standing == Standing::Cancelled;
  if (cancelled) state_.Control.CancelRequested = false;
  state_.SetStatus(cancelled ? "Reading stopped" : Summary(job, status));
  return stale_ && !cancelled;
}

base::Status FileBody::ReadNames(Job& job, FileRows& rows) {
  return state_.Services.Files.ReadFolder(rows.Folder(), [&](const platform::FolderEntry& entry) {
    if (job.Pace.IsDue()) Pump(job, rows.Count());
    if (job.Standing != Standing::Going) return false;
    if (!state_.IsFilteredOut(entry)) rows.Add(entry);
    return true;
  });
}

void FileBody::ReadAttributes(Job& job) {
  int order = orders_;
  int told = 0;  // rows before this position have been told to the view
  const auto tell = [&](int end) {
    if (end > told) state_.View().CellsChanged(RootRow, told, end - 1);
    told = end;
  };
  for (int position = 0; position < rows_.Count(); ++position) {
    const RowId row = rows_.At(position);
    if (rows_.Row(row).WasTried) continue;
    ReadAttributesOf(row, job);
    if (!job.Pace.IsDue()) continue;
    tell(position + 1);
    Pump(job, rows_.Count());
    if (job.Standing != Standing::Going) return;
    if (order == orders_) continue;
    // A sort came in: start from the top again, where the user looks, and skip what is done.
    order = orders_;
    told = 0;
    position = -1;
  }
  tell(rows_.Count());
}

void FileBody::ReadAttributesOf(RowId row, Job& job) {
  platform::ItemAttributes attributes;
  const std::string name(rows_.Name(row));
  const base::Status status =
      state_.Services.Files.ReadAttributes(rows_.Folder(), name, attributes);
  if (status) {
    const bool wasFolder = rows_.Row(row).IsFolder();
    rows_.SetAttributes(row, attributes);
    job.KindsChanged = job.KindsChanged || rows_.Row(row).IsFolder() != wasFolder;
    return;
  }
  rows_.SetUnreadable(row);
  if (job.Unreadable++ == 0) job.Reason = status.Reason;
}

void FileBody::Pump(Job& job, int count) {
  state_.SetStatus("Reading: " + GroupedNumber(static_cast<std::uint64_t>(count)) + " items");
  job.Pace.Pump();
  if (job.Number != newest_) {
    job.Standing = Standing::Superseded;
  } else if (state_.Control.CancelRequested) {
    job.Standing = Standing::Cancelled;
  }
}

void FileBody::Replace(FileRows&& rows) {
  const RowId cursor = CursorIn(rows);
  state_.View().BeginReset();
  rows_ = std::move(rows);
  current_ = cursor;
  ++orders_;
  state_.View().EndReset();
}

// The row for the cursor when these rows take the place of those on show.
RowId FileBody::CursorIn(const FileRows& rows) const {
  const bool sameFolder = state_.Syntax.Same(rows_.Folder(), rows.Folder());
  if (!sameFolder || !rows_.Has(current_)) return rows.Find(state_.Active.Find(rows.Folder()));
  const RowId row = rows.Find(rows_.Name(current_));
  if (row != NoRow || rows.Count() == 0) return row;
  return rows.At(std::min(rows_.PositionOf(current_), rows.Count() - 1));
}

std::string FileBody::Summary(const Job& job, const base::Status& status) const {
  const auto count = [](int number, const std::string& noun) {
    return GroupedNumber(static_cast<std::uint64_t>(number)) + noun + (number == 1 ? "" : "s");
  };
  std::string text =
      count(rows_.Count(), " item") + " (" + count(rows_.FolderCount(), " folder") + ")";
  if (!status) text += ". " + CannotRead(rows_.Folder(), status);
  if (job.Unreadable > 0) {
    text += ". " + count(job.Unreadable, " item") + " could not be read: " + job.Reason;
  }
  return text;
}

// --- Commands.

void FileBody::SetFolder(const std::string& folder) {
  const std::string plain = PlainPath(state_.Syntax, folder);
  if (state_.Syntax.Same(plain, state_.Folder)) return;
  state_.Folder = plain;
  Follower.Follow(plain);
}

void FileBody::Resort() {
  state_.View().BeginReorder(RootRow);
  rows_.Sort(state_.Keys.Entries());
  ++orders_;
  state_.View().EndReorder();
}

void FileBody::Terminate() {
  terminated_ = true;
  ++newest_;
  Follower.Stop();
}

void FileBody::MoveCurrent(RowId row) {
  if (!rows_.Has(row)) return;
  if (std::exchange(current_, row) != row) state_.View().CurrentChanged();
  state_.Active.Set(rows_.Folder(), std::string(rows_.Name(row)));
  const int most = std::numeric_limits<std::int16_t>::max();
  state_.Events.ItemFocused(state_.Control.Id(),
                            static_cast<std::int16_t>(std::min(rows_.PositionOf(row), most)));
}

void FileBody::Activate(RowId row) {
  if (!rows_.Has(row)) return;
  ItemKind kind = rows_.Row(row).Kind;
  if (kind == ItemKind::Unknown) {  // its turn in the read has not come
    platform::ItemAttributes attributes;
    const std::string name(rows_.Name(row));
    if (state_.Services.Files.ReadAttributes(rows_.Folder(), name, attributes)) {
      kind = attributes.Kind;
    }
  }
  if (kind != ItemKind::Folder) return;
  const std::string path = PathOf(row), folder = rows_.Folder();
  state_.Events.OpenChildFolder(state_.Control.Id(), path, folder);
}

// --- What the widget and the form ask.

int FileBody::ChildCount(RowId parent) const {
  return parent == RootRow ? rows_.Count() : 0;
}

RowId FileBody::Child(RowId parent, int position) const {
  return position >= 0 && position < ChildCount(parent) ? rows_.At(position) : NoRow;
}

int FileBody::PositionOf(RowId row) const {
  return rows_.Has(row) ? rows_.PositionOf(row) : -1;
}

RowLook FileBody::Look(RowId row) const {
  if (!rows_.Has(row)) return {};
  const FileRow& item = rows_.Row(row);
  return {.Kind = item.Kind, .IsLink = item.IsLink, .IsHidden = item.IsHidden};
}

std::string FileBody::CellText(RowId row, HeadingId heading) const {
  if (!rows_.Has(row)) return "";
  const FileRow& item = rows_.Row(row);
  const std::string_view name = rows_.Name(row);
  const platform::Clock& clock = state_.Services.Clock;
  switch (heading) {
    case HeadingId::Name:
      return base::ForDisplay(name);
    case HeadingId::Extension:
      return item.IsFolder() ? "" : base::ForDisplay(ExtensionOf(name));
    case HeadingId::Size:
      return item.HasAttributes && !item.IsFolder() ? GroupedNumber(item.Size) : "";
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
      return base::ForDisplay(rows_.Folder());
    case HeadingId::Permissions:
      return item.HasAttributes ? PermissionText(item.Mode) : "";
  }
  return "";
}

std::string FileBody::PathOf(RowId row) const {
  return rows_.Has(row) ? state_.Syntax.Join(rows_.Folder(), rows_.Name(row)) : "";
}

}  // namespace tarnwell::lister
