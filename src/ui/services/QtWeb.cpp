#include "ui/services/QtWeb.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QScopedValueRollback>
#include <QTimer>
#include <memory>

#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {
namespace {

constexpr int LongestRead = 10'000;  // milliseconds
constexpr int MostRedirects = 5;

bool IsSafe(const QString& from, const QString& to) {
  return to == QLatin1String("https") || (to == from && to == QLatin1String("http"));
}

}  // namespace

QNetworkReply* QtWeb::Start(const QUrl& address) {
  QNetworkRequest request(address);
  request.setHeader(QNetworkRequest::UserAgentHeader, agent_);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::UserVerifiedRedirectPolicy);
  request.setMaximumRedirectsAllowed(MostRedirects);
  for (const auto attribute :
       {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute}) {
    request.setAttribute(attribute, QNetworkRequest::Manual);
  }
  request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
  return manager_.get(request);
}

std::string QtWeb::OpenUrl(const std::string& address, std::size_t most) {
  const QUrl url(ToQString(address), QUrl::StrictMode);
  if (running_ != nullptr || !url.isValid() || !IsSafe(url.scheme(), url.scheme())) return {};
  QEventLoop loop;
  const QScopedValueRollback running(running_, &loop);
  const std::unique_ptr<QNetworkReply> reply(Start(url));
  // What unpacks to more than is wanted is not unpacked.
  reply->setReadBufferSize(static_cast<qint64>(most));
  QString scheme = url.scheme();
  QObject::connect(reply.get(), &QNetworkReply::redirected, &loop, [&](const QUrl& target) {
    if (!IsSafe(scheme, target.scheme())) return loop.exit(1);
    scheme = target.scheme();
    emit reply->redirectAllowed();
  });
  QObject::connect(reply.get(), &QNetworkReply::finished, &loop, [&loop] { loop.exit(0); });
  QByteArray body;
  const auto take = [&] { body += reply->read(static_cast<qint64>(most) - body.size()); };
  QObject::connect(reply.get(), &QNetworkReply::readyRead, &loop, [&] {
    take();
    if (body.size() == static_cast<qint64>(most)) loop.exit(0);
  });
  QTimer::singleShot(LongestRead, &loop, [&loop] { loop.exit(1); });
  bool whole = loop.exec() == 0;
  take();
  // The end of the program ends the loop as well.
  whole = whole && (reply->isFinished() || body.size() == static_cast<qint64>(most));
  const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  const bool good = whole && reply->error() == QNetworkReply::NoError && status == 200;
  return good ? body.toStdString() : std::string();
}

void QtWeb::GiveUp() {
  if (running_ != nullptr) running_->exit(1);
}

}  // namespace tarnwell::ui
