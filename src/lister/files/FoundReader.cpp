// The part of FileReader that keeps a list of what was found below a folder. Nothing tells of
// changes to items of so many folders: they are looked at again when that is asked for.
#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "lister/files/FileReader.h"
#include "lister/files/FileStatus.h"
#include "lister/files/FoundFolder.h"
#include "lister/files/KeepCursor.h"
#include "lister/rows/MergeRows.h"
#include "platform/CountedTexts.h"

namespace tarnwell::lister {

namespace {

// So many rows are put in their places one by one; more are sorted together with the others.
constexpr std::size_t MostPlacedSingly = 5000;

// Of a path below the folder, the way from there on; else empty.
std::string_view WayBelow(std::string_view path, std::string_view folder,
                          const base::PathSyntax& syntax) {
  if (syntax.Same(path, folder) || !syntax.IsWithin(path, folder)) return {};
  return path.substr(syntax.AddSeparator(folder).size());
}

// The end of the part of the name, the whole or the way to a folder above, that is among `ways`.
template <typename Ways>
std::size_t FindWay(const Ways& ways, const std::string& name, char separator) {
  for (std::size_t end = 0; end != name.size();) {
    end = std::min(name.find(separator, end + 1), name.size());
    if (ways.contains(name.substr(0, end))) return end;
  }
  return name.npos;
}

// Anything else may have kept it from being reached.
bool SaysGone(const base::Status& status) {
  const std::error_code code(status.Code, std::system_category());
  return code == std::errc::no_such_file_or_directory || code == std::errc::not_a_directory;
}

}  // namespace

// --- What can be asked for.

void FileReader::ShowFound(const std::string& folder) {
  if (terminated_) return;
  isOfFound_ = true;
  Begin(folder);
}

void FileReader::AddFound(const std::vector<platform::FoundItem>& items) {
  if (!isOfFound_ || terminated_) return;
  arrived_.insert(arrived_.end(), items.begin(), items.end());
  Work();
}

std::vector<platform::FoundItem> FileReader::FoundItems() const {
  if (!isOfFound_) return {};
  std::vector<platform::FoundItem> items;
  if (files_.ShowsFound()) {
    items.reserve(files_.Rows.All().size() + arrived_.size());
    for (const RowId row : files_.Rows.All()) {
      const FileRow& item = files_.Rows.Row(row);
      const platform::ItemKind kind = item.IsLink ? platform::ItemKind::Unknown : item.Kind;
      items.push_back({std::string(files_.Rows.Name(row)), kind, item.IsLink});
    }
  }
  items.insert(items.end(), arrived_.begin(), arrived_.end());
  return items;
}

void FileReader::FollowMoved(const std::vector<platform::PlacedItem>& placed) {
  if (!isOfFound_ || terminated_) return;
  moved_.insert(moved_.end(), placed.begin(), placed.end());
  Work();
}

// What is known stays on show until it is known anew.
void FileReader::LookAgain() {
  files_.List.Fields.CancelRequested = false;
  stopped_ = willCatchUp_ = false;
  files_.Trouble.clear();
  files_.Reason.clear();
  files_.Rows.ForgetTried();
  details_.Forget();
  lookAsked_ = true;
  Work();
}

std::unique_ptr<platform::OpenedFolder> FileReader::OpenShown(base::Status& status) const {
  const platform::FileSystem& files = files_.List.Services.Files;
  if (!files_.ShowsFound()) return files.OpenFolder(files_.Rows.Folder(), status);
  return std::make_unique<FoundFolder>(files, files_.Rows.Folder());
}

void FileReader::LendPath(bool lends) {
  ListState& list = files_.List;
  if (std::exchange(list.Table.LendsPath, lends) == lends) return;
  // In one folder nobody could see what the rows are sorted by.
  if (!list.Table.IsShown(HeadingId::Path) && list.Keys.Find(HeadingId::Path) != nullptr) {
    list.Keys.StartNew({});
  }
  list.View().HeadingsChanged();
}

// --- Work.

void FileReader::BeginFound() {
  files_.List.Folder = wanted_;
  update_.Clear();
  noteless_.clear();
  ClearFor(wanted_);
  follower_.Follow("");
  files_.Trouble.clear();
  files_.Reason.clear();
  files_.Unfollowed.clear();
  files_.HiddenCount = 0;
  files_.Space = {};
  details_.Forget();
  ShowSummary(files_);
}

void FileReader::TakeFound() {
  ReadJob job = NewJob();
  job.HeedsCancel = false;
  std::vector<RowId> fresh;
  if (!StoreFound(job, fresh)) return;
  std::vector<RowId> order;
  if (fresh.size() > MostPlacedSingly) {
    order = SortedRows(job);
    if (job.IsSuperseded()) return;
  } else {
    order = files_.Rows.Reordered(fresh, files_.List.Keys.Entries(), files_.List.Names);
  }
  KeepCursorAndPlace(files_, TakenBy(files_), [&] {
    ArrangeRows(files_.Rows, std::move(order), files_.List.Filter, files_.View());
  });
  files_.NamesAreRead = true;
  noteless_.insert(noteless_.end(), fresh.begin(), fresh.end());
  lookAsked_ = true;
  if (std::exchange(filterAsked_, false)) FilterChanged();
  files_.View().FilterChanged();  // the extensions to choose from
  ShowSummary(files_);
}

bool FileReader::StoreFound(ReadJob& job, std::vector<RowId>& fresh) {
  for (const platform::FoundItem& item : std::exchange(arrived_, {})) {
    if (job.Pace.IsDue()) {
      job.Pump(platform::Counted(files_.List.Services.Forms, platform::CountedText::ReadingNames,
                                 fresh.size()));
    }
    if (job.IsSuperseded()) return false;
    const RowId row =
        files_.Rows.Store({.Name = item.Name, .Kind = item.Kind, .IsLink = item.IsLink});
    if (row == NoRow) {
      files_.Trouble = "More names than fit into the list";
      break;
    }
    fresh.push_back(row);
  }
  return true;
}

// A row whose item, or a folder above it, was moved or renamed. One of that path before has given
// way to it; one that is elsewhere now goes.
void FileReader::Follow() {
  const ListState& list = files_.List;
  const std::string& folder = files_.Rows.Folder();
  std::unordered_map<std::string, std::string> ways;  // from where to where; empty for elsewhere
  std::unordered_set<std::string> placed;
  for (const platform::PlacedItem& item : std::exchange(moved_, {})) {
    const std::string_view from = WayBelow(item.From, folder, list.Syntax);
    placed.emplace(WayBelow(item.To, folder, list.Syntax));
    if (from.empty() || list.Services.Files.Exists(item.From)) continue;  // a copy
    ways.insert_or_assign(std::string(from), WayBelow(item.To, folder, list.Syntax));
  }
  BringBack(placed);
  if (ways.empty()) return;
  std::vector<RowId> changed;
  std::unordered_set<RowId> gone;
  std::unordered_set<std::string> taken;
  for (const RowId row : files_.Rows.All()) {
    const std::string name(files_.Rows.Name(row));
    const std::size_t end = FindWay(ways, name, list.Syntax.Separator);
    if (end == name.npos) continue;
    const std::string& to = ways.at(name.substr(0, end));
    const std::string now = to + name.substr(end);
    if (to.empty() || taken.contains(now) || !files_.Rows.Rename(row, now)) {
      gone.insert(row);
    } else {
      changed.push_back(row);
      taken.insert(now);
    }
  }
  if (changed.empty() && gone.empty()) return;
  const std::unordered_set<RowId> kept(changed.begin(), changed.end());
  for (const RowId row : files_.Rows.All()) {
    if (!kept.contains(row) && taken.contains(std::string(files_.Rows.Name(row)))) gone.insert(row);
  }
  ArrangeWithout(gone, files_.Rows.Reordered(changed, list.Keys.Entries(), list.Names));
  if (files_.Rows.Count() > 0) files_.View().CellsChanged(RootRow, 0, files_.Rows.Count() - 1);
  if (kept.contains(files_.Current)) files_.View().ScrollToCurrent();
}

// What went, and is where it was found again.
void FileReader::BringBack(const std::unordered_set<std::string>& placed) {
  const ListState& list = files_.List;
  std::erase_if(dropped_, [&](const std::string& name) {
    if (FindWay(placed, name, list.Syntax.Separator) == name.npos) return false;
    if (!list.Services.Files.Exists(list.Syntax.Join(files_.Rows.Folder(), name))) return false;
    if (files_.Rows.Find(name) == NoRow) arrived_.push_back({name, platform::ItemKind::Unknown});
    return true;
  });
}

void FileReader::ArrangeWithout(const std::unordered_set<RowId>& gone, std::vector<RowId> order) {
  for (const RowId row : gone) dropped_.emplace(files_.Rows.Name(row));
  std::erase_if(order, [&](RowId row) { return gone.contains(row); });
  const auto stays = [&, taken = TakenBy(files_)](RowId row) {
    return !gone.contains(row) && taken(row);
  };
  KeepCursorAndPlace(files_, stays, [&] {
    ArrangeRows(files_.Rows, std::move(order), files_.List.Filter, files_.View());
  });
  files_.View().FilterChanged();
  ShowSummary(files_);
}

void FileReader::LookAtFound() {
  lookAsked_ = false;
  ReadJob job = NewJob();
  job.MaySort = job.GivesWay = true;
  base::Status status;
  job.Folder = OpenShown(status);
  details_.ReadAttributes(job);
  if (job.Goes()) DropGone(job);
  if (job.Goes()) details_.ReadExtendedAttributesOf(job, noteless_);
  if (job.Goes()) noteless_.clear();
  const bool byAttributes = FileRows::NeedsAttributes(files_.List.Keys.Entries());
  if (job.Goes() && (details_.TakeKindsChanged() || byAttributes)) Sort(job);
  if (job.IsSuperseded()) return;
  if (job.Standing == Standing::Cancelled) Stop();
  if (job.Standing == Standing::GaveWay) lookAsked_ = true;
  files_.Progress.clear();
  ShowSummary(files_);
}

void FileReader::DropGone(ReadJob& job) {
  const platform::FileSystem& files = files_.List.Services.Files;
  std::unordered_set<RowId> gone;
  for (const RowId row : std::vector<RowId>(files_.Rows.All())) {
    const FileRow& item = files_.Rows.Row(row);
    if (!item.WasTried || item.HasAttributes) continue;
    base::Status status;
    if (!files.Exists(files_.PathOf(row))) {
      platform::ItemAttributes attributes;
      const std::string name(files_.Rows.Name(row));
      status = files.ReadAttributes(files_.Rows.Folder(), name, attributes);
    }
    if (SaysGone(status)) {
      gone.insert(row);
    } else if (!status) {
      files_.Reason = status.Reason;  // rather than that of what is gone
    }
    if (job.Pace.IsDue() && !job.Pump("Looking at changes")) return;
  }
  if (!gone.empty()) ArrangeWithout(gone, files_.Rows.All());
}

}  // namespace tarnwell::lister
