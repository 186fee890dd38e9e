// The icon in the notification area: of the kind that the desktop takes.
#pragma once

#include <QIcon>
#include <QMenu>
#include <QSystemTrayIcon>
#include <QTimer>
#include <functional>
#include <memory>

#include "platform/Tray.h"

namespace tarnwell::ui {

class QtTray : public QObject, public platform::Tray {
 public:
  // Calls `then` from the event loop once nothing is under way that an end would cut off.
  using EndWork = std::function<void(std::function<void()> then)>;

  // `isSilent` tells whether the toolkit's own question for the notification area would wait for a
  // desktop that hangs; may be empty.
  QtTray(const QIcon& picture, EndWork endWork, std::function<bool()> isSilent);
  ~QtTray() override;

  bool Add(const Texts& texts, Events events) override;
  void Remove() override;

 private:
  bool IsAreaThere() const;
  void AddEntry(const std::string& caption, std::function<void()> act);
  void Look();

  const QIcon picture_;
  const EndWork endWork_;
  const std::function<bool()> isSilent_;
  Events events_;
  std::unique_ptr<QSystemTrayIcon> icon_;
  std::unique_ptr<QMenu> menu_;
  QTimer watch_;
};

}  // namespace tarnwell::ui
