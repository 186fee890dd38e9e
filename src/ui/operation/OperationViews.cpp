#include "ui/operation/OperationViews.h"

#include <algorithm>
#include <utility>

namespace tarnwell::ui {
namespace {

using fileops::OperationRecord;
using fileops::OperationState;

// However often something changes.
constexpr int LeastTime = 60;  // milliseconds

bool IsSilent(const OperationRecord& record) {
  return std::ranges::all_of(record.Order.Requests, [](const platform::OperationRequest& each) {
    return (each.Flags & platform::Silent) != 0;
  });
}

bool IsMinimisedOrAway(const QWidget* window) {
  return window != nullptr && (!window->isVisible() || window->isMinimized());
}

}  // namespace

OperationViews::OperationViews(fileops::OperationQueue& queue, const OperationTools& tools,
                               std::function<bool()> wantsWindow)
    : queue_(queue), tools_(tools), wantsWindow_(std::move(wantsWindow)) {
  refresh_.setSingleShot(true);
  connect(&refresh_, &QTimer::timeout, this, [this] { Refresh(); });
  queue_.OnChange([this] { RefreshSoon(); });
}

QWidget* OperationViews::MakeStrip(QWidget& main, std::function<void()> leave,
                                   std::function<void()> changed) {
  main_ = &main;
  leave_ = std::move(leave);
  changed_ = std::move(changed);
  strip_ = new OperationStrip(queue_, tools_, leave_, &main);
  connect(&main, &QObject::destroyed, this, [this] {
    leave_ = changed_ = nullptr;
    RefreshSoon();
  });
  return strip_;
}

// Also from within a change, when the records are about to change again.
void OperationViews::RefreshSoon() {
  if (!refresh_.isActive()) refresh_.start(LeastTime);
}

// What takes no time brings nothing up, and neither does what waits for that alone. What is shown
// stays, also when it has waited and now begins.
OperationViews::Records OperationViews::TakeShown() {
  Records records = queue_.Records();
  std::erase_if(records, [this](const OperationRecord* each) {
    const bool isShown = std::ranges::find(shown_, each->Id) != shown_.end();
    return !isShown && !each->IsAsking && (each->IsQuiet || IsSilent(*each));
  });
  const auto isAtWork = [](const OperationRecord* each) {
    return each->State == OperationState::Running;
  };
  if (shown_.empty() && std::ranges::none_of(records, isAtWork)) records.clear();
  shown_.clear();
  for (const OperationRecord* const each : records) shown_.push_back(each->Id);
  return records;
}

void OperationViews::Refresh() {
  const Records records = TakeShown();
  const bool anyAsks =
      std::ranges::any_of(records, [](const OperationRecord* each) { return each->IsAsking; });
  const bool hasChanged = std::exchange(anyAsks_, anyAsks) != anyAsks;
  if (anyAsks && hasChanged) dismissed_ = platform::NoOperation;
  const bool inWindow = strip_ == nullptr || wantsWindow_();
  if (strip_) strip_->Show(inWindow ? Records() : records);
  ShowWindow(inWindow ? records : Records());
  if (hasChanged && changed_) changed_();
}

// Not while the main window is put away: that would bring it back.
void OperationViews::ShowWindow(const Records& records) {
  const auto isNew = [this](const OperationRecord* each) { return each->Id > dismissed_; };
  const bool isWanted = std::ranges::any_of(records, isNew) && !IsMinimisedOrAway(main_);
  if (!window_ && !isWanted) return;
  if (!window_) {
    window_ = std::make_unique<OperationWindow>(
        queue_, tools_,
        OperationWindow::Actions{.Leave = [this] { Leave(); },
                                 .Dismiss = [this] { Dismiss(); },
                                 .Shown = [this] { RefreshSoon(); }});
  }
  // Else the task bar would not show it.
  if (main_ == nullptr && !std::exchange(isAlone_, true)) window_->hide();
  window_->Show(records);
  if (!isWanted) {
    window_->hide();
  } else if (!window_->isVisible()) {
    window_->Open(main_);
  }
}

void OperationViews::Dismiss() {
  if (main_ == nullptr) {
    window_->showMinimized();
    return;
  }
  for (const OperationRecord* const each : queue_.Records()) {
    dismissed_ = std::max(dismissed_, each->Id);
  }
  window_->hide();
  Leave();
}

void OperationViews::Leave() {
  if (main_ == nullptr) return;
  main_->activateWindow();
  if (leave_) leave_();
}

void OperationViews::EnterOrLeave() {
  if (strip_ && strip_->List().HoldsKeyboard()) {
    leave_();
    return;
  }
  dismissed_ = platform::NoOperation;
  Refresh();
  if (strip_ && strip_->isVisible()) {
    strip_->List().Enter();
  } else if (window_ && window_->isVisible()) {
    window_->raise();
    window_->activateWindow();
    window_->List().Enter();
  }
}

}  // namespace tarnwell::ui
