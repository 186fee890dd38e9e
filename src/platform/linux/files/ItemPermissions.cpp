#include "platform/linux/files/ItemPermissions.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <utility>
#include <vector>

#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/FolderBuffer.h"
#include "platform/linux/posix/FolderChain.h"
#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

constexpr std::uint32_t Readable = 0444;
constexpr std::uint32_t Executable = 0111;
constexpr std::uint32_t Special = 07000;
constexpr std::uint32_t AllBits = 07777;

// An open item, opened whatever its permissions are: such a descriptor does not take fchmod.
int ChangeMode(int item, std::uint32_t mode) {
  const std::string open = "/proc/self/fd/" + std::to_string(item);
  return chmod(open.c_str(), mode) == 0 ? 0 : errno;
}

class PermissionWalk {
 public:
  PermissionWalk(const PermissionChange& change, const ItemInspector::GoOn& goOn,
                 PermissionOutcome& outcome)
      : change_(change), goOn_(goOn), outcome_(outcome) {}

  void Run(const std::string& path, bool inside) {
    const ReachedPath reached(path);
    path_ = path;
    if (reached.Error() != 0) return Fail(path_, SystemError(reached.Error()));
    TakeItem(reached.Folder(), reached.Rest(), inside);
    while (!folders_.IsEmpty()) {
      if (!stopped_ && names_.size() > levels_.back().FirstName) {
        const std::size_t start = names_.rfind('\0', names_.size() - 2) + 1;  // 0 for the first
        const std::string name = names_.data() + start;
        names_.resize(start);
        TakeNext(name);
      } else {
        LeaveFolder();
      }
    }
  }

 private:
  struct Level {
    std::uint32_t Mode = 0;      // what the folder has now
    std::uint32_t LastMode = 0;  // what it is to have in the end
    std::size_t FirstName = 0;   // of its items that are still to come
    std::size_t PathLength = 0;  // of its own path
  };

  bool IsTop() const { return levels_.empty(); }

  void Fail(const std::string& path, base::Status reason) {
    ++outcome_.Failed;
    if (outcome_.Troubles.size() >= PermissionOutcome::MostTroubles) return;
    outcome_.Troubles.push_back({path, std::move(reason)});
  }

  void TakeNext(const std::string& name) {
    path_ += path_.ends_with('/') ? name : '/' + name;
    if (folders_.Get() < 0) {
      Fail(path_, SystemError(ESTALE));
    } else {
      const std::size_t levels = levels_.size();
      TakeItem(folders_.Get(), name.c_str(), true);
      if (levels_.size() > levels) return;
    }
    path_.resize(levels_.back().PathLength);
  }

  void TakeItem(int folder, const char* name, bool inside) {
    stopped_ = !goOn_(outcome_);
    if (stopped_) return;
    const Descriptor item(openat(folder, name, O_PATH | O_NOFOLLOW | O_CLOEXEC));
    struct statx found;
    int error = item ? LookAt(item.Get(), "", found) : errno;
    if (error == ENOENT && !IsTop()) return;  // gone by itself
    ++outcome_.Items;
    if (error != 0) return Fail(path_, SystemError(error));
    if (S_ISLNK(found.stx_mode)) {
      if (IsTop()) Fail(path_, {EOPNOTSUPP, "A link has no permissions of its own"});
      return;
    }
    const bool isFolder = S_ISDIR(found.stx_mode);
    // Files can be mounted too, but what holds them may give them another device of its own.
    const bool tellsMounts = (found.stx_mask & STATX_MNT_ID) != 0;
    if (!IsTop() && (isFolder || tellsMounts) && !IsSameMount(found, start_)) {
      return Fail(path_, {EBUSY, "Another volume is mounted here"});
    }
    const std::uint32_t mode = found.stx_mode & AllBits;
    const std::uint32_t wanted =
        IsTop() ? (mode & ~change_.Clear) | change_.Set : ChangedInside(mode, isFolder, change_);
    if (IsTop()) start_ = found;
    const bool enters = isFolder && inside;
    const std::uint32_t first = enters ? mode | wanted : wanted;
    if (first != mode) error = ChangeMode(item.Get(), first);
    if (error != 0) Fail(path_, SystemError(error));
    if (!enters) return;
    // What was refused once is not tried again on the way back.
    EnterFolder(item.Get(), found, error != 0 ? Level{mode, mode} : Level{first, wanted});
  }

  void EnterFolder(int item, const struct statx& found, Level level) {
    Descriptor opened(openat(item, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    level.FirstName = names_.size();
    level.PathLength = path_.size();
    const int error = opened ? ReadFolder(opened.Get()) : errno;
    if (error != 0) Fail(path_, {error, "Cannot be read: " + SystemError(error).Reason});
    if (!opened) {
      if (level.Mode != level.LastMode) ChangeLast(item, level);
      return;
    }
    folders_.Enter(std::move(opened), IdentityOf(found));
    levels_.push_back(level);
  }

  // Puts the names of the items on the list. Gives an error number.
  int ReadFolder(int folder) {
    for (;;) {
      if (const int error = buffer_.Fill(folder); error != 0) return error == ENOENT ? 0 : error;
      if (buffer_.IsEmpty()) return 0;
      while (const dirent64* const item = buffer_.Next()) {
        if (item->d_type != DT_LNK) names_.append(item->d_name, std::strlen(item->d_name) + 1);
      }
    }
  }

  void LeaveFolder() {
    const Level left = levels_.back();
    names_.resize(left.FirstName);
    // After a cancel too: no folder is left with what it had for the time of the walk alone.
    if (left.Mode != left.LastMode) ChangeLast(folders_.Get(), left);
    levels_.pop_back();
    folders_.Leave();
    if (!levels_.empty()) path_.resize(levels_.back().PathLength);
  }

  void ChangeLast(int folder, const Level& level) {
    const int error = folder < 0 ? ESTALE : ChangeMode(folder, level.LastMode);
    if (error != 0) Fail(path_, SystemError(error));
  }

  const PermissionChange& change_;
  const ItemInspector::GoOn& goOn_;
  PermissionOutcome& outcome_;
  struct statx start_ {};
  FolderChain folders_;
  std::vector<Level> levels_;
  std::string names_;  // of items still to come, each ended by a NUL
  std::string path_;   // of the item at hand
  FolderBuffer buffer_;
  bool stopped_ = false;
};

}  // namespace

std::uint32_t ChangedInside(std::uint32_t mode, bool isFolder, const PermissionChange& change) {
  const std::uint32_t set = change.Set & ~Special;
  const std::uint32_t changed = (mode & ~(change.Clear & ~Special)) | set;
  if (isFolder) {
    // A bit for reading lies two places above the one for executing.
    const std::uint32_t touched = (set & Readable) >> 2 | (change.Clear & Executable);
    return changed | (touched & (changed & Readable) >> 2);
  }
  return (mode & Executable) != 0 ? changed : changed & ~(set & Executable);
}

void SetItemPermissions(const std::string& path, const PermissionChange& change, bool inside,
                        const ItemInspector::GoOn& goOn, PermissionOutcome& outcome) {
  PermissionWalk(change, goOn, outcome).Run(path, inside);
}

}  // namespace tarnwell::platform
