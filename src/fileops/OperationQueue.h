// The owner of operations: what runs, what waits for its turn, and what has just been done.
//
// Orders operations by the volumes that they touch, hands them to the engine, keeps what commands
// want to do afterwards, and tells the history what can be undone. Knows no thread and no window:
// the engine calls from the event loop, and windows show the records and call what stands below.
#pragma once

#include <cstdint>
#include <functional>
#include <list>
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
  bool IsAsking = false;      // waits for the user's answer to a question
  bool IsCancelling = false;  // comes to its end
  std::size_t At = 0;         // which request of the order is at work
  platform::ProgressReport Report;
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
  // touches a volume of its own.

  platform::OperationId Start(platform::OperationOrder order) override;
  void WhenDone(platform::OperationId operation, platform::OperationDone then) override;
  void NoteDone(platform::CommandKind kind,
                const std::vector<platform::PlacedItem>& items) override;
  std::string Refusal(platform::FileFunction function, const std::string& items) const override;

  // --- For windows. Numbers of operations that have gone are passed over.

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
  // Called after every change that can be seen, and some times a second while something runs.
  void OnChange(std::function<void()> changed);
  // Called with each that ends, before what follows it; `took` in milliseconds.
  using Ended = std::function<void(const OperationRecord& record,
                                   const platform::OperationResult& result, std::int64_t took)>;
  void OnEnd(Ended ended);

  // --- For the end of the program.

  bool IsIdle() const;
  // Calls `then` once nothing runs or waits any more; at once where that is so.
  void WhenIdle(std::function<void()> then);
  // Everything comes to its end soon; nothing is asked or told any more, and what commands wanted
  // to do afterwards is done on the way.
  void CancelAll();
  // From now on nothing is done after an operation: what that works on is going.
  void DropContinuations();
};

}  // namespace tarnwell::fileops
