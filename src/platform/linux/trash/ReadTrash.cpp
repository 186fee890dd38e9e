#include "platform/linux/trash/ReadTrash.h"

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "platform/linux/posix/FolderBuffer.h"
#include "platform/linux/posix/ItemStat.h"
#include "platform/linux/posix/NameList.h"
#include "platform/linux/posix/SystemError.h"
#include "platform/linux/posix/TemporaryName.h"

namespace tarnwell::platform {
namespace {

constexpr std::size_t entriesAtOnce = 2000;
constexpr std::size_t longestSizes = 64 << 20;
constexpr const char* sizesName = "directorysizes";

// Most notes are much shorter than one helping, and come whole.
ErrorNumber ReadUpTo(int file, std::size_t limit, std::string& content) {
  std::array<char, 4096> helping;
  content.clear();
  for (;;) {
    const ssize_t got = read(file, helping.data(), helping.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return errno;
    content.append(helping.data(), static_cast<std::size_t>(got));
    if (content.size() > limit) return EFBIG;
    if (static_cast<std::size_t>(got) < helping.size()) return NoError;
  }
}

// What a person's clock showed, as a time. Not by mktime(3), which looks at a file each time.
std::int64_t TimeOfClock(GTimeZone* zone, std::optional<std::int64_t> seconds) {
  if (!seconds) return UnknownTime;
  gint64 adjusted = *seconds;
  const gint interval = g_time_zone_adjust_time(zone, G_TIME_TYPE_STANDARD, &adjusted);
  constexpr std::int64_t nanoseconds = 1'000'000'000;
  return (adjusted - g_time_zone_get_offset(zone, interval)) * nanoseconds;
}

// Neither follows a link nor waits for the other end of a pipe.
Descriptor OpenQuietly(int folder, const char* name) {
  return Descriptor(
      openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
}

std::string_view KeyOf(std::string_view noteName) {
  return noteName.substr(0, noteName.size() - NoteEnding.size());
}

ErrorNumber ReadNames(int folder, NameList& names) {
  if (folder < 0) return NoError;
  return FolderBuffer().Read(folder, [&](const dirent64& item) {
    names.Add(item.d_name);
    return true;
  });
}

}  // namespace

TrashReader::TrashReader(const TrashPath& path, const OpenTrash& trash)
    : path_(path), trash_(trash), sizes_(ReadSizesOf(trash)), zone_(g_time_zone_new_local()) {}

base::Status TrashReader::ReadAll(const Take& take) {
  // The files first: a note comes before its file, and goes after it.
  NameList files;
  NameList notes;
  const ErrorNumber filesError = ReadNames(trash_.Files.Get(), files);
  const ErrorNumber notesError = ReadNames(trash_.Notes.Get(), notes);

  std::vector<TrashEntry> entries;
  bool goesOn = true;
  const auto add = [&](std::string_view key) {
    TrashEntry entry = Read(key);
    if (!entry.IsThere) return;
    entries.push_back(std::move(entry));
    if (entries.size() == entriesAtOnce) goesOn = take(std::exchange(entries, {}));
  };
  std::unordered_set<std::string_view> noted;
  for (const std::string_view name : notes) {
    if (!goesOn) return {};
    if (!name.ends_with(NoteEnding) || name.size() == NoteEnding.size()) continue;
    noted.insert(KeyOf(name));
    add(KeyOf(name));
  }
  for (const std::string_view name : files) {
    if (!goesOn) return {};
    if (!noted.contains(name)) add(name);
  }
  if (!entries.empty()) take(std::move(entries));
  return SystemError(filesError == NoError ? notesError : filesError);
}

TrashEntry TrashReader::Read(std::string_view name) {
  TrashEntry entry;
  entry.Key = name;
  TrashedItem& item = entry.Item;
  const std::optional<TrashNote> note = ReadNote(name, item.State, entry.NoteTime);
  if (note) {
    item.Deleted = TimeOfClock(zone_.get(), SecondsOfDate(note->DeletionDate));
    FormerPlace place = path_.PlaceBefore(*note);
    item.State = place.State;
    item.Folder = std::move(place.Folder);
    item.Name = std::move(place.Name);
  }
  if (item.Name.empty()) item.Name = name;

  struct statx found;
  const ErrorNumber error =
      trash_.Files ? LookAt(trash_.Files.Get(), entry.Key.c_str(), found) : ErrorNumber(ENOENT);
  if (error == NoError) {
    TakeFacts(found, entry, note.has_value());
    return entry;
  }
  if (error != ENOENT) {
    item.Place = path_.PlaceOf(name);
    item.Kind = ItemKind::Unknown;
    return entry;
  }
  entry.IsThere = item.State != TrashState::NoNote;
  item.Place = path_.NotePlaceOf(name);
  item.IsSizeKnown = true;
  // Where the note is bad too, that is what there is to be seen of it.
  if (note) item.State = TrashState::NoFile;
  return entry;
}

void TrashReader::TakeFacts(const struct statx& found, TrashEntry& entry, bool isNoted) const {
  TrashedItem& item = entry.Item;
  item.Place = path_.PlaceOf(entry.Key);
  item.Kind = KindOfMode(found.stx_mode);
  item.IsLink = S_ISLNK(found.stx_mode);
  item.IsSizeKnown = item.Kind != ItemKind::Folder;
  if (item.IsSizeKnown) {
    item.Size = found.stx_size;
    return;
  }
  const auto kept = sizes_.find(entry.Key);
  if (kept == sizes_.end() || !isNoted || kept->second.NoteTime != entry.NoteTime) return;
  item.Size = kept->second.Size;
  item.IsSizeKnown = true;
}

std::optional<TrashNote> TrashReader::ReadNote(std::string_view name, TrashState& state,
                                               std::int64_t& noteTime) {
  (noteName_ = name) += NoteEnding;
  state = TrashState::NoNote;
  const ErrorNumber error =
      trash_.Notes ? ReadContent(noteName_.c_str(), state, noteTime) : ErrorNumber(ENOENT);
  if (error == ENOENT) return {};
  if (error == NoError) {
    if (std::optional<TrashNote> note = ReadTrashNote(content_)) return note;
  }
  if (state == TrashState::NoNote) state = TrashState::NoteDamaged;
  return {};
}

ErrorNumber TrashReader::ReadContent(const char* name, TrashState& state, std::int64_t& noteTime) {
  const Descriptor file = OpenQuietly(trash_.Notes.Get(), name);
  if (!file) {
    if (errno != ELOOP) return errno;
    state = TrashState::NoteIsLink;
    return ELOOP;
  }
  struct stat found {};
  if (fstat(file.Get(), &found) != 0) return errno;
  noteTime = found.st_mtim.tv_sec;
  if (!S_ISREG(found.st_mode)) return EINVAL;
  if (found.st_size > static_cast<off_t>(LongestNote)) return EFBIG;
  return ReadUpTo(file.Get(), LongestNote, content_);
}

KeptSizes ReadSizesOf(const OpenTrash& trash) {
  const Descriptor file = OpenQuietly(trash.Top.Get(), sizesName);
  struct stat found {};
  if (!file || fstat(file.Get(), &found) != 0 || !S_ISREG(found.st_mode)) return {};
  std::string content;
  if (ReadUpTo(file.Get(), longestSizes, content) != NoError) return {};
  return ReadKeptSizes(content);
}

void ChangeSizesOf(const OpenTrash& trash, const std::function<void(KeptSizes&)>& change) {
  const KeptSizes before = ReadSizesOf(trash);
  KeptSizes sizes = before;
  change(sizes);
  if (sizes == before) return;
  TemporaryName name;
  if (name.Renew() != NoError) return;
  const int folder = trash.Top.Get();
  const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
  Descriptor file(openat(folder, name.Text(), flags, 0600));
  if (!file) return;
  const std::string content = TextOf(sizes);
  std::string_view rest = content;
  while (!rest.empty()) {
    const ssize_t written = write(file.Get(), rest.data(), rest.size());
    if (written < 0 && errno != EINTR) break;
    if (written > 0) rest.remove_prefix(static_cast<std::size_t>(written));
  }
  const bool isWhole = rest.empty() && close(file.Release()) == 0;
  if (isWhole && renameat(folder, name.Text(), folder, sizesName) == 0) return;
  unlinkat(folder, name.Text(), 0);
}

}  // namespace tarnwell::platform
