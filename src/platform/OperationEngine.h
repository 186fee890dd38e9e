// Port: the engine that carries operations out, each on a thread of its own.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/FileOperation.h"
#include "platform/OperationUser.h"

namespace tarnwell::platform {

// The texts of `Numbers` are in `From` and `To` instead.
struct ProgressReport {
  OperationProgress Numbers;
  std::string From;
  std::string To;
};

// Hears of one run. All calls come from the event loop of the thread that started it, none from
// within a call to the engine or the run but Settle.
class OperationListener {
 public:
  virtual ~OperationListener() = default;
  // Some times a second while it runs, also when nothing has moved and while it is held up.
  virtual void OnProgress(const ProgressReport& report) = 0;
  // The run waits for an answer of the user, or no longer does.
  virtual void OnAsking(bool isAsking) = 0;
  // The last call. The run may be destroyed in it.
  virtual void OnDone(OperationResult result) = 0;
};

// One request at work.
class OperationRun {
 public:
  // Leaves the work to itself, should it still go on; the listener hears no more of it.
  virtual ~OperationRun() = default;
  virtual void Pause(bool on) = 0;
  // It comes to its end soon. What there was to remark is still told.
  virtual void Cancel() = 0;
  // The same, and nothing is asked or told any more.
  virtual void Leave() = 0;
  // Brings the question that waits before the user, if there is one.
  virtual void ShowQuestion() = 0;
};

class OperationEngine {
 public:
  virtual ~OperationEngine() = default;
  // Returns at once. The listener must outlive the run.
  virtual std::unique_ptr<OperationRun> Start(const OperationRequest& request,
                                              OperationListener& listener) = 0;
  // Handles events, but for the user's input, until `isDone` or for some hundredths of a second:
  // what takes no time is done before the user can do anything else.
  virtual void Settle(const std::function<bool()>& isDone) = 0;
  // As FileOperation::Refusal, but for what operations work in.
  virtual std::string Refusal(FileFunction function, const std::string& items) const = 0;
  // The volumes that the request touches, each by a name of its own, in order. Waits for no other
  // machine.
  virtual std::vector<std::string> VolumesOf(const OperationRequest& request) const = 0;
  // Of the item at the path, a link itself; with all that lies below a folder if `isWhole`. Empty
  // for what is not there.
  virtual ItemFingerprint Fingerprint(const std::string& path, bool isWhole) const = 0;
};

}  // namespace tarnwell::platform
