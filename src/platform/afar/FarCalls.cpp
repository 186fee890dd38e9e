#include "platform/afar/FarCalls.h"

#include <algorithm>
#include <cerrno>
#include <map>
#include <thread>

#include "base/Text.h"
#include "platform/afar/FarWorkers.h"

namespace tarnwell::platform {
namespace {

using SteadyClock = std::chrono::steady_clock;
using Milliseconds = std::chrono::milliseconds;

// Most calls come back within it, and no message is let through.
constexpr Milliseconds quietStep(20);
// From then on: whoever talks with the window, screen readers say, gets one answer in each.
constexpr Milliseconds awaitStep(2);
// Of one place; each keeps a thread.
constexpr int mostLeft = 4;

base::Status NoAnswer(const FarPlace& place) {
  return {ETIMEDOUT, base::ForDisplay(place.Name) + " does not answer"};
}

}  // namespace

// What is known of places that kept calls. Touched by all threads.
class FarLedger {
 public:
  // Whether the place may be called.
  bool Enter(const std::string& key, Milliseconds retrial) {
    const std::lock_guard lock(mutex_);
    const auto found = troubles_.find(key);
    if (found == troubles_.end()) return true;
    Trouble& trouble = found->second;
    const SteadyClock::time_point now = SteadyClock::now();
    if (trouble.Left >= mostLeft || (trouble.IsSilent && now - trouble.Tried < retrial)) {
      return false;
    }
    trouble.Tried = now;
    return true;
  }

  void Leave(const std::string& key, bool wasSilent) {
    const std::lock_guard lock(mutex_);
    Trouble& trouble = troubles_[key];
    ++trouble.Left;
    trouble.IsSilent = trouble.IsSilent || wasSilent;
    trouble.Tried = SteadyClock::now();
  }

  void Answered(const std::string& key, bool wasLeft) {
    const std::lock_guard lock(mutex_);
    const auto found = troubles_.find(key);
    if (found == troubles_.end()) return;
    found->second.IsSilent = false;
    if (wasLeft) --found->second.Left;
    if (found->second.Left == 0) troubles_.erase(found);
  }

  bool AnyLeft() const {
    const std::lock_guard lock(mutex_);
    return !troubles_.empty();
  }

 private:
  struct Trouble {
    int Left = 0;  // calls that still run
    bool IsSilent = false;
    SteadyClock::time_point Tried;
  };

  mutable std::mutex mutex_;
  std::map<std::string, Trouble> troubles_;  // by place
};

struct FarCalls::State {
  State(MessagePump& pump, const FarPatience& patience, std::shared_ptr<const FarPlaces> places)
      : Pump(pump), Patience(patience), Places(std::move(places)) {}

  MessagePump& Pump;
  const FarPatience Patience;
  const std::shared_ptr<const FarPlaces> Places;
  const std::thread::id Thread = std::this_thread::get_id();
  const std::shared_ptr<FarLedger> Ledger = std::make_shared<FarLedger>();
  FarWorkers Workers;
};

FarCalls::FarCalls(MessagePump& pump, const FarPatience& patience,
                   std::shared_ptr<const FarPlaces> places)
    : state_(std::make_shared<State>(pump, patience, std::move(places))) {}

const FarPlaces* FarCalls::Places() const {
  const bool isMine = state_ && std::this_thread::get_id() == state_->Thread;
  return isMine ? state_->Places.get() : nullptr;
}

std::optional<FarPlace> FarCalls::PlaceOf(const std::string& path, LastLink last) const {
  const FarPlaces* const places = Places();
  return places != nullptr ? places->Find(path, last) : std::nullopt;
}

std::optional<FarPlace> FarCalls::PlaceOfItems(const std::vector<std::string>& paths) const {
  const FarPlaces* const places = Places();
  if (places == nullptr || !places->Any()) return {};
  for (const std::string& path : paths) {
    if (auto place = places->Find(path, LastLink::Itself)) return place;
  }
  return {};
}

base::Status FarCalls::Run(const std::string& path, Work work, LastLink last) const {
  return RunAt(PlaceOf(path, last), std::move(work));
}

base::Status FarCalls::RunAt(const std::optional<FarPlace>& place, Work work, bool isGlance) const {
  if (!place) {
    work();
    return {};
  }
  base::Status status;
  const auto call = Begin(
      *place, [work = std::move(work)](FarCall&) { work(); }, status);
  if (!call) return status;
  status = Await(
      *place, *call, [] { return false; }, isGlance);
  if (status && call->Failure) std::rethrow_exception(call->Failure);
  return status;
}

base::Status FarCalls::Ask(const std::string& path, std::function<base::Status()> work,
                           LastLink last) const {
  const auto answer = std::make_shared<base::Status>();
  const base::Status status = Run(
      path, [answer, work = std::move(work)] { *answer = work(); }, last);
  return status ? *answer : status;
}

std::shared_ptr<FarCall> FarCalls::Begin(const FarPlace& place, std::function<void(FarCall&)> work,
                                         base::Status& status) const {
  if (!state_->Ledger->Enter(place.Key, state_->Patience.Retrial)) {
    status = NoAnswer(place);
    return nullptr;
  }
  auto call = std::make_shared<FarCall>();
  const auto run = [call, work = std::move(work), ledger = state_->Ledger, key = place.Key] {
    std::exception_ptr failure;
    try {
      work(*call);
    } catch (...) {
      failure = std::current_exception();
    }
    bool wasLeft = false;
    {
      const std::lock_guard lock(call->Mutex);
      call->Failure = failure;
      call->IsDone = true;
      wasLeft = call->IsLeft;
    }
    call->Told.notify_all();
    ledger->Answered(key, wasLeft);
  };
  try {
    state_->Workers.Post(run);
  } catch (const std::system_error& error) {
    status = {error.code().value(), error.code().message()};
    return nullptr;
  }
  return call;
}

base::Status FarCalls::Await(const FarPlace& place, FarCall& call,
                             const std::function<bool()>& isReady, bool isGlance) const {
  const FarPatience& patience = state_->Patience;
  const Milliseconds most = isGlance ? patience.Glance : patience.Most;
  const SteadyClock::time_point start = SteadyClock::now();
  const auto waited = [&] { return SteadyClock::now() - start; };
  const auto look = [&](Milliseconds step) {
    std::unique_lock lock(call.Mutex);
    return call.Told.wait_for(lock, step, [&] { return call.IsDone || isReady(); });
  };
  bool isThere = look(quietStep);
  const bool goesOn = isThere || state_->Pump.Wait(base::ForDisplay(place.Name), [&] {
    isThere = look(awaitStep);
    return isThere || waited() >= most;
  });
  if (isThere) return {};
  Leave(place, call, waited() >= patience.Silence);
  if (!goesOn) return {ECANCELED, "You no longer waited for " + base::ForDisplay(place.Name)};
  return NoAnswer(place);
}

void FarCalls::Leave(const FarPlace& place, FarCall& call, bool wasSilent) const {
  const std::lock_guard lock(call.Mutex);
  if (call.IsDone || call.IsLeft) return;
  call.IsLeft = true;
  call.Told.notify_all();
  state_->Ledger->Leave(place.Key, wasSilent);
}

void FarCalls::LetGo(std::shared_ptr<void> held) const {
  try {
    state_->Workers.Post([held = std::move(held)] {});
  } catch (const std::system_error&) {
    return;  // on this thread, then
  }
}

bool FarCalls::AnyLeft() const {
  return state_ && state_->Ledger->AnyLeft();
}

}  // namespace tarnwell::platform
