#include "platform/linux/operation/SmallFiles.h"

#include <fcntl.h>

#include <algorithm>
#include <thread>

#include "platform/linux/operation/PendingFile.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/SeekFree.h"

namespace tarnwell::platform {
namespace {

// Waking a helper for fewer does not pay.
constexpr std::size_t leastFiles = 8;
// New names come one by one into a folder: many threads would wait for each other there.
constexpr std::size_t mostThreads = 3;

}  // namespace

bool SmallFiles::IsWorth(std::size_t count, int from, int to) {
  if (count < (threads_ == 0 ? leastFiles : 2)) return false;
  if (threads_ == 0 && !(IsSeekFreeVolume(from) && IsSeekFreeVolume(to))) return false;
  if (!team_) {
    const std::size_t cores =
        std::min<std::size_t>(std::thread::hardware_concurrency(), mostThreads);
    const std::size_t members = std::max<std::size_t>(threads_ == 0 ? cores : threads_, 1);
    team_ = std::make_unique<WorkerTeam>(members - 1);
    while (copiers_.size() < team_->Members()) copiers_.emplace_back(moves_);
  }
  return team_->Members() > 1;
}

bool SmallFiles::IsSeekFreeVolume(int folder) {
  struct statx found;
  if (LookAt(folder, "", found) != NoError) return false;
  const ItemIdentity device{found.stx_dev_major, found.stx_dev_minor, 0};
  for (const KnownVolume& known : volumes_) {
    if (known.Device == device) return known.IsSeekFree;
  }
  volumes_.push_back({device, IsSeekFree(folder)});
  return volumes_.back().IsSeekFree;
}

void SmallFiles::Copy(const Place& place, std::span<SmallFile> files, const GoesOn& goesOn,
                      const std::function<void(std::uint64_t)>& onBytes) {
  isStopped_ = false;
  const auto asks = [&](std::size_t at) {
    if (const std::uint64_t bytes = bytes_.exchange(0); bytes > 0) onBytes(bytes);
    if (!goesOn(files[at])) isStopped_ = true;
    return !isStopped_;
  };
  team_->Run(files.size(), asks, [&](std::size_t member, std::size_t at) {
    CopyOne(copiers_[member], place, files[at]);
  });
  if (const std::uint64_t bytes = bytes_.exchange(0); bytes > 0) onBytes(bytes);
}

void SmallFiles::CopyOne(FileCopier& copier, const Place& place, SmallFile& file) {
  // No waiting, should another item have taken its place.
  constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
  file.Now = SmallFile::State::Failed;
  const Descriptor from(openat(place.From, file.Name, flags));
  struct statx& source = file.Source;
  if (!from || LookAt(from.Get(), "", source) != NoError || !S_ISREG(source.stx_mode)) return;
  if (source.stx_nlink > 1 || source.stx_size > SmallFileSize) {
    file.Now = SmallFile::State::Left;
    return;
  }
  PendingFile pending(place.To);
  if (pending.CreateAs(file.Name, copier.FirstMode(source)) != NoError) return;
  if (LookAt(pending.Get(), "", file.Copy) != NoError) return;
  // One that has begun to grow may take long, which only the caller can show and end.
  std::uint64_t copied = 0;
  const auto progress = [this, &copied](std::uint64_t bytes) {
    copied += bytes;
    return !isStopped_ && copied <= SmallFileSize;
  };
  const FileCopier::Outcome outcome =
      copier.Copy(from.Get(), source, pending.Get(), file.Copy, place.MayInherit, progress);
  const bool isAsked = outcome.IsChanged || (moves_ && outcome.LosesSome);
  if (outcome.Error != NoError || isAsked) return;
  if (copier.LookAtCopy(pending.Get(), source, true, file.Copy) != NoError) return;
  if (moves_ && file.Copy.stx_size != copier.Length()) return;
  if (pending.Place(file.Name, {}) != NoError) return;
  bytes_ += copier.Length();
  file.Now = SmallFile::State::Copied;
}

}  // namespace tarnwell::platform
