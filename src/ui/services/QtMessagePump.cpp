#include "ui/services/QtMessagePump.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <memory>

#include "ui/services/WaitWindow.h"
#include "ui/toolkit/InputLock.h"
#include "ui/toolkit/ShowOver.h"

namespace tarnwell::ui {
namespace {

// Waits that are over sooner show no window.
constexpr qint64 QuietWait = 1000;  // milliseconds
// At the end of the program a place gets so long to take what is still to be saved.
constexpr qint64 LastWait = 2000;

}  // namespace

void QtMessagePump::DoEvents() {
  const Aside aside(*this);
  QCoreApplication::processEvents();
}

void QtMessagePump::WaitForEvents() {
  const Aside aside(*this);
  QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

bool QtMessagePump::WaitAlone(const std::string& place, const std::function<bool()>& isDone) {
  QElapsedTimer since;
  since.start();
  if (leaves_) {
    bool done = false;
    while (!done && since.elapsed() < LastWait) done = isDone();
    return done;
  }
  bool isCancelled = false;
  ++waits_;
  InputLock lock([&isCancelled] { isCancelled = true; });
  std::unique_ptr<WaitWindow> window;
  while (!isCancelled && !leaves_ && !isDone()) {
    // What is typed while nothing shows that there is a wait is for what comes after it.
    QCoreApplication::processEvents(window ? QEventLoop::AllEvents
                                           : QEventLoop::ExcludeUserInputEvents);
    if (window || since.elapsed() < QuietWait) continue;
    window = std::make_unique<WaitWindow>(place, [&isCancelled] { isCancelled = true; });
    lock.Allow(window.get());
    ShowOver(*window, WindowInUse());
  }
  lock.Release();
  --waits_;
  if (window) {
    window->hide();
    window.release()->deleteLater();  // it may be in the middle of one of its own events
  }
  return !isCancelled && !leaves_;
}

}  // namespace tarnwell::ui
