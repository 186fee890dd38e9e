#include "platform/win32/api/LoopTimer.h"

#include <unordered_map>
#include <utility>

#include "platform/GuardedCall.h"

namespace tarnwell::platform {
namespace {

// The system's call brings the number alone.
std::unordered_map<UINT_PTR, const std::function<void()>*>& LoopCalls() {
  thread_local std::unordered_map<UINT_PTR, const std::function<void()>*> calls;
  return calls;
}

}  // namespace

LoopTimer::LoopTimer(std::chrono::milliseconds step, std::function<void()> call)
    : call_(std::move(call)),
      number_(SetTimer(nullptr, 0, static_cast<UINT>(step.count()), &LoopTimer::Call)) {
  LoopCalls()[number_] = &call_;
}

LoopTimer::~LoopTimer() {
  KillTimer(nullptr, number_);
  LoopCalls().erase(number_);
}

void CALLBACK LoopTimer::Call(HWND /*window*/, UINT /*message*/, UINT_PTR number, DWORD /*time*/) {
  // A message may come late.
  const auto found = LoopCalls().find(number);
  if (found == LoopCalls().end()) return;
  // A copy, since the call may end the timer.
  const std::function<void()> made = *found->second;
  GuardedCall(made);
}

}  // namespace tarnwell::platform
