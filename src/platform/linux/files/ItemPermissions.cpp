#include "platform/linux/files/ItemPermissions.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/FolderBuffer.h"
#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"
#include "platform/linux/posix/TreeWalk.h"

namespace tarnwell::platform {
namespace {

constexpr std::uint32_t Readable = 0444;
constexpr std::uint32_t Executable = 0111;
constexpr std::uint32_t Special = 07000;
constexpr std::uint32_t AllBits = 07777;

// An open item, opened whatever its permissions are: such a descriptor does not take fchmod.
ErrorNumber ChangeMode(int item, std::uint32_t mode) {
  const std::string open = "/proc/self/fd/" + std::to_string(item);
  return ErrorOf(chmod(open.c_str(), mode));
}

class PermissionWalk {
 public:
  PermissionWalk(const PermissionChange& change, const ItemInspector::GoOn& goOn,
                 PermissionOutcome& outcome)
      : change_(change), goOn_(goOn), outcome_(outcome) {}

  void Run(const std::string& path, bool inside) {
    const ReachedPath reached(path);
    top_ = path;
    if (reached.Error() != NoError) return Fail(top_, SystemError(reached.Error()));
    TakeItem(reached.Folder(), reached.Rest(), inside);
    walk_.Run(
        0, [this] { return !stopped_; }, [this](const std::string& name) { TakeNext(name); },
        [this] { LeaveFolder(); });
  }

 private:
  struct Level {
    std::uint32_t Mode = 0;      // what the folder has now
    std::uint32_t LastMode = 0;  // what it is to have in the end
  };

  bool IsTop() const { return walk_.IsEmpty(); }
  std::string PathOf(const char* name) const { return IsTop() ? top_ : walk_.PathOf(name); }

  void Fail(const std::string& path, base::Status reason) {
    ++outcome_.Failed;
    if (outcome_.Troubles.size() >= PermissionOutcome::MostTroubles) return;
    outcome_.Troubles.push_back({path, std::move(reason)});
  }

  void TakeNext(const std::string& name) {
    if (walk_.Folder() < 0) return Fail(walk_.PathOf(name), SystemError(ESTALE));
    TakeItem(walk_.Folder(), name.c_str(), true);
  }

  void TakeItem(int folder, const char* name, bool inside) {
    stopped_ = !goOn_(outcome_);
    if (stopped_) return;
    const Descriptor item(openat(folder, name, O_PATH | O_NOFOLLOW | O_CLOEXEC));
    struct statx found;
    ErrorNumber error = item ? LookAt(item.Get(), "", found) : errno;
    if (error == ENOENT && !IsTop()) return;  // gone by itself
    ++outcome_.Items;
    if (error != NoError) return Fail(PathOf(name), SystemError(error));
    if (S_ISLNK(found.stx_mode)) {
      if (IsTop()) Fail(top_, {EOPNOTSUPP, "A link has no permissions of its own"});
      return;
    }
    const bool isFolder = S_ISDIR(found.stx_mode);
    // Files can be mounted too, but what holds them may give them another device of its own.
    const bool tellsMounts = (found.stx_mask & STATX_MNT_ID) != 0;
    if (!IsTop() && (isFolder || tellsMounts) && !IsSameMount(found, start_)) {
      return Fail(PathOf(name), {EBUSY, "Another volume is mounted here"});
    }
    const std::uint32_t mode = found.stx_mode & AllBits;
    const std::uint32_t wanted =
        IsTop() ? (mode & ~change_.Clear) | change_.Set : ChangedInside(mode, isFolder, change_);
    if (IsTop()) start_ = found;
    const bool enters = isFolder && inside;
    const std::uint32_t first = enters ? mode | wanted : wanted;
    if (first != mode) error = ChangeMode(item.Get(), first);
    if (error != NoError) Fail(PathOf(name), SystemError(error));
    if (!enters) return;
    // What was refused once is not tried again on the way back.
    EnterFolder(item.Get(), name, found,
                error != NoError ? Level{mode, mode} : Level{first, wanted});
  }

  void EnterFolder(int item, const char* name, const struct statx& found, Level level) {
    const std::string path = PathOf(name);
    Descriptor opened(openat(item, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::size_t mark = walk_.Mark();
    const ErrorNumber error = opened ? ReadFolder(opened.Get()) : errno;
    if (error != NoError)
      Fail(path, {error.Value(), "Cannot be read: " + SystemError(error).Reason});
    if (opened) {
      walk_.Enter(std::move(opened), IdentityOf(found), IsTop() ? path : name, mark, level);
    } else {
      ChangeLast(item, path, level);
    }
  }

  // Puts the names of the items on the list.
  ErrorNumber ReadFolder(int folder) {
    const ErrorNumber error = buffer_.Read(folder, [this](const dirent64& item) {
      if (item.d_type != DT_LNK) walk_.Add(item.d_name);
      return true;
    });
    return error == ENOENT ? NoError : error;
  }

  void LeaveFolder() {
    // After a cancel too: no folder is left with what it had for the time of the walk alone.
    ChangeLast(walk_.Folder(), walk_.Path(), walk_.Here());
    walk_.Leave();
  }

  void ChangeLast(int folder, const std::string& path, const Level& level) {
    if (level.Mode == level.LastMode) return;
    const ErrorNumber error = folder < 0 ? ESTALE : ChangeMode(folder, level.LastMode);
    if (error != NoError) Fail(path, SystemError(error));
  }

  const PermissionChange& change_;
  const ItemInspector::GoOn& goOn_;
  PermissionOutcome& outcome_;
  struct statx start_ {};
  TreeWalk<Level> walk_;
  std::string top_;  // path of the item that was asked for
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
