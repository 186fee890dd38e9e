#include "ui/services/FolderRequests.h"

#include <QApplication>
#include <utility>

namespace tarnwell::ui {
namespace {

constexpr int LookInterval = 50;  // milliseconds

}  // namespace

FolderRequests::FolderRequests(std::function<bool()> mayOpen,
                               std::function<void(const Folders&)> open)
    : mayOpen_(std::move(mayOpen)), open_(std::move(open)) {
  timer_.setInterval(LookInterval);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
}

void FolderRequests::Add(const Folders& folders) {
  waiting_.push_back(folders);
  timer_.start();
}

void FolderRequests::Drop() {
  waiting_.clear();
  timer_.stop();
}

void FolderRequests::Look() {
  if (QApplication::activeModalWidget() != nullptr) return;
  if (QApplication::activePopupWidget() != nullptr || !mayOpen_()) return;
  const Folders folders = std::move(waiting_.front());
  waiting_.pop_front();
  if (waiting_.empty()) timer_.stop();
  open_(folders);
}

}  // namespace tarnwell::ui
