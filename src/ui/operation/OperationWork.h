// One request at work on a thread of its own, which may outlive whoever started it.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <future>
#include <memory>
#include <string>

#include "platform/Clock.h"
#include "ui/operation/OperationMailbox.h"
#include "ui/operation/OperationSystem.h"

namespace tarnwell::ui {

// Threads at work, those that were left included.
using OperationCount = std::shared_ptr<std::atomic<int>>;

// All but the thread itself is for the user interface.
class OperationWork : public std::enable_shared_from_this<OperationWork> {
 public:
  OperationWork(const platform::OperationRequest& request, const base::PathSyntax& syntax,
                const platform::Clock& clock, FarTest isFar);

  void Start(const OperationSystem& system, OperationCount running);
  // Called from the event loop when a question waits or the work is done, and after a Wake; until
  // it is set anew. Must not go away meanwhile.
  class Watcher {
   public:
    virtual ~Watcher() = default;
    virtual void Look() = 0;
  };
  void WatchedBy(Watcher* watcher) { watcher_ = watcher; }
  void Wake();  // any thread may

  // The user has just asked for it, and looks at what comes of it.
  void NoteWanted() { isWanted_ = true; }
  bool IsWanted() const { return isWanted_; }

  OperationMailbox& Mailbox() { return mailbox_; }
  void Cancel();
  void Leave();  // nothing is asked any more either
  bool IsDone() const;
  // Cancelled, and held up by another machine. A disk of this one is waited for.
  bool IsKept() const;
  // Waits until it is done, or kept, without letting events through.
  void Wait() const;
  // Once, when it is done; throws what the work threw.
  platform::OperationResult Take() { return result_.get(); }

 private:
  bool IsDoneWithin(std::chrono::milliseconds time) const;

  const platform::OperationRequest request_;
  const platform::Clock& clock_;
  const FarTest isFar_;
  OperationMailbox mailbox_;
  Watcher* watcher_ = nullptr;
  bool isWanted_ = false;
  std::int64_t cancelledAt_ = -1;  // by the clock; -1 if it is not
  std::future<platform::OperationResult> result_;
};

}  // namespace tarnwell::ui
