// Calls to the system that may have to wait for another machine, kept from the window's thread.
#pragma once

#include <chrono>
#include <condition_variable>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/Status.h"
#include "platform/MessagePump.h"
#include "platform/afar/FarPlaces.h"

namespace tarnwell::platform {

// One call, shared by the thread that makes it and the one that waits for it.
class FarCall {
 public:
  std::mutex Mutex;  // of what the work shows while it runs as well
  std::condition_variable Told;
  bool IsLeft = false;  // nobody waits any more: the work ends as soon as it can
  bool IsDone = false;
  std::exception_ptr Failure;  // what the work threw, once it is done
};

// How long a place may be silent.
struct FarPatience {
  std::chrono::milliseconds Most{20'000};     // for what the user has asked for
  std::chrono::milliseconds Glance{2'000};    // for what merely comes along with what he has
  std::chrono::milliseconds Silence{500};     // from here on a call that is left says that it is
  std::chrono::milliseconds Retrial{10'000};  // until a place that was silent is asked again
};

// For the thread that it is made by: a call to a far place runs on another one, while this thread
// lets messages through. One that takes too long, or that the user no longer wants, is left to
// itself, and so is its place: new calls fail at once, but for one now and then, until it answers.
// On all other threads, and for what is not far, the calls are made at once. Copies are the same
// object; one made without arguments makes every call at once.
class FarCalls {
 public:
  using Work = std::function<void()>;

  FarCalls() = default;
  FarCalls(MessagePump& pump, const FarPatience& patience, std::shared_ptr<const FarPlaces> places);

  // Of a path that has to be called with care on this thread.
  std::optional<FarPlace> PlaceOf(const std::string& path,
                                  LastLink last = LastLink::Followed) const;
  // Of the first of the items, which are not followed, that has one.
  std::optional<FarPlace> PlaceOfItems(const std::vector<std::string>& paths) const;
  // Null where nothing is far for this thread.
  const FarPlaces* Places() const;

  // Does the work with the path. Success says that it is done; otherwise it may still be done
  // later: what it refers to must be its own. What it throws comes out here.
  base::Status Run(const std::string& path, Work work, LastLink last = LastLink::Followed) const;
  base::Status RunAt(const std::optional<FarPlace>& place, Work work, bool isGlance = false) const;
  // The same, with what the work gives; `otherwise` where it was not done.
  template <typename Result>
  Result Get(const std::string& path, std::function<Result()> work, Result otherwise,
             LastLink last = LastLink::Followed) const {
    return GetAt(PlaceOf(path, last), std::move(work), std::move(otherwise));
  }
  template <typename Result>
  Result GetAt(const std::optional<FarPlace>& place, std::function<Result()> work, Result otherwise,
               bool isGlance = false) const {
    const auto result = std::make_shared<std::optional<Result>>();
    const base::Status status = RunAt(
        place, [result, work = std::move(work)] { result->emplace(work()); }, isGlance);
    return status ? std::move(**result) : std::move(otherwise);
  }
  // For work that gives a status: the reason why it was not done is one, too.
  base::Status Ask(const std::string& path, std::function<base::Status()> work,
                   LastLink last = LastLink::Followed) const;

  // --- For work that shows something while it runs.

  // Null, with the reason, where the place is not to be called now.
  std::shared_ptr<FarCall> Begin(const FarPlace& place, std::function<void(FarCall&)> work,
                                 base::Status& status) const;
  // Until `isReady`, which is asked under the call's lock, or the call is done. Otherwise the call
  // is left. What the work threw is in the call, and is for the caller to mind.
  base::Status Await(const FarPlace& place, FarCall& call, const std::function<bool()>& isReady,
                     bool isGlance = false) const;
  void Leave(const FarPlace& place, FarCall& call, bool wasSilent) const;

  // Gives the last hold on something of a far place up, which may take as long as a call.
  void LetGo(std::shared_ptr<void> held) const;

  // Whether calls that were left still run.
  bool AnyLeft() const;

 private:
  struct State;
  std::shared_ptr<State> state_;
};

}  // namespace tarnwell::platform
