#include "fileops/OperationNotices.h"

#include <utility>

namespace tarnwell::fileops {
namespace {

int DonePercent(const platform::OperationProgress& numbers) {
  return numbers.BytesTotal > 0 ? PercentOf(numbers.BytesDone, numbers.BytesTotal)
                                : PercentOf(numbers.ItemsDone, numbers.ItemsTotal);
}

}  // namespace

OperationNotices::OperationNotices(OperationQueue& operations, platform::DesktopNotices& desktop,
                                   std::function<bool()> isActive, std::function<void()> bringBack)
    : operations_(operations),
      desktop_(desktop),
      isActive_(std::move(isActive)),
      bringBack_(std::move(bringBack)) {
  operations_.OnChange([this] { ShowEntry(); });
  operations_.OnEnd([this](const auto& record, const auto& result, std::int64_t took) {
    TellEnd(record, result, took);
  });
}

// Of several that run, the mean.
void OperationNotices::ShowEntry() {
  platform::TaskEntry entry;
  int sum = 0;
  int running = 0;
  for (const OperationRecord* const each : operations_.Records()) {
    entry.IsUrgent |= each->IsAsking;
    if (each->State != OperationState::Running || each->IsQuiet) continue;
    if (each->Report.Numbers.IsBySystem) continue;  // with an entry of its own
    sum += DonePercent(each->Report.Numbers);
    ++running;
  }
  if (running > 0) entry.Percent = sum / running;
  if (entry == shown_) return;
  shown_ = entry;
  desktop_.ShowTaskEntry(entry);
}

void OperationNotices::TellEnd(const OperationRecord& record,
                               const platform::OperationResult& result, std::int64_t took) const {
  // Who has cancelled it knows.
  if (took <= LongTime || result.Aborted || isActive_()) return;
  const bool isTrouble = result.Code != 0;
  desktop_.Notify({.Title = record.Title,
                   .Text = isTrouble ? "Not everything could be done." : "Done.",
                   .IsTrouble = isTrouble,
                   .Clicked = bringBack_});
}

}  // namespace tarnwell::fileops
