#include "fileops/OperationQueue.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>
#include <unordered_set>
#include <utility>

#include "base/ItemList.h"
#include "fileops/OperationTexts.h"
#include "fileops/OperationUse.h"

namespace tarnwell::fileops {

using platform::OperationId;
using platform::OperationResult;

namespace {

// Of these results are kept: nobody asks for one but the command that has just started it.
constexpr std::size_t MostFinished = 8;

// Items go, with all that is in them.
bool TakesWhole(const platform::OperationRequest& request) {
  using platform::FileFunction;
  const bool takes =
      request.Function == FileFunction::Delete || request.Function == FileFunction::Move;
  return takes && (request.Flags & (platform::OwnTargets | platform::FromTrash)) == 0 &&
         request.Expected.empty();
}

OperationResult Failure(std::errc code, bool isAborted) {
  return {.Code = static_cast<int>(code), .Aborted = isAborted};
}

}  // namespace

// The run goes first, since it knows the rest.
struct OperationQueue::Work : OperationRecord, platform::OperationListener {
  Work(OperationQueue& queue, OperationId id) : Queue(queue) { Id = id; }

  void OnProgress(const platform::ProgressReport& report) override {
    Queue.TakeProgress(*this, report);
  }
  void OnAsking(bool isAsking) override { Queue.TakeAsking(*this, isAsking); }
  void OnDone(OperationResult result) override { Queue.TakeDone(*this, std::move(result)); }

  bool HasItems() const {
    return std::ranges::any_of(Order.Requests,
                               [](const auto& request) { return !request.Items.empty(); });
  }

  OperationQueue& Queue;
  std::vector<platform::OperationDone> After;
  OperationResult Result;
  platform::OperationProgress Before;  // counts of the requests that are done
  std::unique_ptr<platform::OperationRun> Run;
};

OperationQueue::OperationQueue(platform::OperationEngine& engine, const platform::Clock& clock,
                               const base::PathSyntax& syntax, const platform::NumberForms& forms,
                               UndoHistory& history)
    : engine_(engine), clock_(clock), syntax_(syntax), forms_(forms), history_(history) {}

OperationQueue::~OperationQueue() = default;

template <typename Call>
void OperationQueue::Act(Call call) {
  const std::exception_ptr outer = std::exchange(fault_, nullptr);
  call();
  if (const std::exception_ptr own = std::exchange(fault_, outer)) std::rethrow_exception(own);
}

template <typename Call>
void OperationQueue::Guard(Call call) {
  try {
    call();
  } catch (...) {
    if (!fault_) fault_ = std::current_exception();
  }
}

// --- For commands

OperationId OperationQueue::Start(platform::OperationOrder order) {
  auto work = std::make_unique<Work>(*this, ++last_);
  const OperationId id = work->Id;
  work->Title = OperationTitle(order, syntax_, forms_);
  work->Order = std::move(order);
  for (platform::OperationRequest& request : work->Order.Requests) {
    if (request.Items.empty()) continue;
    if (TakesWhole(request)) request.Items = WithoutNested(request.Items, syntax_);
    std::ranges::move(engine_.VolumesOf(request), std::back_inserter(work->Volumes));
  }
  std::ranges::sort(work->Volumes);
  work->Volumes.erase(std::unique(work->Volumes.begin(), work->Volumes.end()), work->Volumes.end());
  Act([&] { Take(std::move(work)); });
  return id;
}

void OperationQueue::Take(std::unique_ptr<Work> work) {
  const OperationId id = work->Id;
  if (isGivingUp_ && work->HasItems()) {
    work->Result = Failure(std::errc::operation_canceled, true);
    return Finish(std::move(work));
  }
  Work& added = *waiting_.emplace_back(std::move(work));
  const auto at = std::prev(waiting_.end());
  added.IsQuiet = !added.HasItems() || !MustWait(at);
  if (added.IsQuiet) Begin(at);
  TellChange();
  if (FindRunning(id) != nullptr) engine_.Settle([this, id] { return Find(id) == nullptr; });
}

void OperationQueue::WhenDone(OperationId operation, platform::OperationDone then) {
  if (dropsContinuations_) return;
  for (Works* const works : {&running_, &waiting_}) {
    for (const auto& work : *works) {
      if (work->Id == operation) return work->After.push_back(std::move(then));
    }
  }
  const auto known = std::ranges::find(finished_, operation, &Finished::Id);
  // The result may go with what is started next.
  const auto result =
      known == finished_.end() ? std::make_shared<const OperationResult>() : known->Result;
  then(*result);
}

void OperationQueue::NoteDone(platform::CommandKind kind,
                              const std::vector<platform::PlacedItem>& items) {
  UndoStep step;
  step.Kind = kind;
  step.Operation = last_;
  step.Items.reserve(items.size());
  for (const platform::PlacedItem& item : items) {
    const bool isMade = item.From.empty();
    step.Items.push_back({item.From, item.To, engine_.Fingerprint(item.To, isMade)});
  }
  history_.Add(std::move(step));
}

std::string OperationQueue::Refusal(platform::FileFunction function,
                                    const std::string& items) const {
  using platform::FileFunction;
  std::string refusal = engine_.Refusal(function, items);
  const bool takesAway = function == FileFunction::Delete || function == FileFunction::Move ||
                         function == FileFunction::Rename;
  if (!refusal.empty() || !takesAway || IsIdle()) return refusal;
  const ItemsToTake taken(items, syntax_);
  for (const OperationRecord* const record : Records()) {
    const std::string_view used = taken.UsedBy(record->Order);
    if (!used.empty()) return InUseText(function, used, record->Title, syntax_);
  }
  return {};
}

// --- For windows

std::vector<const OperationRecord*> OperationQueue::Records() const {
  std::vector<const OperationRecord*> records;
  records.reserve(running_.size() + waiting_.size());
  for (const Works* const works : {&running_, &waiting_}) {
    for (const auto& work : *works) records.push_back(work.get());
  }
  return records;
}

const OperationRecord* OperationQueue::Find(OperationId operation) const {
  for (const Works* const works : {&running_, &waiting_}) {
    const auto found = std::ranges::find(*works, operation, &Work::Id);
    if (found != works->end()) return found->get();
  }
  return nullptr;
}

void OperationQueue::Pause(OperationId operation, bool on) {
  Work* const work = FindRunning(operation);
  if (work == nullptr || work->IsCancelling || work->IsPaused == on) return;
  work->IsPaused = on;
  MeterTime(*work);
  work->Run->Pause(on);
  Act([this] { TellChange(); });
}

void OperationQueue::Cancel(OperationId operation) {
  if (const auto waiting = FindWaiting(operation); waiting != waiting_.end()) {
    return Act([&] { TakeAway(waiting); });
  }
  Work* const work = FindRunning(operation);
  if (work == nullptr || std::exchange(work->IsCancelling, true)) return;
  work->IsPaused = false;
  work->Run->Cancel();
  Act([this] { TellChange(); });
}

void OperationQueue::StartNow(OperationId operation) {
  const auto waiting = FindWaiting(operation);
  if (waiting == waiting_.end()) return;
  Act([&] {
    Begin(waiting);
    TellChange();
  });
}

void OperationQueue::MoveUp(OperationId operation) {
  const auto waiting = FindWaiting(operation);
  if (waiting == waiting_.end() || waiting == waiting_.begin()) return;
  std::iter_swap(waiting, std::prev(waiting));
  Act([this] {
    RunWhatMay();
    TellChange();
  });
}

void OperationQueue::ShowQuestion(OperationId operation) {
  if (const Work* const work = FindRunning(operation)) work->Run->ShowQuestion();
}

void OperationQueue::OnChange(std::function<void()> changed) {
  changed_.push_back(std::move(changed));
}

void OperationQueue::OnEnd(Ended ended) {
  ended_.push_back(std::move(ended));
}

// --- For the end of the program

bool OperationQueue::IsIdle() const {
  return running_.empty() && waiting_.empty();
}

void OperationQueue::WhenIdle(std::function<void()> then) {
  if (IsIdle()) return then();
  idle_.push_back(std::move(then));
}

void OperationQueue::CancelAll() {
  if (IsIdle()) return;
  isGivingUp_ = true;
  Act([this] {
    while (!waiting_.empty()) TakeAway(waiting_.begin());
    for (const auto& work : running_) {
      work->IsCancelling = true;
      work->IsPaused = false;
      work->Run->Leave();
    }
    TellChange();
  });
}

void OperationQueue::DropContinuations() {
  dropsContinuations_ = true;
  for (Works* const works : {&running_, &waiting_}) {
    for (const auto& work : *works) work->After.clear();
  }
}

// --- What a run tells

void OperationQueue::TakeProgress(Work& work, const platform::ProgressReport& report) {
  work.Report = report;
  platform::OperationProgress& numbers = work.Report.Numbers;
  numbers.BytesDone += work.Before.BytesDone;
  numbers.BytesTotal += work.Before.BytesDone;
  numbers.ItemsDone += work.Before.ItemsDone;
  numbers.ItemsTotal += work.Before.ItemsDone;
  // What the requests still to come hold, nobody has counted.
  numbers.IsCounting |= work.At + 1 < work.Order.Requests.size();
  const std::int64_t now = clock_.Ticks();
  work.Meter.Note(now, numbers.BytesDone, numbers.ItemsDone);
  if (now - work.StartedAt >= QuietTime) work.IsQuiet = false;
  Act([this] { TellChange(); });
}

void OperationQueue::TakeAsking(Work& work, bool isAsking) {
  work.IsAsking = isAsking;
  if (isAsking) work.IsQuiet = false;
  MeterTime(work);
  Act([this] { TellChange(); });
}

void OperationQueue::TakeDone(Work& work, OperationResult result) {
  Add(work.Result, std::move(result));
  work.Run.reset();
  work.IsAsking = false;
  work.Before = work.Report.Numbers;
  ++work.At;
  const bool isLast = work.At >= work.Order.Requests.size();
  if (!isLast && work.IsCancelling) work.Result.Aborted = true;
  if (isLast || work.Result.Aborted) work.At = work.Order.Requests.size();
  MeterTime(work);
  Act([&] {
    Go(work);
    TellChange();
  });
}

// --- Whose turn it is

OperationQueue::Work* OperationQueue::FindRunning(OperationId operation) const {
  const auto found = std::ranges::find(running_, operation, &Work::Id);
  return found == running_.end() ? nullptr : found->get();
}

OperationQueue::Works::iterator OperationQueue::FindWaiting(OperationId operation) {
  return std::ranges::find(waiting_, operation, &Work::Id);
}

bool OperationQueue::MustWait(Works::const_iterator work) const {
  const auto meets = [&](const std::unique_ptr<Work>& other) {
    return std::ranges::any_of((*work)->Volumes, [&](const std::string& volume) {
      return std::ranges::binary_search(other->Volumes, volume);
    });
  };
  return std::ranges::any_of(running_, meets) || std::any_of(waiting_.cbegin(), work, meets);
}

void OperationQueue::RunWhatMay() {
  if (isGivingUp_) return;
  for (auto at = waiting_.begin(); at != waiting_.end();) {
    if (MustWait(at)) {
      ++at;
      continue;
    }
    Begin(at);
    at = waiting_.begin();  // it may have ended, and begun others
  }
}

void OperationQueue::Begin(Works::iterator waiting) {
  std::unique_ptr<Work> taken = std::move(*waiting);
  waiting_.erase(waiting);
  Work& work = *running_.emplace_back(std::move(taken));
  work.State = OperationState::Running;
  work.StartedAt = clock_.Ticks();
  work.Meter.Note(work.StartedAt, 0, 0);
  Go(work);
}

void OperationQueue::Go(Work& work) {
  const std::vector<platform::OperationRequest>& requests = work.Order.Requests;
  for (; work.At < requests.size() && requests[work.At].Items.empty(); ++work.At) {
    Add(work.Result, {});
  }
  if (work.At < requests.size()) {
    Guard([&] { work.Run = engine_.Start(requests[work.At], work); });
    if (work.Run != nullptr) {
      if (work.IsPaused) work.Run->Pause(true);
      return;
    }
    Add(work.Result, Failure(std::errc::resource_unavailable_try_again, false));
  }
  const auto own = std::ranges::find(running_, work.Id, &Work::Id);
  std::unique_ptr<Work> ended = std::move(*own);
  running_.erase(own);
  Finish(std::move(ended));
}

void OperationQueue::TakeAway(Works::iterator waiting) {
  std::unique_ptr<Work> work = std::move(*waiting);
  waiting_.erase(waiting);
  work->Result = Failure(std::errc::operation_canceled, true);
  Finish(std::move(work));
}

// It is in no list any more.
void OperationQueue::Finish(std::unique_ptr<Work> work) {
  using platform::CommandKind;
  const bool hasRun = work->State == OperationState::Running;
  work->State = OperationState::Done;
  work->IsPaused = work->IsAsking = work->IsQuiet = false;
  const auto result = std::make_shared<const OperationResult>(std::move(work->Result));
  finished_.push_back({work->Id, result});
  if (finished_.size() > MostFinished) finished_.pop_front();
  const CommandKind kind = work->Order.Kind;
  if (kind != CommandKind::Undo && kind != CommandKind::Redo) {
    UndoStep step;
    step.Kind = kind;
    step.Items = result->Done;
    step.Irrevocable = result->Irrevocable;
    step.Renumbered = result->Renumbered;
    step.Operation = work->Id;
    history_.Add(std::move(step));
  }
  ForgetPurged(work->Order);
  const std::int64_t took = hasRun ? clock_.Ticks() - work->StartedAt : 0;
  for (const Ended& ended : ended_) Guard([&] { ended(*work, *result, took); });
  RunWhatMay();
  TellChange();
  for (const platform::OperationDone& then : work->After) {
    if (!dropsContinuations_) Guard([&] { then(*result); });
  }
  TellIdle();
}

void OperationQueue::ForgetPurged(const platform::OperationOrder& order) {
  std::unordered_set<std::string> purged;
  for (const platform::OperationRequest& request : order.Requests) {
    const bool isPurge = request.Function == platform::FileFunction::Delete &&
                         (request.Flags & platform::FromTrash) != 0;
    if (!isPurge) continue;
    for (const std::string_view item : base::ItemList(request.Items)) purged.emplace(item);
  }
  if (purged.empty()) return;
  history_.Forget(purged, [this](const std::string& path) {
    return engine_.Fingerprint(path, false).Kind == 0;
  });
}

void OperationQueue::MeterTime(Work& work) {
  const std::int64_t now = clock_.Ticks();
  if (work.IsPaused || work.IsAsking) {
    work.Meter.Pause(now);
  } else {
    work.Meter.Continue(now);
  }
}

// --- Who is told

void OperationQueue::TellChange() {
  for (const auto& changed : changed_) Guard(changed);
}

void OperationQueue::TellIdle() {
  if (!IsIdle()) return;
  isGivingUp_ = false;
  for (const auto& then : std::exchange(idle_, {})) Guard(then);
}

}  // namespace tarnwell::fileops
