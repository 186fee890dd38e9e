#include "ui/services/QtTray.h"

#include <utility>

#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {
namespace {

// Nothing tells when the notification area goes.
constexpr int TrayLookInterval = 1000;  // milliseconds

}  // namespace

QtTray::QtTray(const QIcon& picture, EndWork endWork, std::function<bool()> isSilent)
    : picture_(picture), endWork_(std::move(endWork)), isSilent_(std::move(isSilent)) {
  watch_.setInterval(TrayLookInterval);
  connect(&watch_, &QTimer::timeout, this, [this] { Look(); });
}

QtTray::~QtTray() = default;

bool QtTray::Add(const Texts& texts, Events events) {
  // Not asked before: Qt keeps to the kind of icon that it finds when it first looks for one, and
  // at the start of a session the desktop may not be ready.
  if (!IsAreaThere()) return false;
  Remove();
  events_ = std::move(events);
  menu_ = std::make_unique<QMenu>();
  AddEntry(texts.Restore, [this] { events_.Restore(); });
  AddEntry(texts.Exit, [this] {
    endWork_([this] {
      if (icon_) events_.Exit();
    });
  });
  icon_ = std::make_unique<QSystemTrayIcon>(picture_);
  icon_->setToolTip(ToShownQString(texts.Tip));
  icon_->setContextMenu(menu_.get());
  connect(
      icon_.get(), &QSystemTrayIcon::activated, this,
      [this](QSystemTrayIcon::ActivationReason reason) {
        const bool isClick =
            reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick;
        if (icon_ && isClick) events_.Restore();
      },
      Qt::QueuedConnection);  // what it does takes the icon away
  icon_->show();
  watch_.start();
  return true;
}

bool QtTray::IsAreaThere() const {
  return !(isSilent_ && isSilent_()) && QSystemTrayIcon::isSystemTrayAvailable();
}

void QtTray::AddEntry(const std::string& caption, std::function<void()> act) {
  const QAction* const action = menu_->addAction(ToShownQString(caption));
  connect(
      action, &QAction::triggered, this,
      [this, act = std::move(act)] {
        if (icon_) act();
      },
      Qt::QueuedConnection);
}

void QtTray::Remove() {
  watch_.stop();
  if (!icon_) return;
  icon_->hide();
  menu_->hide();
  icon_.release()->deleteLater();
  menu_.release()->deleteLater();
}

void QtTray::Look() {
  if (IsAreaThere()) return;
  Remove();
  events_.Gone();
}

}  // namespace tarnwell::ui
