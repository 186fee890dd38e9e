// Work that several threads do, who give each other what they cannot come to.
#pragma once

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace tarnwell::platform {

// Two to four, by the processors there are.
inline std::size_t SharingThreads() {
  return std::clamp(std::thread::hardware_concurrency(), 2U, 4U);
}

enum class Taken { Job, NoneYet, End };

// A thread that has done its job takes the next one that was given. All is done when no job is left
// and nobody works on one, who could give more.
template <typename Job>
class WorkShare {
 public:
  // The threads are expected: all of them have to Take, or to GiveUp.
  explicit WorkShare(std::size_t threads) : threads_(threads), busy_(threads) {}

  // The next one, as soon as there is one; false where none will come. The one before is done.
  bool Take(Job& job) {
    std::unique_lock lock(mutex_);
    Rest();
    came_.wait(lock, [this] { return IsDue(); });
    return TakeFirst(job) == Taken::Job;
  }
  // The same, but gives NoneYet after that time.
  Taken TakeWithin(std::chrono::milliseconds most, Job& job) {
    std::unique_lock lock(mutex_);
    Rest();
    if (came_.wait_for(lock, most, [this] { return IsDue(); })) return TakeFirst(job);
    ++busy_;
    return Taken::NoneYet;
  }
  void Give(Job job) {
    {
      const std::lock_guard lock(mutex_);
      jobs_.push_back(std::move(job));
      waiting_ = jobs_.size();
    }
    came_.notify_one();
  }
  // One thread more is expected.
  void Expect() {
    const std::lock_guard lock(mutex_);
    ++threads_;
    ++busy_;
  }
  // A thread ends with its job not done, or could not even begin.
  void GiveUp() {
    const std::lock_guard lock(mutex_);
    Rest();
  }
  // No job is taken from now on.
  void Cancel() {
    {
      const std::lock_guard lock(mutex_);
      isWanted_ = false;
      jobs_.clear();
    }
    came_.notify_all();
  }

  // Whether jobs are so few that a thread may soon have nothing to do, or has nothing already.
  bool WantsJobs() const {
    const std::size_t threads = threads_.load(std::memory_order_relaxed);
    return threads > 1 && waiting_.load(std::memory_order_relaxed) < 2 * threads;
  }
  bool HasIdle() const {
    return busy_.load(std::memory_order_relaxed) < threads_.load(std::memory_order_relaxed);
  }
  bool IsWanted() const { return isWanted_.load(std::memory_order_relaxed); }

 private:
  void Rest() {
    if (--busy_ == 0) came_.notify_all();
  }
  bool IsDue() const { return !jobs_.empty() || busy_ == 0 || !isWanted_; }
  Taken TakeFirst(Job& job) {
    if (jobs_.empty() || !isWanted_) return Taken::End;
    ++busy_;
    job = std::move(jobs_.front());
    jobs_.pop_front();
    waiting_ = jobs_.size();
    return Taken::Job;
  }

  std::mutex mutex_;
  std::condition_variable came_;
  std::deque<Job> jobs_;
  // The three are changed under the lock, and read for a look without it.
  std::atomic<std::size_t> waiting_ = 0;  // jobs
  std::atomic<std::size_t> threads_;
  std::atomic<std::size_t> busy_;  // threads; those to come are, too
  std::atomic<bool> isWanted_ = true;
};

}  // namespace tarnwell::platform
