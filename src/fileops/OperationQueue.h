// The owner of operations: what runs, what waits for its turn, and what has just been done.
//
// Orders operations by the volumes that they touch, hands them to the engine, keeps what commands
// want to do afterwards, and tells the history what can be undone. Knows no thread and no window:
// the engine calls from the event loop, and windows show the records and call what stands below.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/PathSyntax.h"
#include "fileops/OperationMeter.h"
#include "fileops/UndoHistory.h"
#include "platform/Clock.h"
#include "platform/FileOperation.h"
#include "platform/NumberForms.h"
#include "platform/OperationEngine.h"

namespace tarnwell::fileops {

enum class OperationState : std::uint8_t { Waiting, Running, Done };

struct OperationRecord {
  platform::OperationId Id = platform::NoOperation;
  platform::OperationOrder Order;
  std::string Title;  // for people: "Copying 3 items to docs"
  OperationState State = OperationState::Waiting;
  // It runs, but not for so long yet that people are to be shown it: see OperationQueue::QuietTime.
  bool IsQuiet = false;
  bool IsPaused = false;
  bool IsAsking = false;            // waits for the user's answer to a question
  bool IsCancelling = false;        // comes to its end
  std::size_t At = 0;               // which request of the order is at work
  platform::ProgressReport Report;  // of all requests so far
  OperationMeter Meter;
  std::int64_t StartedAt = 0;  // by Clock::Ticks
  std::vector<std::string> Volumes;
};

class OperationQueue : public platform::FileOperation {
 public:
  // Milliseconds after which a running operation is shown; one that waits or asks is shown at once.
  static constexpr std::int64_t QuietTime = 500;

  OperationQueue(platform::OperationEngine& engine, const platform::Clock& clock,
                 const base::PathSyntax& syntax, const platform::NumberForms& forms,
                 UndoHistory& history);
  ~OperationQueue() override;

  // --- For commands. An operation runs at once unless another that runs, or waits ahead of it,
  // touches a volume of its own. What a continuation throws, or an engine that cannot start, comes
  // out of the call, or into the event loop, once all others have had theirs.

  platform::OperationId Start(platform::OperationOrder order) override;
  // Of those that are done the last few are known; all before count as none.
  void WhenDone(platform::OperationId operation, platform::OperationDone then) override;
  void NoteDone(platform::CommandKind kind,
                const std::vector<platform::PlacedItem>& items) override;
  std::string Refusal(platform::FileFunction function, const std::string& items) const override;

  // --- For windows. Numbers of operations that have gone are passed over, and wishes that make no
  // sense by now.

  // Running ones as they were started, then waiting ones in the order of their turn.
  std::vector<const OperationRecord*> Records() const;
  const OperationRecord* Find(platform::OperationId operation) const;
  void Pause(platform::OperationId operation, bool on);
  // One that waits is taken away, and comes back as aborted.
  void Cancel(platform::OperationId operation);
  // Does not wait for the others on its volumes any longer.
  void StartNow(platform::OperationId operation);
  // Takes the turn of the one that waits ahead of it.
  void MoveUp(platform::OperationId operation);
  void ShowQuestion(platform::OperationId operation);
  // Called after every change that can be seen, and some times a second while something runs. All
  // that are given here and below are called, for as long as the queue lives.
  void OnChange(std::function<void()> changed);
  // Called with each that ends, before what follows it; `took` in milliseconds, 0 for one that was
  // taken away.
  using Ended = std::function<void(const OperationRecord& record,
                                   const platform::OperationResult& result, std::int64_t took)>;
  void OnEnd(Ended ended);

  // --- For the end of the program.

  bool IsIdle() const;
  // Calls `then` once nothing runs or waits any more; at once where that is so.
  void WhenIdle(std::function<void()> then);
  // Everything comes to its end soon; nothing is asked or told any more, and what commands wanted
  // to do afterwards is done on the way. What they start meanwhile comes back as aborted.
  void CancelAll();
  // From now on nothing is done after an operation: what that works on is going.
  void DropContinuations();

 private:
  struct Work;
  using Works = std::vector<std::unique_ptr<Work>>;
  struct Finished {
    platform::OperationId Id;
    std::shared_ptr<const platform::OperationResult> Result;
  };

  // What a run tells.
  void TakeProgress(Work& work, const platform::ProgressReport& report);
  void TakeAsking(Work& work, bool isAsking);
  void TakeDone(Work& work, platform::OperationResult result);

  void Take(std::unique_ptr<Work> work);
  Work* FindRunning(platform::OperationId operation) const;
  Works::iterator FindWaiting(platform::OperationId operation);
  bool MustWait(Works::const_iterator work) const;
  void RunWhatMay();
  void Begin(Works::iterator waiting);
  // Hands the request that is up to the engine, or the next one that has items; ends with none.
  void Go(Work& work);
  void TakeAway(Works::iterator waiting);
  void Finish(std::unique_ptr<Work> work);
  // Measures no time while nothing can go on.
  // What is emptied from the trash is not to be undone any more.
  void ForgetPurged(const platform::OperationOrder& order);
  void MeterTime(Work& work);
  void TellChange();
  void TellIdle();
  // Throws on, at its end, the first that was thrown in a Guard within it.
  template <typename Call>
  void Act(Call call);
  template <typename Call>
  void Guard(Call call);

  platform::OperationEngine& engine_;
  const platform::Clock& clock_;
  const base::PathSyntax& syntax_;
  const platform::NumberForms& forms_;
  UndoHistory& history_;
  std::vector<std::function<void()>> changed_;
  std::vector<Ended> ended_;
  std::vector<std::function<void()>> idle_;
  std::deque<Finished> finished_;  // the newest at the end
  platform::OperationId last_ = platform::NoOperation;
  bool isGivingUp_ = false;
  bool dropsContinuations_ = false;
  std::exception_ptr fault_;
  Works waiting_;  // in the order of their turn
  Works running_;  // as they were started
};

}  // namespace tarnwell::fileops
