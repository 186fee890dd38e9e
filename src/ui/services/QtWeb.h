// Reads the web with the toolkit.
#pragma once

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QString>

#include "platform/Web.h"

namespace tarnwell::ui {

// Over HTTP and HTTPS; redirects lead to the same scheme or to HTTPS. Sends no cookies.
class QtWeb : public platform::Web {
 public:
  // `agent` names the program and its version to the site.
  explicit QtWeb(QString agent) : agent_(std::move(agent)) {}

  std::string OpenUrl(const std::string& address, std::size_t most) override;
  void GiveUp() override;

 private:
  QNetworkReply* Start(const QUrl& address);

  QString agent_;
  QNetworkAccessManager manager_;
  QEventLoop* running_ = nullptr;
};

}  // namespace tarnwell::ui
