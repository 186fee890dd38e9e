// A view of the trash of all volumes: what is to be read when, and what is to be told of it.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/FolderWatch.h"
#include "platform/linux/posix/MountNotices.h"
#include "platform/linux/trash/LookAtTrash.h"
#include "platform/linux/trash/TrashTable.h"
#include "platform/linux/trash/TrashVolumes.h"

namespace tarnwell::platform {

// Lives on the event loop; threads see nothing of it. Each volume has one thread at most that reads
// and one for each trash that measures. Its calls to the listener come from Settle and Tell alone,
// after which it may have been ended.
class TrashFollower : public std::enable_shared_from_this<TrashFollower> {
 public:
  using BusyVolumes = std::shared_ptr<std::map<std::string, int>>;

  TrashFollower(TrashPlaces places, FolderWatch& watches, const Drives& drives, BusyVolumes busy,
                TrashListener& listener, std::string drive);
  TrashFollower(const TrashFollower&) = delete;
  TrashFollower& operator=(const TrashFollower&) = delete;
  ~TrashFollower();

  void Start();
  void Refresh();
  // Nothing is told from now on.
  void End();

 private:
  using Moment = std::chrono::steady_clock::time_point;

  struct Trash {
    Trash(TrashPath path, std::uint64_t& lastId) : Path(std::move(path)), Table(lastId) {}
    TrashPath Path;
    TrashTable Table;
    TrashLook Look;  // the last one
    base::Status Trouble;
    std::vector<std::unique_ptr<Watch>> Watches;
    std::vector<std::string> Watched;
    bool IsRead = false;            // by the time of the last look, or that is about to be done
    bool NeedsAll = false;          // is to be read
    std::set<std::string> Changed;  // names of which something changed
    bool IsMeasuring = false;
    Moment Begun, RestsUntil;  // of reading all
  };
  // Threads ask whether what they do is still wanted.
  using Wanted = std::shared_ptr<std::atomic<bool>>;
  struct Volume {
    std::string Top;
    std::vector<Trash> Trashes;
    Wanted IsWanted = std::make_shared<std::atomic<bool>>(true);
    bool IsWorking = false;
    bool NeedsLook = true;
    bool IsSilent = false;  // has not been heard of for too long
    Moment Heard;
    base::Status Trouble;
  };
  using VolumePlace = std::shared_ptr<Volume>;

  void FindVolumes();
  bool IsMeant(const std::string& path) const;
  // Begins what is to be done next on the volume, if nothing is under way.
  void Work(const VolumePlace& volume);
  template <typename Call>
  bool Begin(const VolumePlace& volume, Call call);
  void TakeLooks(Volume& volume, std::vector<TrashLook> looks);
  bool IsTwin(const Trash& trash, const ItemIdentity& self) const;
  void StartWatches(const VolumePlace& volume, std::size_t index);
  void Measure(const VolumePlace& volume, std::size_t index);
  void Hear(Volume& volume);
  void OnTick();
  bool IsAtRest(const Volume& volume) const;
  void Tell(TrashChanges changes);
  void Settle();

  const TrashPlaces places_;
  FolderWatch& watches_;
  const Drives& drives_;
  const BusyVolumes busy_;
  TrashListener* listener_;  // null once it has ended
  const std::string drive_;
  std::uint64_t lastId_ = 0;
  std::vector<VolumePlace> volumes_;
  std::vector<TrashTrouble> troubles_;  // as told last
  bool isSettling_ = true;
  unsigned timer_ = 0;
  std::unique_ptr<MountNotices> mounts_;
};

}  // namespace tarnwell::platform
