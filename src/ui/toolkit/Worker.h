// Work on a thread of its own that keeps a report of how far it has come, for a window to read.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <stop_token>
#include <thread>
#include <utility>

namespace tarnwell::ui {

// Begins at once. The end of this object cancels the work and waits for it; a window that must not
// wait cancels first and ends it once it is done.
template <typename Report>
class Worker {
 public:
  // Through which the work says how far it is, and hears whether to go on.
  class Reporter {
   public:
    bool GoesOn() const { return !stop_.stop_requested(); }
    template <typename Change>
    void Tell(Change change) {
      {
        const std::lock_guard lock(worker_.mutex_);
        change(worker_.report_);
      }
      worker_.told_.notify_all();
    }

   private:
    friend class Worker;
    Reporter(Worker& worker, std::stop_token stop) : worker_(worker), stop_(std::move(stop)) {}

    Worker& worker_;
    const std::stop_token stop_;
  };
  using Work = std::function<void(Reporter&)>;

  explicit Worker(Work work)
      : thread_([this, run = std::move(work)](std::stop_token stop) {
          Reporter reporter(*this, std::move(stop));
          run(reporter);
          {
            const std::lock_guard lock(mutex_);
            done_ = true;
          }
          told_.notify_all();
        }) {}

  void Cancel() { thread_.request_stop(); }
  bool IsDone() const {
    const std::lock_guard lock(mutex_);
    return done_;
  }
  Report Read() const {
    const std::lock_guard lock(mutex_);
    return report_;
  }
  // Waits until the report is as wished or the work is done, but no longer than that.
  template <typename Wish>
  void WaitFor(std::chrono::milliseconds most, Wish wish) {
    std::unique_lock lock(mutex_);
    told_.wait_for(lock, most, [&] { return done_ || wish(report_); });
  }

 private:
  mutable std::mutex mutex_;
  std::condition_variable told_;
  Report report_;
  bool done_ = false;
  std::jthread thread_;  // the last, since it uses the others
};

}  // namespace tarnwell::ui
