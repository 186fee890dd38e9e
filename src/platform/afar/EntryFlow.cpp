#include "platform/afar/EntryFlow.h"

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace tarnwell::platform {
namespace {

// Items, with all their names in one text.
class EntryBatch {
 public:
  void Add(const FolderEntry& entry) {
    ends_.push_back(static_cast<std::uint32_t>(names_.size() + entry.Name.size()));
    names_ += entry.Name;
    entries_.push_back(entry);
    if (entry.Attributes != nullptr) attributes_.push_back(*entry.Attributes);
  }
  std::size_t Size() const { return entries_.size(); }
  // False once `take` is.
  bool Hand(const TakeEntry& take) {
    std::size_t start = 0;
    const ItemAttributes* attributes = attributes_.data();
    for (std::size_t at = 0; at < Size(); ++at) {
      entries_[at].Name = std::string_view(names_).substr(start, ends_[at] - start);
      if (entries_[at].Attributes != nullptr) entries_[at].Attributes = attributes++;
      if (!take(entries_[at])) return false;
      start = ends_[at];
    }
    return true;
  }

 private:
  std::string names_;
  std::vector<std::uint32_t> ends_;  // of the names
  std::vector<FolderEntry> entries_;
  std::vector<ItemAttributes> attributes_;  // of those that came with them
};

// So many items go from one thread to the other at once.
constexpr std::size_t batchSize = 256;
// So many batches may lie between the threads: a few times what is read while a window is painted.
constexpr std::size_t mostReady = 128;

// Under the call's lock, but for what the end of the call makes known.
struct EntryFlow {
  std::vector<EntryBatch> Ready;
  base::Status Status;
};

// Waits for room. False where nobody takes any more.
bool PutBatch(FarCall& call, EntryFlow& flow, EntryBatch batch) {
  std::unique_lock lock(call.Mutex);
  call.Told.wait(lock, [&] { return call.IsLeft || flow.Ready.size() < mostReady; });
  if (call.IsLeft) return false;
  flow.Ready.push_back(std::move(batch));
  lock.unlock();
  call.Told.notify_all();
  return true;
}

base::Status FillFlow(FarCall& call, EntryFlow& flow, OpenedFolder& folder) {
  try {
    EntryBatch batch;
    bool goesOn = true;
    base::Status status = folder.Read([&](const FolderEntry& entry) {
      batch.Add(entry);
      if (batch.Size() == batchSize) goesOn = PutBatch(call, flow, std::exchange(batch, {}));
      return goesOn;
    });
    if (goesOn) PutBatch(call, flow, std::move(batch));
    return status;
  } catch (const std::bad_alloc&) {
    return {ENOMEM, "Not enough memory"};
  }
}

// Nobody takes any more once this is gone.
class Taking {
 public:
  Taking(const FarCalls& calls, const FarPlace& place, FarCall& call)
      : calls_(calls), place_(place), call_(call) {}
  ~Taking() { calls_.Leave(place_, call_, false); }
  Taking(const Taking&) = delete;
  Taking& operator=(const Taking&) = delete;

 private:
  const FarCalls& calls_;
  const FarPlace& place_;
  FarCall& call_;
};

}  // namespace

base::Status ReadBeside(const FarCalls& calls, const FarPlace& place,
                        const std::shared_ptr<OpenedFolder>& folder, const TakeEntry& take) {
  const auto flow = std::make_shared<EntryFlow>();
  base::Status status;
  const auto call = calls.Begin(
      place, [flow, folder](FarCall& its) { flow->Status = FillFlow(its, *flow, *folder); },
      status);
  if (!call) return status;
  const Taking taking(calls, place, *call);
  for (;;) {
    status = calls.Await(place, *call, [&] { return !flow->Ready.empty(); });
    if (!status) return status;
    std::vector<EntryBatch> batches;
    bool isDone = false;
    {
      const std::lock_guard lock(call->Mutex);
      std::swap(batches, flow->Ready);
      isDone = call->IsDone;
    }
    call->Told.notify_all();
    for (EntryBatch& batch : batches) {
      if (!batch.Hand(take)) return {};
    }
    if (!isDone) continue;
    if (call->Failure) std::rethrow_exception(call->Failure);
    return flow->Status;
  }
}

}  // namespace tarnwell::platform
