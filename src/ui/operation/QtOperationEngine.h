// Carries operations out, each on a thread of its own, while the windows stay alive.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/OperationEngine.h"
#include "ui/operation/InputWatch.h"
#include "ui/operation/OperationSystem.h"
#include "ui/operation/OperationTools.h"
#include "ui/operation/OperationWork.h"

namespace tarnwell::ui {

// A question comes up by itself, and with the keyboard, only if the user has done nothing since the
// work began or since his last answer; otherwise it waits for ShowQuestion. What there is to remark
// at the end has a window of its own and holds nothing up. Work that is cancelled while another
// machine keeps it is left to itself, and ends as aborted.
class QtOperationEngine : public platform::OperationEngine {
 public:
  QtOperationEngine(OperationSystem system, const OperationTools& tools);
  // Work that runs is left to itself.
  ~QtOperationEngine() override;

  std::unique_ptr<platform::OperationRun> Start(const platform::OperationRequest& request,
                                                platform::OperationListener& listener) override;
  void Settle(const std::function<bool()>& isDone) override;
  std::string Refusal(platform::FileFunction function, const std::string& items) const override {
    return system_.Refusal(function, items);
  }
  std::vector<std::string> VolumesOf(const platform::OperationRequest& request) const override {
    return system_.VolumesOf(request);
  }
  platform::ItemFingerprint Fingerprint(const std::string& path, bool isWhole) const override {
    return system_.Fingerprint(path, isWhole);
  }

  // For an end that leaves no time for windows: when it returns nothing runs any more but what
  // another machine keeps, and no half file is left. No listener hears of it before the event loop
  // goes on.
  void CancelAndWait();

  // Whether threads still run.
  bool AnyLeft() const { return *running_ > 0; }

 private:
  const OperationSystem system_;
  const OperationTools tools_;
  const InputWatch input_;
  const OperationCount running_ = std::make_shared<std::atomic<int>>(0);
  std::vector<std::weak_ptr<OperationWork>> works_;  // those that may be at work
  std::weak_ptr<OperationWork> newest_;
};

}  // namespace tarnwell::ui
