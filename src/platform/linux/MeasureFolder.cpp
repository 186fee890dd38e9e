#include "platform/linux/MeasureFolder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/linux/Descriptor.h"
#include "platform/linux/FolderBuffer.h"
#include "platform/linux/ReachedPath.h"
#include "platform/linux/SystemError.h"

namespace tarnwell::platform {
namespace {

constexpr std::size_t openAtOnce = 32;  // folders held open, of those on the way down
constexpr int countPerCall = 64;        // items between two questions whether to go on
constexpr unsigned wanted = STATX_TYPE | STATX_NLINK | STATX_SIZE | STATX_INO | STATX_MNT_ID;

struct Identity {
  std::uint32_t Major = 0;
  std::uint32_t Minor = 0;
  std::uint64_t Number = 0;
  bool operator==(const Identity&) const = default;
};

struct HashIdentity {
  std::size_t operator()(const Identity& item) const {
    const std::uint64_t device = std::uint64_t{item.Major} << 32 | item.Minor;
    return static_cast<std::size_t>((item.Number ^ device) * 0x9E3779B97F4A7C15U);
  }
};

Identity IdentityOf(const struct statx& found) {
  return {found.stx_dev_major, found.stx_dev_minor, found.stx_ino};
}

class Walk {
 public:
  Walk(const FileSystem::GoOn& goOn, FolderTotal& total) : goOn_(goOn), total_(total) {}

  base::Status Run(Descriptor folder) {
    struct statx found;
    if (statx(folder.Get(), "", AT_EMPTY_PATH, wanted, &found) != 0) return SystemError(errno);
    start_ = found;
    const int error = ReadFolder(folder.Get());
    if (error != 0) return SystemError(error);
    levels_.push_back({std::move(folder), IdentityOf(found), 0});
    while (!levels_.empty() && !Stopped()) {
      if (names_.size() > levels_.back().FirstName) {
        EnterLast();
      } else {
        Leave();
      }
    }
    return {};
  }

 private:
  // A folder on the way down; its subfolders that are still to come are the names from FirstName.
  struct Level {
    Descriptor Folder;  // closed while the walk is far below it
    Identity Self;
    std::size_t FirstName;
  };

  // Counts the items of a folder and puts the names of its subfolders on the list. Gives an error
  // number.
  int ReadFolder(int folder) {
    for (;;) {
      if (const int error = buffer_.Fill(folder); error != 0) return error == ENOENT ? 0 : error;
      if (buffer_.IsEmpty()) return 0;
      while (const dirent64* const item = buffer_.Next()) {
        TakeItem(folder, *item);
        if (Stopped()) return 0;
      }
    }
  }

  void TakeItem(int folder, const dirent64& item) {
    struct statx found;
    mode_t type = DTTOIF(item.d_type);
    if (type == S_IFREG || type == 0) {
      if (!Look(folder, item.d_name, found)) return;
      type = found.stx_mode & S_IFMT;
    }
    if (type == S_IFDIR) {
      ++total_.Folders;
      names_.append(item.d_name, std::strlen(item.d_name) + 1);
      return;
    }
    ++total_.Files;
    if (type != S_IFREG) return;
    if (found.stx_nlink > 1 && !counted_.insert(IdentityOf(found)).second) return;
    total_.Bytes += found.stx_size;
  }

  // Looks at an item without following or mounting anything.
  bool Look(int folder, const char* name, struct statx& found) {
    const int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
    if (statx(folder, name, flags, wanted, &found) == 0) return true;
    Note(errno);
    return false;
  }

  void EnterLast() {
    const std::size_t start = names_.rfind('\0', names_.size() - 2) + 1;  // 0 for the first
    const int folder = levels_.back().Folder.Get();
    const char* const name = names_.data() + start;
    Descriptor opened;
    struct statx found;
    if (folder < 0) {
      Note(ESTALE);
    } else if (Look(folder, name, found) && IsSameVolume(found)) {
      opened = Descriptor(openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
      if (!opened) Note(errno);
    }
    names_.resize(start);
    if (!opened) return;
    if (const int error = ReadFolder(opened.Get()); error != 0) Note(error);
    if (names_.size() == start) return;
    levels_.push_back({std::move(opened), IdentityOf(found), start});
    if (levels_.size() > openAtOnce) levels_[levels_.size() - openAtOnce - 1].Folder = Descriptor();
  }

  void Leave() {
    const Level left = std::move(levels_.back());
    levels_.pop_back();
    if (levels_.empty() || levels_.back().Folder || !left.Folder) return;
    // One that was moved meanwhile has another parent, where nothing is to be counted.
    Descriptor parent(openat(left.Folder.Get(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
    struct statx found;
    if (parent && statx(parent.Get(), "", AT_EMPTY_PATH, wanted, &found) == 0 &&
        IdentityOf(found) == levels_.back().Self) {
      levels_.back().Folder = std::move(parent);
    }
  }

  // Nor is a folder entered that would be mounted by that. A volume may be mounted at several
  // places, of which the walk has begun in one; systems that do not tell mounts apart still tell
  // the volumes.
  bool IsSameVolume(const struct statx& found) const {
    if ((found.stx_attributes & STATX_ATTR_AUTOMOUNT) != 0) return false;
    if ((found.stx_mask & start_.stx_mask & STATX_MNT_ID) != 0) {
      return found.stx_mnt_id == start_.stx_mnt_id;
    }
    return found.stx_dev_major == start_.stx_dev_major &&
           found.stx_dev_minor == start_.stx_dev_minor;
  }

  void Note(int error) {
    if (error == ENOENT || error == ENOTDIR) return;  // gone, or another item by now
    if (total_.Unreadable++ == 0) total_.Trouble = SystemError(error);
  }

  bool Stopped() {
    if (++sinceCall_ >= countPerCall) {
      sinceCall_ = 0;
      stopped_ = !goOn_(total_);
    }
    return stopped_;
  }

  const FileSystem::GoOn& goOn_;
  FolderTotal& total_;
  struct statx start_ {};
  std::vector<Level> levels_;
  std::string
      names_;  // of subfolders still to come, each ended by a NUL, those of each level in turn
  FolderBuffer buffer_;
  std::unordered_set<Identity, HashIdentity> counted_;  // files with several names
  int sinceCall_ = 0;
  bool stopped_ = false;
};

}  // namespace

base::Status MeasureFolder(const std::string& folder, const FileSystem::GoOn& goOn,
                           FolderTotal& total) {
  Descriptor opened = OpenPath(folder, O_RDONLY | O_DIRECTORY);
  return opened ? Walk(goOn, total).Run(std::move(opened)) : SystemError(errno);
}

}  // namespace tarnwell::platform
