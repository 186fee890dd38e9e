// Work on a thread of its own that keeps a note of how far it has come, for a window to read.
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
template <typename Note>
class Worker {
 public:
  // What the work has to speak through.
  class Talk {
   public:
    bool GoesOn() const { return !stop_.stop_requested(); }
    template <typename Change>
    void Tell(Change change) {
      {
        const std::lock_guard lock(worker_.mutex_);
        change(worker_.note_);
      }
      worker_.told_.notify_all();
    }

   private:
    friend class Worker;
    Talk(Worker& worker, std::stop_token stop) : worker_(worker), stop_(std::move(stop)) {}

    Worker& worker_;
    const std::stop_token stop_;
  };
  using Work = std::function<void(Talk&)>;

  explicit Worker(Work work)
      : thread_([this, run = std::move(work)](std::stop_token stop) {
          Talk talk(*this, std::move(stop));
          run(talk);
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
  Note Read() const {
    const std::lock_guard lock(mutex_);
    return note_;
  }
  // Waits until the note is as wished or the work is done, but no longer than that.
  template <typename Wish>
  void WaitFor(std::chrono::milliseconds most, Wish wish) {
    std::unique_lock lock(mutex_);
    told_.wait_for(lock, most, [&] { return done_ || wish(note_); });
  }

 private:
  mutable std::mutex mutex_;
  std::condition_variable told_;
  Note note_;
  bool done_ = false;
  std::jthread thread_;  // the last, since it uses the others
};

}  // namespace tarnwell::ui
