#include "ui/properties/QtItemWindows.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <algorithm>
#include <thread>
#include <utility>

#include "ui/operation/RunQuestion.h"
#include "ui/properties/ApplicationChooser.h"
#include "ui/toolkit/ShowOver.h"

namespace tarnwell::ui {
namespace {

using namespace std::chrono_literals;

// More than any work takes to hear that it is cancelled, unless another machine keeps it.
constexpr auto LastWork = 3s;
constexpr auto LookStep = 5ms;

constexpr int Cascade = 24;  // logical pixels between windows that come one after the other

// Windows of this kind stand over the program's own, not over each other.
QWidget* Owner() {
  QWidget* const used = WindowInUse();
  if (dynamic_cast<PropertiesWindow*>(used) == nullptr) return used;
  for (QWidget* const each : QApplication::topLevelWidgets()) {
    if (each->isVisible() && each->windowType() == Qt::Window) return each;
  }
  return nullptr;
}

}  // namespace

QtItemWindows::QtItemWindows(const PropertiesTools& tools,
                             std::function<void(const std::string& path)> openFolder)
    : tools_(tools), openFolder_(std::move(openFolder)) {}

void QtItemWindows::ShowProperties(const std::vector<std::string>& paths) {
  if (paths.empty()) return;
  const auto same = std::ranges::find_if(windows_, [&](const auto& window) {
    return window->isVisible() && window->Paths() == paths;
  });
  if (same != windows_.end()) {
    (*same)->raise();
    (*same)->activateWindow();
    return;
  }
  const auto open = std::ranges::count_if(windows_, &PropertiesWindow::isVisible,
                                          [](const auto& window) { return window.get(); });
  QWidget* const owner = Owner();
  windows_.push_back(std::make_unique<PropertiesWindow>(
      paths, tools_, [this](PropertiesWindow& window) { Forget(window); }));
  ShowOver(*windows_.back(), owner);
  const int step = Cascade * static_cast<int>(open % 8);
  if (step > 0) windows_.back()->move(windows_.back()->pos() + QPoint(step, step));
}

std::optional<platform::ChosenApplication> QtItemWindows::ChooseApplication(
    const std::string& path, const std::string& type,
    const std::vector<platform::ApplicationChoice>& applications) {
  ApplicationChooser chooser(path, type, applications, tools_.Look);
  chooser.setWindowModality(Qt::ApplicationModal);
  ShowOver(chooser, WindowInUse());
  if (chooser.exec() != QDialog::Accepted) return std::nullopt;
  return chooser.Chosen();
}

platform::RunChoice QtItemWindows::AskRun(const platform::RunQuestion& question) {
  return ui::AskRun(question, tools_.Look);
}

void QtItemWindows::Close() {
  for (const auto& window : windows_) {
    window->Cancel();
    window->hide();
  }
}

bool QtItemWindows::CancelAndWait() {
  for (const auto& window : windows_) window->Cancel();
  const QDeadlineTimer end(LastWork);
  const auto isAtWork = [](const auto& window) { return !window->EndWork(); };
  bool anyWork = true;
  while ((anyWork = std::ranges::any_of(windows_, isAtWork)) && !end.hasExpired()) {
    std::this_thread::sleep_for(LookStep);
  }
  return !anyWork;
}

void QtItemWindows::Forget(const PropertiesWindow& window) {
  const auto found = std::ranges::find(windows_, &window, &std::unique_ptr<PropertiesWindow>::get);
  if (found == windows_.end()) return;
  found->release()->deleteLater();
  windows_.erase(found);
}

}  // namespace tarnwell::ui
