#include "lister/FileReader.h"

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

struct FileReader::Job {
  Job(int number, ListState& state)
      : Number(number), Pace(state.Services.Clock, state.Services.Pump) {}

  const int Number;
  Pacer Pace;
  FileReader::Standing Standing = FileReader::Standing::Going;
  bool KindsChanged = false;  // a link turned out to lead to a folder
  int Unreadable = 0;         // items without attributes
  std::string Reason;         // of the first of them
};

// --- Reading.

void FileReader::Load(const std::string& folder) {
  if (terminated_) return;
  ++newest_;
  wanted_ = files_.List.Folder = PlainPath(files_.List.Syntax, folder);
  files_.List.Control.CancelRequested = false;
  stopped_ = willCatchUp_ = false;
  if (reading_) return;  // the read that runs goes on with this folder
  const Flag reading(reading_);
  while (!Read() && !terminated_) continue;
}

void FileReader::Refresh() {
  if (!files_.List.Folder.empty()) Load(files_.List.Folder);
}

void FileReader::FolderChanged(const platform::FolderChanges&) {
  if (stopped_) return;
  stale_ = true;
  if (!reading_ && !willCatchUp_) Refresh();
}

void FileReader::CatchUp() {
  willCatchUp_ = false;
  if (reading_ || !stale_ || stopped_) return;
  if (files_.List.Control.CancelRequested) {
    stopped_ = true;  // Escape came when the read was just done
  } else {
    Refresh();
  }
}

bool FileReader::Read() {
  Job job(newest_, files_.List);
  const platform::Clock& clock = files_.List.Services.Clock;
  const std::int64_t start = clock.Ticks();
  const std::string folder = wanted_;
  stale_ = false;
  files_.List.Folder = folder;
  // The items of another folder must not stand under the new one while that is read.
  if (!files_.List.Syntax.Same(files_.Rows.Folder(), folder)) Replace(FileRows(folder));
  follower_.Follow(folder);  // before the read, so that no change falls between the two

  FileRows fresh(folder);
  const base::Status status = ReadNames(job, fresh);
  if (job.Standing == Standing::Superseded) return false;
  ShowNames(std::move(fresh));
  if (job.Standing == Standing::Going) ReadAttributes(job);
  if (job.Standing == Standing::Superseded) return false;
  if (job.KindsChanged || FileRows::NeedsAttributes(files_.List.Keys.Entries())) Resort();

  if (job.Standing == Standing::Cancelled) {
    files_.List.Control.CancelRequested = false;
    stopped_ = true;
    files_.List.SetStatus("Reading stopped");
  } else {
    files_.List.SetStatus(Summary(job, status));
    MindChanges(clock.Ticks() - start);
  }
  return true;
}

// A folder that changes all the time must not be read all the time.
void FileReader::MindChanges(std::int64_t readFor) {
  if (!stale_ || files_.List.Control.View == nullptr) return;
  willCatchUp_ = true;
  files_.View().CatchUpLater(static_cast<int>(std::clamp(readFor, LeastRest, MostRest)));
}

base::Status FileReader::ReadNames(Job& job, FileRows& rows) {
  return files_.List.Services.Files.ReadFolder(rows.Folder(),
                                               [&](const platform::FolderEntry& entry) {
                                                 if (job.Pace.IsDue()) Pump(job, rows.Count());
                                                 if (job.Standing != Standing::Going) return false;
                                                 if (!files_.List.IsFilteredOut(entry))
                                                   rows.Add(entry);
                                                 return true;
                                               });
}

void FileReader::ReadAttributes(Job& job) {
  int order = files_.Orders;
  int first = 0, last = -1;  // what has changed since the view was told
  const auto tell = [&] {
    if (first <= last) files_.View().CellsChanged(RootRow, first, last);
    last = -1;
  };
  for (int position = 0; position < files_.Rows.Count(); ++position) {
    const RowId row = files_.Rows.At(position);
    if (files_.Rows.Row(row).WasTried) continue;
    if (ReadAttributesOf(row, job)) {
      if (last < 0) first = position;
      last = position;
    }
    if (!job.Pace.IsDue()) continue;
    tell();
    Pump(job, files_.Rows.Count());
    if (job.Standing != Standing::Going) return;
    if (order == files_.Orders) continue;
    // A sort came in: start from the top again, where the user looks, and skip what is done.
    order = files_.Orders;
    position = -1;
  }
  tell();
}

bool FileReader::ReadAttributesOf(RowId row, Job& job) {
  const FileRow before = files_.Rows.Row(row);
  platform::ItemAttributes attributes;
  const std::string name(files_.Rows.Name(row));
  const base::Status status =
      files_.List.Services.Files.ReadAttributes(files_.Rows.Folder(), name, attributes);
  if (status) {
    files_.Rows.SetAttributes(row, attributes);
    files_.ShowKnownSize(row);
  } else {
    files_.Rows.SetUnreadable(row);
    if (job.Unreadable++ == 0) job.Reason = status.Reason;
  }
  const FileRow& now = files_.Rows.Row(row);
  job.KindsChanged = job.KindsChanged || now.IsFolder() != before.IsFolder();
  return !now.LooksLike(before);
}

void FileReader::Pump(Job& job, int count) {
  files_.List.SetStatus("Reading: " + GroupedNumber(static_cast<std::uint64_t>(count)) + " items");
  job.Pace.Pump();
  if (job.Number != newest_) {
    job.Standing = Standing::Superseded;
  } else if (files_.List.Control.CancelRequested) {
    job.Standing = Standing::Cancelled;
  }
}

void FileReader::ShowNames(FileRows&& fresh) {
  const std::vector<RowId> partners = files_.Rows.PairWith(fresh);
  fresh.TakeOver(files_.Rows, partners);
  fresh.SetOrder(fresh.Sorted(files_.List.Keys.Entries(), files_.List.Names));
  if (files_.Rows.Count() == 0) {
    Replace(std::move(fresh));
  } else {
    Merge(std::move(fresh), partners);
  }
  ++files_.Orders;
}

void FileReader::Replace(FileRows&& rows) {
  if (files_.BeforeReset) files_.BeforeReset();
  files_.View().BeginReset();
  files_.Rows = std::move(rows);
  files_.Current = files_.Rows.Find(files_.List.Active.Find(files_.Rows.Folder()));
  files_.View().EndReset();
}

void FileReader::Merge(FileRows&& fresh, const std::vector<RowId>& partners) {
  ListerView& view = files_.View();
  const bool stays = std::find(partners.begin(), partners.end(), files_.Current) != partners.end();
  const bool had = files_.Current != NoRow;
  const RowId above = had && !stays ? StayingAbove(files_.Current, partners) : NoRow;
  if (had && !stays) files_.Current = NoRow;  // the view must not look for it among those that go
  view.BeginUpdate();
  MergeRows(files_.Rows, std::move(fresh), partners, view);
  view.EndUpdate();
  if (had && stays) return;
  if (had && files_.Rows.Count() > 0) {
    const int place = above == NoRow ? 0 : files_.Rows.PositionOf(above) + 1;
    files_.Current = files_.Rows.At(std::min(place, files_.Rows.Count() - 1));
  } else {
    files_.Current = files_.Rows.Find(files_.List.Active.Find(files_.Rows.Folder()));
  }
  if (had || files_.Current != NoRow) view.CurrentChanged();
}

// The last row above this one that stays; NoRow if there is none.
RowId FileReader::StayingAbove(RowId row, const std::vector<RowId>& partners) const {
  const std::unordered_set<RowId> staying(partners.begin(), partners.end());
  for (int position = files_.Rows.PositionOf(row) - 1; position >= 0; --position) {
    if (staying.contains(files_.Rows.At(position))) return files_.Rows.At(position);
  }
  return NoRow;
}

std::string FileReader::Summary(const Job& job, const base::Status& status) const {
  const auto count = [](int number, const std::string& noun) {
    return GroupedNumber(static_cast<std::uint64_t>(number)) + noun + (number == 1 ? "" : "s");
  };
  std::string text = count(files_.Rows.Count(), " item") + " (" +
                     count(files_.Rows.FolderCount(), " folder") + ")";
  if (!status) text += ". " + CannotRead(files_.Rows.Folder(), status);
  if (job.Unreadable > 0) {
    text += ". " + count(job.Unreadable, " item") + " could not be read: " + job.Reason;
  }
  return text;
}

// --- Commands.

void FileReader::SetFolder(const std::string& folder) {
  const std::string plain = PlainPath(files_.List.Syntax, folder);
  if (files_.List.Syntax.Same(plain, files_.List.Folder)) return;
  files_.List.Folder = plain;
  follower_.Follow(plain);
}

void FileReader::Resort() {
  std::vector<RowId> order = files_.Rows.Sorted(files_.List.Keys.Entries(), files_.List.Names);
  if (order == files_.Rows.Order()) return;
  files_.View().BeginReorder(RootRow);
  files_.Rows.SetOrder(std::move(order));
  ++files_.Orders;
  files_.View().EndReorder();
}

void FileReader::FilterChanged() {
  Refresh();
}

void FileReader::NotesChanged() {}

void FileReader::WhenDone(std::function<void()> work) {
  work();
}

void FileReader::Terminate() {
  terminated_ = true;
  ++newest_;
  follower_.Stop();
}

}  // namespace tarnwell::lister
