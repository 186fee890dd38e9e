// Copying the small files of a new folder by several threads.
#pragma once

#include <sys/stat.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "platform/linux/operation/FileCopier.h"
#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/WorkerTeam.h"

namespace tarnwell::platform {

struct SmallFile {
  enum class State {
    Waiting,  // not begun, as the caller did not want to go on
    Copied,   // whole, under its own name
    Failed,   // something about it is to be told or asked; nothing of it is there
    Left,     // no small file, or one with several names
  };

  const char* Name = nullptr;
  State Now = State::Waiting;
  struct statx Source {};
  struct statx Copy {};  // as FileCopier::LookAtCopy has it
};

// Copies by the caller's thread and helpers of its own, which end with it, and asks nobody: the
// caller takes again what it did not copy. One thread where the volumes have nothing to gain by
// more, as on disks that turn and on what is mounted from elsewhere.
class SmallFiles {
 public:
  // How many files are taken at a time.
  static constexpr std::size_t Most = 256;

  // `threads` stands for as many whatever the volumes; 0 for as many as they and the machine suit.
  SmallFiles(bool moves, std::size_t threads) : moves_(moves), threads_(threads) {}

  // Whether this many small files are to be copied here. The folders are open ones.
  bool IsWorth(std::size_t count, int from, int to);

  using GoesOn = std::function<bool(const SmallFile& next)>;

  struct Place {
    int From = -1;
    int To = -1;              // an open folder that has no name of its own yet
    bool MayInherit = false;  // see CopyAttributes
  };

  // After IsWorth. `goesOn` is asked by the caller's thread, while no other begins a file; after a
  // false all end at once. `onBytes` hears there of what has been copied.
  void Copy(const Place& place, std::span<SmallFile> files, const GoesOn& goesOn,
            const std::function<void(std::uint64_t)>& onBytes);

 private:
  struct KnownVolume {
    ItemIdentity Device;
    bool IsSeekFree = false;
  };

  bool IsSeekFreeVolume(int folder);
  void CopyOne(FileCopier& copier, const Place& place, SmallFile& file);

  const bool moves_;
  const std::size_t threads_;
  std::vector<KnownVolume> volumes_;
  std::atomic<bool> isStopped_ = false;
  std::atomic<std::uint64_t> bytes_ = 0;
  std::vector<FileCopier> copiers_;  // of each member of the team
  std::unique_ptr<WorkerTeam> team_;
};

}  // namespace tarnwell::platform
