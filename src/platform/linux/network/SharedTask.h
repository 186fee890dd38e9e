// A task whose work outlives it for as long as an answer to it is being told.
#pragma once

#include <memory>
#include <utility>

#include "platform/NetworkPlaces.h"

namespace tarnwell::platform {

// `Work` has Start, Answer, TakeBack, and GiveUp, behind which it tells nothing more.
template <typename Work>
class SharedTask : public AskingTask {
 public:
  explicit SharedTask(std::shared_ptr<Work> work) : work_(std::move(work)) {}
  SharedTask(const SharedTask&) = delete;
  SharedTask& operator=(const SharedTask&) = delete;
  ~SharedTask() override { work_->GiveUp(); }
  void Answer(const PlaceAnswer& answer) override { work_->Answer(answer); }
  void TakeBack() override { work_->TakeBack(); }

 private:
  std::shared_ptr<Work> work_;
};

template <typename Work>
std::unique_ptr<AskingTask> StartTask(std::shared_ptr<Work> work) {
  auto task = std::make_unique<SharedTask<Work>>(work);
  work->Start();
  return task;
}

}  // namespace tarnwell::platform
