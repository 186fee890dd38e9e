#include "platform/linux/files/MeasureFolder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <exception>
#include <functional>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "platform/WorkShare.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/FolderBuffer.h"
#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"
#include "platform/linux/posix/TreeWalk.h"

namespace tarnwell::platform {
namespace {

constexpr int countPerCall = 64;  // items between two questions whether to go on
// More than there may be processors: a disk answers several at once.
constexpr std::size_t mostThreads = 4;
constexpr std::uint64_t itemsAlone = 1000;            // a tree of fewer is not worth another thread
constexpr std::chrono::milliseconds waitingStep(20);  // between two questions, with nothing to do
constexpr std::uint64_t blockSize = 512;              // of stx_blocks, whatever the file system
constexpr unsigned measuredFacts =
    STATX_TYPE | STATX_NLINK | STATX_SIZE | STATX_BLOCKS | STATX_INO | STATX_MNT_ID;

// A folder with all below it.
struct MeasureJob {
  Descriptor Folder;
  ItemIdentity Self;
};

// What the threads of a walk share.
class Measurement : public WorkShare<MeasureJob> {
 public:
  explicit Measurement(FolderTotal& total) : WorkShare(1), total_(total), counted_(total.Counted) {}

  // Of the folder that the walk begins with; set before another thread comes.
  struct statx Start {};

  // Takes over what a thread has counted.
  void Add(FolderTotal& part) {
    {
      const std::lock_guard lock(mutex_);
      if (total_.Unreadable == 0) total_.Trouble = part.Trouble;
      total_.Bytes += part.Bytes;
      total_.OnDisk += part.OnDisk;
      total_.FoldersOnDisk += part.FoldersOnDisk;
      total_.Files += part.Files;
      total_.Folders += part.Folders;
      total_.Unreadable += part.Unreadable;
      total_.RepeatedBytes += part.RepeatedBytes;
      total_.RepeatedOnDisk += part.RepeatedOnDisk;
    }
    part = {};
  }
  FolderTotal SoFar() const {
    const std::lock_guard lock(mutex_);
    return total_;
  }

  enum class Count { First, FirstInWalk, Known };
  Count CountLinked(const FileIdentity& file) {
    const std::lock_guard lock(mutex_);
    if (!linked_.Add(file)) return Count::Known;
    return counted_ == nullptr || counted_->Add(file) ? Count::First : Count::FirstInWalk;
  }

 private:
  mutable std::mutex mutex_;
  FolderTotal& total_;
  CountedFiles* const counted_;  // in all walks
  CountedFiles linked_;          // in this one
};

// The part of the walk that one thread does. Gives folders away where others have nothing to do.
class MeasureWalk {
 public:
  // Takes over what was counted since the last time, and empties it.
  using Tell = std::function<void(FolderTotal& part)>;

  MeasureWalk(Measurement& work, Tell tell) : work_(work), tell_(std::move(tell)) {}

  // The first folder; the status tells why it cannot be read.
  base::Status Begin(MeasureJob job) {
    const ErrorNumber error = Run(std::move(job));
    work_.Add(part_);
    return SystemError(error);
  }
  // One that was given.
  void GoOn(MeasureJob job) {
    if (const ErrorNumber error = Run(std::move(job)); error != NoError) Note(error);
    work_.Add(part_);
  }

 private:
  struct Level {};  // nothing but the names to come

  ErrorNumber Run(MeasureJob job) {
    const ErrorNumber error = ReadFolder(job.Folder.Get());
    if (error != NoError) return error;
    walk_.Enter(std::move(job.Folder), job.Self, "", 0, {});
    walk_.Run(
        0, [this] { return GoesOn(); }, [this](const std::string& name) { EnterFolder(name); },
        [this] { walk_.Leave(); });
    return NoError;
  }

  // Counts the items of a folder and puts the names of its subfolders on the list.
  ErrorNumber ReadFolder(int folder) {
    const ErrorNumber error = buffer_.Read(folder, [&](const dirent64& item) {
      TakeItem(folder, item);
      return GoesOn();
    });
    return error == ENOENT ? NoError : error;
  }

  // To be asked after each item and before each folder: many folders may hold nothing.
  bool GoesOn() {
    if (++sinceCall_ >= countPerCall) {
      sinceCall_ = 0;
      tell_(part_);
    }
    return work_.IsWanted();
  }

  void TakeItem(int folder, const dirent64& item) {
    struct statx found;
    mode_t type = DTTOIF(item.d_type);
    if (type == S_IFREG || type == 0) {
      if (!StateOf(folder, item.d_name, found)) return;
      type = found.stx_mode & S_IFMT;
    }
    if (type == S_IFDIR) {
      ++part_.Folders;
      walk_.Add(item.d_name);
      return;
    }
    ++part_.Files;
    if (type != S_IFREG) return;
    const std::uint64_t onDisk = found.stx_blocks * blockSize;
    if (found.stx_nlink > 1) {
      const Measurement::Count count = work_.CountLinked(FileIdentityOf(found));
      if (count == Measurement::Count::Known) return;
      if (count == Measurement::Count::FirstInWalk) {
        part_.RepeatedBytes += found.stx_size;
        part_.RepeatedOnDisk += onDisk;
      }
    }
    part_.Bytes += found.stx_size;
    part_.OnDisk += onDisk;
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
    part_.FoldersOnDisk += found.stx_blocks * blockSize;
    if (!opened) return Note(errno);
    if (work_.WantsJobs()) return work_.Give({std::move(opened), IdentityOf(found)});
    const std::size_t mark = walk_.Mark();
    if (const ErrorNumber error = ReadFolder(opened.Get()); error != NoError) Note(error);
    if (walk_.Mark() == mark) return;
    walk_.Enter(std::move(opened), IdentityOf(found), name, mark, {});
  }

  // Nor is a folder entered that would be mounted by that. A volume may be mounted at several
  // places, of which the walk has begun in one.
  bool IsSameVolume(const struct statx& found) const {
    if ((found.stx_attributes & STATX_ATTR_AUTOMOUNT) != 0) return false;
    return IsSameMount(found, work_.Start);
  }

  void Note(ErrorNumber error) {
    if (error == ENOENT || error == ENOTDIR) return;  // gone, or another item by now
    if (part_.Unreadable++ == 0) part_.Trouble = SystemError(error);
  }

  Measurement& work_;
  const Tell tell_;
  TreeWalk<Level> walk_;  // over the folders that have subfolders
  FolderBuffer buffer_;
  FolderTotal part_;  // counted and not told yet
  int sinceCall_ = 0;
};

// The threads beside the one that asked. They end with the work, or are told to.
class MeasureHelpers {
 public:
  explicit MeasureHelpers(Measurement& work) : work_(work) {}
  ~MeasureHelpers() { work_.Cancel(); }
  MeasureHelpers(const MeasureHelpers&) = delete;
  MeasureHelpers& operator=(const MeasureHelpers&) = delete;

  // Where there can be no more of them, the others do.
  void Come() {
    if (std::exchange(haveCome_, true)) return;
    while (threads_.size() + 1 < mostThreads) {
      work_.Expect();
      try {
        threads_.emplace_back([this] { Help(); });
      } catch (const std::system_error&) {
        return work_.GiveUp();
      }
    }
  }

 private:
  void Help() {
    try {
      MeasureWalk walk(work_, [this](FolderTotal& part) { work_.Add(part); });
      for (MeasureJob job; work_.Take(job);) walk.GoOn(std::move(job));
    } catch (const std::exception&) {
      FolderTotal part;
      part.Unreadable = 1;
      part.Trouble = SystemError(ENOMEM);
      work_.Add(part);
      work_.GiveUp();
    }
  }

  Measurement& work_;
  bool haveCome_ = false;
  std::vector<std::jthread> threads_;
};

}  // namespace

base::Status MeasureFolder(const std::string& folder, const FileSystem::GoOn& goOn,
                           FolderTotal& total) {
  Descriptor opened = OpenPath(folder, O_RDONLY | O_DIRECTORY);
  return opened ? MeasureFolder(std::move(opened), goOn, total) : SystemError(errno);
}

base::Status MeasureFolder(Descriptor folder, const FileSystem::GoOn& goOn, FolderTotal& total) {
  Measurement work(total);
  if (statx(folder.Get(), "", AT_EMPTY_PATH, measuredFacts, &work.Start) != 0) {
    return SystemError(errno);
  }
  FolderTotal first;
  first.FoldersOnDisk = work.Start.stx_blocks * blockSize;
  work.Add(first);
  MeasureHelpers helpers(work);
  const auto tell = [&](FolderTotal& part) {
    work.Add(part);
    const FolderTotal soFar = work.SoFar();
    if (soFar.Files + soFar.Folders >= itemsAlone) helpers.Come();
    if (work.IsWanted() && !goOn(soFar)) work.Cancel();
  };
  MeasureWalk walk(work, tell);
  if (base::Status status = walk.Begin({std::move(folder), IdentityOf(work.Start)}); !status) {
    return status;
  }
  for (MeasureJob job;;) {
    const Taken taken = work.TakeWithin(waitingStep, job);
    if (taken == Taken::End) return {};
    if (taken == Taken::Job) walk.GoOn(std::move(job));
    FolderTotal none;
    if (taken == Taken::NoneYet) tell(none);
  }
}

}  // namespace tarnwell::platform
