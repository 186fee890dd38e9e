#include "platform/linux/files/MeasureFolder.h"

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

constexpr int countPerCall = 64;          // items between two questions whether to go on
constexpr std::uint64_t blockSize = 512;  // of stx_blocks, whatever the file system
constexpr unsigned wanted =
    STATX_TYPE | STATX_NLINK | STATX_SIZE | STATX_BLOCKS | STATX_INO | STATX_MNT_ID;

class Walk {
 public:
  Walk(const FileSystem::GoOn& goOn, FolderTotal& total) : goOn_(goOn), total_(total) {}

  base::Status Run(Descriptor folder) {
    struct statx found;
    if (statx(folder.Get(), "", AT_EMPTY_PATH, wanted, &found) != 0) return SystemError(errno);
    start_ = found;
    const int error = ReadFolder(folder.Get());
    if (error != 0) return SystemError(error);
    Enter(std::move(folder), found, 0);
    while (!folders_.IsEmpty() && !Stopped()) {
      if (names_.size() > firstNames_.back()) {
        EnterLast();
      } else {
        folders_.Leave();
        firstNames_.pop_back();
      }
    }
    return {};
  }

 private:
  void Enter(Descriptor folder, const struct statx& found, std::size_t firstName) {
    folders_.Enter(std::move(folder), IdentityOf(found));
    firstNames_.push_back(firstName);
  }

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
      if (!StateOf(folder, item.d_name, found)) return;
      type = found.stx_mode & S_IFMT;
    }
    if (type == S_IFDIR) {
      ++total_.Folders;
      names_.append(item.d_name, std::strlen(item.d_name) + 1);
      return;
    }
    ++total_.Files;
    if (type != S_IFREG) return;
    const std::uint64_t onDisk = found.stx_blocks * blockSize;
    if (found.stx_nlink > 1) {
      const FileIdentity file = FileIdentityOf(found);
      if (!counted_.Add(file)) return;
      if (total_.Counted != nullptr && !total_.Counted->Add(file)) {
        total_.RepeatedBytes += found.stx_size;
        total_.RepeatedOnDisk += onDisk;
      }
    }
    total_.Bytes += found.stx_size;
    total_.OnDisk += onDisk;
  }

  // Looks at an item without following or mounting anything.
  bool StateOf(int folder, const char* name, struct statx& found) {
    const int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
    if (statx(folder, name, flags, wanted, &found) == 0) return true;
    Note(errno);
    return false;
  }

  void EnterLast() {
    const std::size_t start = names_.rfind('\0', names_.size() - 2) + 1;  // 0 for the first
    const int folder = folders_.Get();
    const char* const name = names_.data() + start;
    Descriptor opened;
    struct statx found;
    if (folder < 0) {
      Note(ESTALE);
    } else if (StateOf(folder, name, found) && IsSameVolume(found)) {
      opened = Descriptor(openat(folder, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
      if (!opened) Note(errno);
    }
    names_.resize(start);
    if (!opened) return;
    if (const int error = ReadFolder(opened.Get()); error != 0) Note(error);
    if (names_.size() == start) return;
    Enter(std::move(opened), found, start);
  }

  // Nor is a folder entered that would be mounted by that. A volume may be mounted at several
  // places, of which the walk has begun in one.
  bool IsSameVolume(const struct statx& found) const {
    if ((found.stx_attributes & STATX_ATTR_AUTOMOUNT) != 0) return false;
    return IsSameMount(found, start_);
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
  FolderChain folders_;
  // Of subfolders still to come, each ended by a NUL, those of each folder of the chain in turn.
  std::string names_;
  std::vector<std::size_t> firstNames_;  // where those of each folder begin
  FolderBuffer buffer_;
  CountedFiles counted_;  // in this walk
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
