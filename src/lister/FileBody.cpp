#include "lister/FileBody.h"

#include <algorithm>
#include <array>
#include <limits>
#include <unordered_set>
#include <utility>

#include "base/Text.h"
#include "lister/CellText.h"
#include "lister/MergeRows.h"

namespace tarnwell::lister {

using platform::ItemKind;

namespace {

// Between two reads of a folder that changes meanwhile, in milliseconds.
constexpr std::int64_t LeastRest = 200;
constexpr std::int64_t MostRest = 60'000;

// Set while this lives.
class Flag {
 public:
  explicit Flag(bool& flag) : flag_(flag) { flag_ = true; }
  ~Flag() { flag_ = false; }
  Flag(const Flag&) = delete;
  Flag& operator=(const Flag&) = delete;

 private:
  bool& flag_;
};

}  // namespace

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
  ++newest_;
  wanted_ = state_.Folder = PlainPath(state_.Syntax, folder);
  state_.Control.CancelRequested = false;
  stopped_ = willCatchUp_ = false;
  if (reading_) return;  // the read that runs goes on with this folder
  const Flag reading(reading_);
  while (!Read() && !terminated_) continue;
}

void FileBody::Refresh() {
  if (!state_.Folder.empty()) LoadContents(state_.Folder);
}

void FileBody::FolderChanged() {
  if (stopped_) return;
  stale_ = true;
  if (!reading_ && !willCatchUp_) Refresh();
}

void FileBody::CatchUp() {
  willCatchUp_ = false;
  if (reading_ || !stale_ || stopped_) return;
  if (state_.Control.CancelRequested) {
    stopped_ = true;  // Escape came when the read was just done
  } else {
    Refresh();
  }
}

bool FileBody::Read() {
  Job job(newest_, state_);
  const platform::Clock& clock = state_.Services.Clock;
  const std::int64_t start = clock.Ticks();
  const std::string folder = wanted_;
  stale_ = false;
  state_.Folder = folder;
  // The items of another folder must not stand under the new one while that is read.
  if (!state_.Syntax.Same(rows_.Folder(), folder)) Replace(FileRows(folder));
  Follower.Follow(folder);  // before the read, so that no change falls between the two

  FileRows fresh(folder);
  const base::Status status = ReadNames(job, fresh);
  if (job.Standing == Standing::Superseded) return false;
  ShowNames(std::move(fresh));
  if (job.Standing == Standing::Going) ReadAttributes(job);
  if (job.Standing == Standing::Superseded) return false;
  if (job.KindsChanged || FileRows::NeedsAttributes(state_.Keys.Entries())) Resort();

  if (job.Standing == Standing::Cancelled) {
    state_.Control.CancelRequested = false;
    stopped_ = true;
    state_.SetStatus("Reading stopped");
  } else {
    state_.SetStatus(Summary(job, status));
    MindChanges(clock.Ticks() - start);
  }
  return true;
}

// A folder that changes all the time must not be read all the time.
void FileBody::MindChanges(std::int64_t readFor) {
  if (!stale_ || state_.Control.View == nullptr) return;
  willCatchUp_ = true;
  state_.View().CatchUpLater(static_cast<int>(std::clamp(readFor, LeastRest, MostRest)));
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
  int first = 0, last = -1;  // what has changed since the view was told
  const auto tell = [&] {
    if (first <= last) state_.View().CellsChanged(RootRow, first, last);
    last = -1;
  };
  for (int position = 0; position < rows_.Count(); ++position) {
    const RowId row = rows_.At(position);
    if (rows_.Row(row).WasTried) continue;
    if (ReadAttributesOf(row, job)) {
      if (last < 0) first = position;
      last = position;
    }
    if (!job.Pace.IsDue()) continue;
    tell();
    Pump(job, rows_.Count());
    if (job.Standing != Standing::Going) return;
    if (order == orders_) continue;
    // A sort came in: start from the top again, where the user looks, and skip what is done.
    order = orders_;
    position = -1;
  }
  tell();
}

bool FileBody::ReadAttributesOf(RowId row, Job& job) {
  const FileRow before = rows_.Row(row);
  platform::ItemAttributes attributes;
  const std::string name(rows_.Name(row));
  const base::Status status =
      state_.Services.Files.ReadAttributes(rows_.Folder(), name, attributes);
  if (status) {
    rows_.SetAttributes(row, attributes);
  } else {
    rows_.SetUnreadable(row);
    if (job.Unreadable++ == 0) job.Reason = status.Reason;
  }
  const FileRow& now = rows_.Row(row);
  job.KindsChanged = job.KindsChanged || now.IsFolder() != before.IsFolder();
  return !now.LooksLike(before);
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

void FileBody::ShowNames(FileRows&& fresh) {
  const std::vector<RowId> partners = rows_.PairWith(fresh);
  fresh.TakeOver(rows_, partners);
  fresh.SetOrder(fresh.Sorted(state_.Keys.Entries()));
  if (rows_.Count() == 0) {
    Replace(std::move(fresh));
  } else {
    Merge(std::move(fresh), partners);
  }
  ++orders_;
}

void FileBody::Replace(FileRows&& rows) {
  state_.View().BeginReset();
  rows_ = std::move(rows);
  current_ = rows_.Find(state_.Active.Find(rows_.Folder()));
  state_.View().EndReset();
}

void FileBody::Merge(FileRows&& fresh, const std::vector<RowId>& partners) {
  ListerView& view = state_.View();
  const bool stays = std::find(partners.begin(), partners.end(), current_) != partners.end();
  const bool had = current_ != NoRow;
  const RowId above = had && !stays ? StayingAbove(current_, partners) : NoRow;
  if (had && !stays) current_ = NoRow;  // the view must not look for it among those that go
  view.BeginUpdate();
  MergeRows(rows_, std::move(fresh), partners, view);
  view.EndUpdate();
  if (had && stays) return;
  if (had && rows_.Count() > 0) {
    const int place = above == NoRow ? 0 : rows_.PositionOf(above) + 1;
    current_ = rows_.At(std::min(place, rows_.Count() - 1));
  } else {
    current_ = rows_.Find(state_.Active.Find(rows_.Folder()));
  }
  if (had || current_ != NoRow) view.CurrentChanged();
}

// The last row above this one that stays; NoRow if there is none.
RowId FileBody::StayingAbove(RowId row, const std::vector<RowId>& partners) const {
  const std::unordered_set<RowId> staying(partners.begin(), partners.end());
  for (int position = rows_.PositionOf(row) - 1; position >= 0; --position) {
    if (staying.contains(rows_.At(position))) return rows_.At(position);
  }
  return NoRow;
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
  std::vector<RowId> order = rows_.Sorted(state_.Keys.Entries());
  if (order == rows_.Order()) return;
  state_.View().BeginReorder(RootRow);
  rows_.SetOrder(std::move(order));
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
