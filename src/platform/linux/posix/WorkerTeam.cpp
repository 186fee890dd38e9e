#include "platform/linux/posix/WorkerTeam.h"

#include <exception>

#include "platform/GuardedCall.h"

namespace tarnwell::platform {

WorkerTeam::WorkerTeam(std::size_t helpers) {
  helpers_.reserve(helpers);
  try {
    while (helpers_.size() < helpers) {
      helpers_.emplace_back(&WorkerTeam::Help, this, helpers_.size() + 1);
    }
  } catch (const std::exception&) {
    // Too many threads by now, or no memory for more: it goes on with fewer.
    return;
  }
}

WorkerTeam::~WorkerTeam() {
  {
    const std::lock_guard lock(mutex_);
    isOver_ = true;
  }
  begun_.notify_all();
  for (std::thread& helper : helpers_) helper.join();
}

void WorkerTeam::Run(std::size_t count, const GoesOn& goesOn, const Work& work) {
  std::unique_lock lock(mutex_);
  work_ = &work;
  next_ = 0;
  count_ = count;
  begun_.notify_all();
  try {
    while (next_ < count_ && goesOn(next_)) {
      const std::size_t item = next_++;
      lock.unlock();
      GuardedCall([&] { work(0, item); });
      lock.lock();
    }
  } catch (...) {
    End(lock);
    throw;
  }
  End(lock);
}

void WorkerTeam::End(std::unique_lock<std::mutex>& lock) {
  next_ = count_;
  ended_.wait(lock, [this] { return busy_ == 0; });
}

void WorkerTeam::Help(std::size_t member) {
  std::unique_lock lock(mutex_);
  for (;;) {
    begun_.wait(lock, [this] { return isOver_ || next_ < count_; });
    if (isOver_) return;
    const std::size_t item = next_++;
    ++busy_;
    lock.unlock();
    GuardedCall([&] { (*work_)(member, item); });
    lock.lock();
    if (--busy_ == 0 && next_ >= count_) ended_.notify_one();
  }
}

}  // namespace tarnwell::platform
