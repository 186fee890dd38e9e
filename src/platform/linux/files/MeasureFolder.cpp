#include "platform/linux/files/MeasureFolder.h"

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

constexpr int countPerCall = 64;          // items between two questions whether to go on
constexpr std::uint64_t blockSize = 512;  // of stx_blocks, whatever the file system
constexpr unsigned measuredFacts =
    STATX_TYPE | STATX_NLINK | STATX_SIZE | STATX_BLOCKS | STATX_INO | STATX_MNT_ID;

class Measurement {
 public:
  Measurement(const FileSystem::GoOn& goOn, FolderTotal& total) : goOn_(goOn), total_(total) {}

  base::Status Run(Descriptor folder) {
    struct statx found;
    if (statx(folder.Get(), "", AT_EMPTY_PATH, measuredFacts, &found) != 0)
      return SystemError(errno);
    start_ = found;
    total_.FoldersOnDisk += found.stx_blocks * blockSize;
    const ErrorNumber error = ReadFolder(folder.Get());
    if (error != NoError) return SystemError(error);
    walk_.Enter(std::move(folder), IdentityOf(found), "", 0, {});
    walk_.Run(
        0, [this] { return !Stopped(); }, [this](const std::string& name) { EnterFolder(name); },
        [this] { walk_.Leave(); });
    return {};
  }

 private:
  struct Level {};  // nothing but the names to come

  // Counts the items of a folder and puts the names of its subfolders on the list.
  ErrorNumber ReadFolder(int folder) {
    const ErrorNumber error = buffer_.Read(folder, [&](const dirent64& item) {
      TakeItem(folder, item);
      return !Stopped();
    });
    return error == ENOENT ? NoError : error;
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
      walk_.Add(item.d_name);
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
    if (statx(folder, name, flags, measuredFacts, &found) == 0) return true;
    Note(errno);
    return false;
  }

  void EnterFolder(const std::string& name) {
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    const int folder = walk_.Folder();
    if (folder < 0) return Note(ESTALE);
    struct statx found;
    if (!StateOf(folder, name.c_str(), found) || !IsSameVolume(found)) return;
    Descriptor opened(openat(folder, name.c_str(), flags));
    total_.FoldersOnDisk += found.stx_blocks * blockSize;
    if (!opened) return Note(errno);
    const std::size_t mark = walk_.Mark();
    if (const ErrorNumber error = ReadFolder(opened.Get()); error != NoError) Note(error);
    if (walk_.Mark() == mark) return;
    walk_.Enter(std::move(opened), IdentityOf(found), name, mark, {});
  }

  // Nor is a folder entered that would be mounted by that. A volume may be mounted at several
  // places, of which the walk has begun in one.
  bool IsSameVolume(const struct statx& found) const {
    if ((found.stx_attributes & STATX_ATTR_AUTOMOUNT) != 0) return false;
    return IsSameMount(found, start_);
  }

  void Note(ErrorNumber error) {
    if (error == ENOENT || error == ENOTDIR) return;  // gone, or another item by now
    if (total_.Unreadable++ == 0) total_.Trouble = SystemError(error);
  }

  bool Stopped() {
    if (!stopped_ && ++sinceCall_ >= countPerCall) {
      sinceCall_ = 0;
      stopped_ = !goOn_(total_);
    }
    return stopped_;
  }

  const FileSystem::GoOn& goOn_;
  FolderTotal& total_;
  struct statx start_ {};
  TreeWalk<Level> walk_;  // over the folders that have subfolders
  FolderBuffer buffer_;
  CountedFiles counted_;  // in this walk
  int sinceCall_ = 0;
  bool stopped_ = false;
};

}  // namespace

base::Status MeasureFolder(const std::string& folder, const FileSystem::GoOn& goOn,
                           FolderTotal& total) {
  Descriptor opened = OpenPath(folder, O_RDONLY | O_DIRECTORY);
  return opened ? MeasureFolder(std::move(opened), goOn, total) : SystemError(errno);
}

base::Status MeasureFolder(Descriptor folder, const FileSystem::GoOn& goOn, FolderTotal& total) {
  return Measurement(goOn, total).Run(std::move(folder));
}

}  // namespace tarnwell::platform
