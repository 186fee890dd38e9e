#include "platform/afar/FarWorkers.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/GuardedCall.h"

namespace tarnwell::platform {
namespace {

constexpr std::chrono::seconds idleLife(30);

}  // namespace

struct FarWorkers::Queue {
  std::mutex Mutex;
  std::condition_variable Came;
  std::deque<std::function<void()>> Waiting;
  std::size_t Idle = 0;  // threads
};

FarWorkers::FarWorkers() : queue_(std::make_shared<Queue>()) {}

void FarWorkers::Post(std::function<void()> work) {
  const std::lock_guard lock(queue_->Mutex);
  if (queue_->Idle <= queue_->Waiting.size()) {
    std::thread(&FarWorkers::Serve, queue_).detach();
  }
  queue_->Waiting.push_back(std::move(work));
  queue_->Came.notify_one();
}

void FarWorkers::Serve(const std::shared_ptr<Queue>& queue) {
  std::unique_lock lock(queue->Mutex);
  for (;;) {
    ++queue->Idle;
    const bool came = queue->Came.wait_for(lock, idleLife, [&] { return !queue->Waiting.empty(); });
    --queue->Idle;
    if (!came) return;
    {
      const std::function<void()> work = std::move(queue->Waiting.front());
      queue->Waiting.pop_front();
      lock.unlock();
      GuardedCall(work);
    }
    lock.lock();
  }
}

}  // namespace tarnwell::platform
