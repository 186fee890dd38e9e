#include "lister/files/FileReader.h"

#include <algorithm>
#include <utility>

#include "lister/files/FileStatus.h"
#include "lister/files/KeepCursor.h"
#include "lister/rows/CellText.h"
#include "lister/rows/MergeRows.h"
#include "platform/CountedTexts.h"

namespace tarnwell::lister {

namespace {

// Between two reads of a folder that changes meanwhile, in milliseconds; see MostRest.
constexpr std::int64_t LeastReadRest = 200;

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

// --- What can be asked for.

void FileReader::Load(const std::string& folder) {
  if (terminated_) return;
  isOfFound_ = false;
  Begin(folder);
}

void FileReader::Begin(const std::string& folder) {
  ListState& list = files_.List;
  ++newest_;
  std::string plain = PlainPath(list.Syntax, folder);
  if (!list.Syntax.Same(plain, wanted_)) waiting_.clear();
  wanted_ = list.Folder = std::move(plain);
  list.Fields.CancelRequested = false;
  if (stopped_) files_.Trouble.clear();  // it says so
  stopped_ = willCatchUp_ = false;
  arrived_.clear();
  dropped_.clear();
  moved_.clear();
  readAsked_ = true;
  Work();
}

void FileReader::SetFolder(const std::string& folder) {
  const std::string plain = PlainPath(files_.List.Syntax, folder);
  if (isOfFound_ || files_.List.Syntax.Same(plain, files_.List.Folder)) return;
  files_.List.Folder = plain;
  follower_.Follow(plain);
}

void FileReader::Refresh() {
  if (isOfFound_) return LookAgain();
  if (!files_.List.Folder.empty()) Load(files_.List.Folder);
}

void FileReader::FolderChanged(const platform::FolderChanges& changes) {
  if (stopped_ || terminated_ || isOfFound_) return;
  update_.Add(changes);
  if (!busy_ && !willCatchUp_) CatchUp();
}

void FileReader::CatchUp() {
  willCatchUp_ = false;
  if (busy_ || stopped_ || terminated_ || update_.HasNone()) return;
  if (update_.IsEverything() ||
      !files_.List.Syntax.Same(files_.Rows.Folder(), files_.List.Folder)) {
    Refresh();
  } else {
    Work();
  }
}

void FileReader::Resort() {
  sortAsked_ = true;
  Work();
}

void FileReader::FilterChanged() {
  if (sorting_) {
    filterAsked_ = true;
    return;
  }
  filterAsked_ = false;
  KeepCursorAndPlace(files_, TakenBy(files_), [&] {
    ArrangeRows(files_.Rows, files_.Rows.All(), files_.List.Filter, files_.View());
  });
  files_.View().FilterChanged();
  ShowSummary(files_);
}

void FileReader::SettingsChanged() {
  Work();
}

void FileReader::WhenDone(std::function<void()> work) {
  if (!busy_) return work();
  waiting_.push_back(std::move(work));
}

void FileReader::Terminate() {
  terminated_ = true;
  ++newest_;
  waiting_.clear();
  follower_.Stop();
}

// --- Work.

void FileReader::Work() {
  if (busy_) return;
  const bool coloursBefore = files_.ShowsColours();
  {
    const Flag busy(busy_);
    while (DoNext()) continue;
  }
  if (terminated_) return;
  if (!files_.Progress.empty()) {
    files_.Progress.clear();
    ShowSummary(files_);
  }
  if (files_.ShowsColours() != coloursBefore) files_.View().Repaint();
  RunWaiting();
}

bool FileReader::DoNext() {
  if (terminated_) return false;
  if (readAsked_) {
    Read();
  } else if (!arrived_.empty()) {
    TakeFound();
  } else if (!moved_.empty()) {
    Follow();
  } else if (sortAsked_) {
    ReadJob job = NewJob();
    Sort(job);
  } else if (lookAsked_ && !stopped_) {
    LookAtFound();
  } else if (!stopped_ && !willCatchUp_ && !update_.HasNone() && !update_.IsEverything()) {
    Update();
  } else if (!stopped_ && details_.LacksExtendedAttributes()) {
    ReadExtendedAttributes();
  } else {
    if (!willCatchUp_) MindChanges(0);
    return false;
  }
  return true;
}

void FileReader::RunWaiting() {
  if (runsWaiting_) return;
  const Flag runs(runsWaiting_);
  while (!busy_ && !waiting_.empty()) {
    const std::function<void()> work = std::move(waiting_.front());
    waiting_.pop_front();
    work();
  }
}

ReadJob FileReader::NewJob() {
  return {newest_, files_.List.Services.Clock, files_.List.Services.Pump,
          [this](ReadJob& job, const std::string& progress) { LetThrough(job, progress); }};
}

void FileReader::LetThrough(ReadJob& job, const std::string& progress) {
  files_.Progress = progress;
  ShowSummary(files_);
  job.Pace.Pump();
  if (job.Number != newest_) {
    job.Standing = Standing::Superseded;
  } else if (job.HeedsCancel && files_.List.Fields.CancelRequested) {
    job.Standing = Standing::Cancelled;
  } else if (sortAsked_ && job.MaySort && !sorting_) {
    Sort(job);
  }
  const bool isWanted = !arrived_.empty() || !moved_.empty();
  if (job.Goes() && job.GivesWay && isWanted) job.Standing = Standing::GaveWay;
}

// --- Reading.

void FileReader::Read() {
  readAsked_ = lookAsked_ = false;
  if (isOfFound_) return BeginFound();
  ReadJob job = NewJob();
  const platform::Clock& clock = files_.List.Services.Clock;
  const std::int64_t start = clock.Ticks();
  const std::string folder = files_.List.Folder = wanted_;
  update_.Clear();
  if (files_.ShowsFound() || !files_.List.Syntax.Same(files_.Rows.Folder(), folder)) {
    ClearFor(folder);
  }
  follower_.Follow(folder);  // before the read, so that no change falls between the two

  base::Status status;
  if (job.Goes()) job.Folder = files_.List.Services.Files.OpenFolder(folder, status);
  if (!job.Folder && job.Standing == Standing::Cancelled) return Stop();  // what is on show stays
  FileRows fresh(folder);
  std::optional<RowSort> sort;
  // Where rows take over what is known of others, their keys have to wait for that.
  if (files_.Rows.All().empty()) sort.emplace(fresh, files_.List.Keys.Entries(), files_.List.Names);
  if (job.Folder) status = ReadNames(job, fresh, sort);
  if (job.IsSuperseded()) return;
  std::vector<RowId> partners = files_.Rows.PairWith(fresh);
  fresh.TakeOver(files_.Rows, partners);
  if (!SortFresh(job, fresh, sort)) return;

  files_.Trouble = status ? "" : CannotRead(folder, status);
  files_.Reason.clear();
  MindUnfollowed(folder);
  details_.Forget();
  ShowNames(std::move(fresh), std::move(partners));
  if (!files_.List.Services.Files.ReadSpace(folder, files_.Space)) files_.Space = {};
  if (job.Goes() && job.Folder) ReadDetails(job);
  if (job.IsSuperseded()) return;
  if (job.Standing == Standing::Cancelled) Stop();
  files_.Progress.clear();
  ShowSummary(files_);
  MindChanges(clock.Ticks() - start);
}

// Told once: in the first folder of those in a row.
void FileReader::MindUnfollowed(const std::string& folder) {
  if (follower_.Follows(folder)) {
    files_.Unfollowed.clear();
  } else if (!follower_.IsStopped() && files_.Trouble.empty() && files_.Unfollowed.empty()) {
    files_.Unfollowed = folder;
  }
}

base::Status FileReader::ReadNames(ReadJob& job, FileRows& rows, std::optional<RowSort>& sort) {
  std::uint64_t count = 0;
  bool full = false;
  files_.HiddenCount = 0;
  job.SoFar = [&] {
    return platform::Counted(files_.List.Services.Forms, platform::CountedText::ReadingNames,
                             count);
  };
  base::Status status = job.Folder->Read([&](const platform::FolderEntry& entry) {
    if (job.Pace.IsDue() && !job.Pump(job.SoFar())) return false;
    if (files_.List.IsFilteredOut(entry)) {
      ++files_.HiddenCount;
      return true;
    }
    ++count;
    const RowId row = rows.Add(entry);
    full = row == NoRow;
    if (sort && !full) sort->Add(row);
    return !full;
  });
  job.SoFar = {};
  if (full) status = {.Code = -1, .Reason = "More names than fit into the list"};
  return status;
}

bool FileReader::SortFresh(ReadJob& job, FileRows& fresh, std::optional<RowSort>& sort) {
  if (sortAsked_) sort.reset();
  do {
    sortAsked_ = false;
    const std::vector<SortKey> keys = files_.List.Keys.Entries();  // they may change meanwhile
    std::vector<RowId> order =
        sort ? sort->Sorted(SortPace(job)) : fresh.Sorted(keys, files_.List.Names, SortPace(job));
    sort.reset();
    if (job.IsSuperseded()) return false;
    if (!sortAsked_) fresh.SetOrder(std::move(order));
  } while (sortAsked_);
  if (files_.List.Filter.IsOn()) fresh.Filter(files_.List.Filter);
  return true;
}

FileRows::GoOn FileReader::SortPace(ReadJob& job) {
  return [this, &job] {
    if (job.Pace.IsDue()) job.Pump("Sorting");
    return !job.IsSuperseded() && !sortAsked_;
  };
}

// Of folders whose attributes came with their names; the others get theirs as they are looked at.
void FileReader::ShowKnownSizes() {
  if (files_.Sizes.IsEmpty()) return;
  for (const RowId row : files_.Rows.All()) {
    const FileRow before = files_.Rows.Row(row);
    if (!before.WasTried) continue;
    files_.ShowKnownSize(row);
    const int position = files_.Rows.PositionOf(row);
    if (position < 0 || files_.Rows.Row(row).LooksLike(before)) continue;
    files_.View().CellsChanged(RootRow, position, position);
  }
}

void FileReader::ReadDetails(ReadJob& job) {
  const std::vector<SortKey>& keys = files_.List.Keys.Entries();
  job.MaySort = true;
  ShowKnownSizes();
  details_.ReadAttributes(job);
  if (job.IsSuperseded()) return;
  // Once, at the end: rows that jump about while they come cannot be read or clicked.
  if (details_.TakeKindsChanged() || FileRows::NeedsAttributes(keys)) Sort(job);
  if (!job.Goes() || !details_.LacksExtendedAttributes()) return;
  details_.ReadExtendedAttributes(job);
  if (!job.IsSuperseded() && FileRows::NeedsExtendedAttributes(keys)) Sort(job);
}

// The items of another folder must not stand under the new one while that is read.
void FileReader::ClearFor(const std::string& folder) {
  files_.List.Filter = {};
  files_.Note.clear();
  files_.NamesAreRead = false;
  LendPath(isOfFound_);
  Replace(isOfFound_ ? FileRows(folder, files_.List.Syntax.Separator) : FileRows(folder));
  files_.View().FilterChanged();
}

void FileReader::ShowNames(FileRows&& fresh, std::vector<RowId> partners) {
  files_.NamesAreRead = true;
  if (files_.Rows.Count() == 0) {
    Replace(std::move(fresh));
  } else {
    std::vector<bool> staying(static_cast<std::size_t>(files_.Rows.StoreSize()) + 1);
    for (const RowId row : fresh.Order()) {
      const RowId partner = partners[static_cast<std::size_t>(row - 1)];
      if (partner != NoRow) staying[static_cast<std::size_t>(partner)] = true;
    }
    KeepCursorAndPlace(
        files_, [&](RowId row) { return staying[static_cast<std::size_t>(row)]; },
        [&] { MergeRows(files_.Rows, std::move(fresh), std::move(partners), files_.View()); });
  }
  files_.View().FilterChanged();  // the extensions to choose from
}

void FileReader::Replace(FileRows&& rows) {
  if (files_.BeforeReset) files_.BeforeReset();
  files_.View().BeginReset();
  files_.Rows = std::move(rows);
  files_.Current = files_.Remembered();
  ++files_.Orders;
  files_.View().EndReset();
}

void FileReader::Stop() {
  files_.List.Fields.CancelRequested = false;
  stopped_ = true;
  waiting_.clear();
  if (files_.AfterStop) files_.AfterStop();
  files_.Trouble = "Reading stopped";
}

// A folder that changes all the time must not be read all the time.
void FileReader::MindChanges(std::int64_t readFor) {
  if (update_.HasNone() || stopped_ || !files_.List.HasView()) return;
  willCatchUp_ = true;
  const std::int64_t rest =
      update_.IsEverything() ? std::clamp(readFor, LeastReadRest, MostRest) : LeastReadRest;
  files_.View().CatchUpLater(static_cast<int>(rest));
}

// --- Work on the rows that are there.

std::vector<RowId> FileReader::SortedRows(ReadJob& job) {
  std::vector<RowId> order;
  const Flag sorting(sorting_);
  do {
    sortAsked_ = false;
    const std::vector<SortKey> keys = files_.List.Keys.Entries();
    order = files_.Rows.Sorted(keys, files_.List.Names, SortPace(job));
  } while (sortAsked_ && !job.IsSuperseded());
  return order;
}

void FileReader::Sort(ReadJob& job) {
  std::vector<RowId> order = SortedRows(job);
  if (!job.IsSuperseded()) {
    KeepCursor(files_, TakenBy(files_), [&] {
      ArrangeRows(files_.Rows, std::move(order), files_.List.Filter, files_.View());
    });
  }
  if (filterAsked_) FilterChanged();
}

void FileReader::ReadExtendedAttributes() {
  files_.List.Fields.CancelRequested = false;
  ReadJob job = NewJob();
  job.MaySort = true;
  base::Status status;
  job.Folder = OpenShown(status);
  details_.ReadExtendedAttributes(job);
  if (job.Standing == Standing::Cancelled) files_.List.Fields.CancelRequested = false;
  if (!job.IsSuperseded() && FileRows::NeedsExtendedAttributes(files_.List.Keys.Entries()))
    Sort(job);
}

void FileReader::Update() {
  ReadJob job = NewJob();
  job.HeedsCancel = !files_.List.Fields.CancelRequested;  // one left over is not for this
  base::Status status;
  job.Folder = files_.List.Services.Files.OpenFolder(files_.Rows.Folder(), status);
  if (!job.Folder) return Refresh();
  if (update_.Apply(job)) files_.View().FilterChanged();
  // What is hidden may have come or gone as well.
  if (files_.Rows.All().empty()) update_.Add({{}, true, false});
  if (job.IsSuperseded()) return;
  if (job.Standing == Standing::Cancelled) Stop();
  ShowSummary(files_);
  MindChanges(0);
}

}  // namespace tarnwell::lister
