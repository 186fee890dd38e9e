#include "platform/linux/search/SearchWalk.h"

#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/ItemStat.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
// What has become something else since it was looked at holds nothing up, and becomes no terminal.
constexpr int fileFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
constexpr unsigned searchedFacts = STATX_TYPE | STATX_SIZE | STATX_MTIME | STATX_INO | STATX_MNT_ID;
constexpr std::uint64_t filesPerTelling = 64;

// Gone, or another item by now.
bool HasVanished(ErrorNumber error) {
  return error == ENOENT || error == ENOTDIR || error == ELOOP || error == ENXIO;
}

}  // namespace

void SearchWalk::Run(SearchJob job) {
  if (!job.Folder && !OpenTop(job)) return;
  here_ = job.Path;
  if (!job.Files.IsEmpty()) {
    files_ = std::move(job.Files);
    LookIntoFiles(job.Folder.Get());
    Tell();
    return;
  }
  struct statx found;
  if (const ErrorNumber error = LookAt(job.Folder.Get(), "", found); error != NoError) {
    Note(job.Path, SystemError(error));
    return Tell();
  }
  top_ = job.Level;
  level_ = job.Level + 1;
  ReadFolder(job.Folder.Get());
  walk_.Enter(std::move(job.Folder), IdentityOf(found), job.Path, 0, {});
  walk_.Run(
      0, [this] { return work_.IsWanted(); },
      [this](const std::string& name) { EnterFolder(name); }, [this] { walk_.Leave(); });
  Tell();
}

// The search is nothing without it.
bool SearchWalk::OpenTop(SearchJob& job) {
  job.Folder = OpenPath(job.Path, O_RDONLY | O_DIRECTORY);
  const ErrorNumber error = job.Folder ? LookAt(job.Folder.Get(), "", work_.Top) : errno;
  if (error != NoError) work_.Fail(SystemError(error));
  return error == NoError;
}

void SearchWalk::ReadFolder(int folder) {
  ++share_.Counts.Folders;
  const ErrorNumber error = buffer_.Read(
      folder,
      [&](const dirent64& item) {
        TakeItem(folder, item);
        return true;
      },
      [&] {
        LookIntoFiles(folder);
        return work_.IsWanted();
      });
  if (error != NoError && error != ENOENT) Note(here_, SystemError(error));
  Tell();
}

void SearchWalk::TakeItem(int folder, const dirent64& item) {
  const char* const name = item.d_name;
  if (!request_.TakesHidden && name[0] == '.') return;
  ++share_.Counts.Items;
  const bool hasRange = !request_.Sizes.IsAll() || !request_.Modified.IsAll();
  struct statx found;
  mode_t type = DTTOIF(item.d_type);
  bool hasFacts = false;
  const auto look = [&] {
    if (hasFacts) return true;
    constexpr int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
    hasFacts = statx(folder, name, flags, searchedFacts, &found) == 0;
    if (hasFacts) {
      type = found.stx_mode & S_IFMT;
    } else if (!HasVanished(errno)) {
      Note(PathOf(name), SystemError(errno));
    }
    return hasFacts;
  };
  if (type == 0 && !look()) return;
  const bool isFolder = type == S_IFDIR;
  if (isFolder && (request_.Levels == 0 || level_ < request_.Levels)) walk_.Add(name);
  if (!IsWanted(type) || (takesName_ && !takesName_(name, isFolder))) return;
  if (hasRange && (!look() || !IsInRange(found))) return;
  if (scan_) {
    files_.Add(name);
  } else {
    FindItem(name, type);
  }
}

bool SearchWalk::IsWanted(mode_t type) const {
  if (type == S_IFREG) return request_.FindsFiles;
  if (scan_ || !request_.Sizes.IsAll()) return false;
  if (type == S_IFDIR) return request_.FindsFolders;
  return type == S_IFLNK ? request_.FindsLinks : request_.FindsOthers;
}

bool SearchWalk::IsInRange(const struct statx& found) const {
  return IsWanted(found.stx_mode & S_IFMT) && request_.Sizes.Holds(found.stx_size) &&
         request_.Modified.Holds(Nanoseconds(found.stx_mtime));
}

void SearchWalk::EnterFolder(const std::string& name) {
  const int folder = walk_.Folder();
  if (folder < 0) {
    Note(walk_.Path(), SystemError(ESTALE));
    return walk_.ForgetNames();
  }
  here_ = walk_.PathOf(name);
  struct statx found;
  if (const ErrorNumber error = LookAt(folder, name.c_str(), found); error != NoError) {
    if (!HasVanished(error)) Note(here_, SystemError(error));
    return;
  }
  // Nor is a folder entered that would be mounted by that.
  if ((found.stx_attributes & STATX_ATTR_AUTOMOUNT) != 0) return;
  if (!request_.EntersVolumes && !IsSameMount(found, work_.Top)) return;
  Descriptor opened(openat(folder, name.c_str(), folderFlags));
  if (!opened) {
    if (!HasVanished(errno)) Note(here_, SystemError(errno));
    return;
  }
  const std::size_t level = top_ + walk_.Depth();
  if (work_.WantsJobs()) {
    work_.Give({std::move(opened), here_, level});
    return;
  }
  level_ = level + 1;
  const std::size_t mark = walk_.Mark();
  ReadFolder(opened.Get());
  if (walk_.Mark() != mark) walk_.Enter(std::move(opened), IdentityOf(found), name, mark, {});
}

// Half of the files go to those that have nothing to do.
void SearchWalk::LookIntoFiles(int folder) {
  for (auto name = files_.begin(); name != files_.end() && work_.IsWanted();) {
    LookIntoFile(folder, *name);
    ++name;
    if (share_.Counts.LookedInto >= filesPerTelling || !share_.Found.empty()) Tell();
    if (!work_.HasIdle() || !work_.WantsJobs()) continue;
    std::vector<const char*> rest;
    for (auto other = name; other != files_.end(); ++other) rest.push_back(*other);
    if (rest.size() < 2) continue;
    SearchJob job{Descriptor(fcntl(folder, F_DUPFD_CLOEXEC, 0)), here_, level_, {}};
    if (!job.Folder) continue;
    const std::size_t half = rest.size() / 2;
    for (std::size_t at = half; at < rest.size(); ++at) job.Files.Add(rest[at]);
    work_.Give(std::move(job));
    files_.Cut(static_cast<std::size_t>(rest[half] - *files_.begin()));
  }
  files_.Clear();
}

void SearchWalk::LookIntoFile(int folder, const char* name) {
  const Descriptor file(openat(folder, name, fileFlags));
  struct stat found {};
  if (!file || fstat(file.Get(), &found) != 0) {
    if (!HasVanished(errno)) Note(PathOf(name), SystemError(errno));
    return;
  }
  if (!S_ISREG(found.st_mode)) return;
  LookInto(name, static_cast<std::uint64_t>(found.st_size),
           [&](char* room, std::size_t most, base::Status& reason) -> std::ptrdiff_t {
             for (;;) {
               const ssize_t got = read(file.Get(), room, most);
               if (got >= 0) return got;
               if (errno == EINTR) continue;
               reason = SystemError(errno);
               return -1;
             }
           });
}

void SearchWalk::FindItem(const char* name, mode_t type) {
  Find(name, KindOfMode(type), type == S_IFLNK);
}

}  // namespace tarnwell::platform
