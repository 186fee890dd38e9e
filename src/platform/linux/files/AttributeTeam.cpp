#include "platform/linux/files/AttributeTeam.h"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "platform/WorkShare.h"
#include "platform/linux/files/LinuxFolder.h"
#include "platform/linux/posix/Descriptor.h"

namespace tarnwell::platform {
namespace {

using SteadyClock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

constexpr std::size_t teamThreads = 2;
constexpr std::size_t teamBatches =
    8;  // so many that the threads have work while the window paints
// Items in each: so few that what the user scrolls to meanwhile has its turn soon.
constexpr std::size_t firstBatch = 32, leastBatch = 4, mostBatch = 512;
constexpr Milliseconds quickBatch(1), slowBatch(8);
constexpr Milliseconds idleStep(20);  // of waiting

}  // namespace

// Batches go by their numbers, so that nothing needs memory but to fill them.
struct AttributeTeam::Work : WorkShare<std::size_t> {
  struct Item {
    std::size_t NameEnd = 0;  // in the names of the batch; it begins where the one before ends
    int Number = 0;
    base::Status Status;
    ItemAttributes Attributes;
  };
  struct Batch {
    std::string Names;
    std::vector<Item> Items;
    SteadyClock::duration Elapsed{0};
  };

  explicit Work(int folder)
      : WorkShare(teamThreads + 1), Folder(fcntl(folder, F_DUPFD_CLOEXEC, 0)) {
    Done.reserve(teamBatches);
  }

  void Serve() {
    for (std::size_t number = 0; Take(number);) {
      LookAt(Batches[number]);
      {
        const std::lock_guard lock(Mutex);
        Done.push_back(number);
      }
      Came.notify_one();
    }
  }

  void LookAt(Batch& batch) const {
    const SteadyClock::time_point start = SteadyClock::now();
    std::size_t begin = 0;
    for (Item& item : batch.Items) {
      if (!IsWanted()) return;
      const std::string_view name(batch.Names.data() + begin, item.NameEnd - begin);
      begin = item.NameEnd;
      try {
        item.Status = ReadAttributesAt(Folder.Get(), name, item.Attributes);
      } catch (const std::bad_alloc&) {
        item.Status.Code = ENOMEM;
      }
    }
    batch.Elapsed = SteadyClock::now() - start;
  }

  // The first that is done; none after a while.
  std::optional<std::size_t> Await() {
    std::unique_lock lock(Mutex);
    if (!Came.wait_for(lock, idleStep, [this] { return !Done.empty(); })) return {};
    const std::size_t number = Done.front();
    Done.erase(Done.begin());
    return number;
  }

  const Descriptor Folder;  // of its own
  std::array<Batch, teamBatches> Batches;
  std::mutex Mutex;
  std::condition_variable Came;
  std::vector<std::size_t> Done;  // under the mutex
};

AttributeTeam::AttributeTeam(int folder)
    : work_(std::make_shared<Work>(folder)), batchSize_(firstBatch) {
  if (!work_->Folder) return;
  try {
    for (; threads_ < teamThreads; ++threads_) {
      std::thread([work = work_] { work->Serve(); }).detach();
    }
  } catch (const std::exception&) {  // of the system's, or of memory
    for (std::size_t lacking = threads_; lacking < teamThreads; ++lacking) work_->GiveUp();
  }
}

AttributeTeam::~AttributeTeam() {
  work_->Cancel();
}

void AttributeTeam::Run(WantedAttributes& wanted) {
  std::vector<std::size_t> free;
  for (std::size_t number = 0; number < teamBatches; ++number) free.push_back(number);
  bool hasMore = true;
  for (;;) {
    while (hasMore && !free.empty()) {
      hasMore = Fill(wanted, free.back());
      if (work_->Batches[free.back()].Items.empty()) break;
      work_->Give(free.back());
      free.pop_back();
    }
    if (free.size() == teamBatches) return;
    if (const std::optional<std::size_t> done = work_->Await()) {
      if (!HandOver(wanted, *done)) return;
      free.push_back(*done);
    } else if (!wanted.GoesOn(true)) {
      return;
    }
  }
}

// False where nothing more will be named.
bool AttributeTeam::Fill(WantedAttributes& wanted, std::size_t number) {
  Work::Batch& batch = work_->Batches[number];
  batch.Names.clear();
  batch.Items.clear();
  std::string_view name;
  while (batch.Items.size() < batchSize_) {
    Work::Item item;
    if (!wanted.Next(name, item.Number)) return false;
    batch.Names += name;
    item.NameEnd = batch.Names.size();
    batch.Items.push_back(std::move(item));
  }
  return true;
}

bool AttributeTeam::HandOver(WantedAttributes& wanted, std::size_t number) {
  const Work::Batch& batch = work_->Batches[number];
  if (batch.Elapsed < quickBatch) batchSize_ = std::min(batchSize_ * 2, mostBatch);
  if (batch.Elapsed > slowBatch) batchSize_ = std::max(batchSize_ / 2, leastBatch);
  for (const Work::Item& item : batch.Items) {
    wanted.Take(item.Number, item.Status, item.Attributes);
    if (!wanted.GoesOn(false)) return false;
  }
  return true;
}

}  // namespace tarnwell::platform
