#include <gtest/gtest.h>

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include "TestApplication.h"
#include "ui/services/QtWeb.h"

namespace tarnwell::ui {
namespace {

// Answers each path of the loopback address as a test has put down; others never.
class Site : public QTcpServer {
 public:
  Site() {
    listen(QHostAddress::LocalHost);
    connect(this, &QTcpServer::newConnection, this, [this] {
      QTcpSocket* const socket = nextPendingConnection();
      connect(socket, &QTcpSocket::readyRead, this, [this, socket] { Answer(*socket); });
    });
  }
  std::string At(const QString& path) const {
    return QStringLiteral("http://127.0.0.1:%1%2").arg(serverPort()).arg(path).toStdString();
  }

  std::map<std::string, std::string> Answers;  // heads without line ends, and bodies
  QByteArray Request;                          // the last
  int Requests = 0;

 private:
  void Answer(QTcpSocket& socket) {
    Request = socket.readAll();
    ++Requests;
    const auto found = Answers.find(Request.split(' ').value(1).toStdString());
    if (found == Answers.end()) return;
    QByteArray head = QByteArray::fromStdString(found->second);
    socket.write(head.replace('\n', "\r\n"));
    socket.disconnectFromHost();
  }
};

TEST(QtWebTest, ReadsWhatASiteGivesAndNoMore) {
  TestApplication();
  Site site;
  site.Answers = {
      {"/page", "HTTP/1.1 200 OK\nSet-Cookie: a=b\n\n4.0.42"},
      {"/empty", "HTTP/1.1 200 OK\nContent-Length: 0\n\n"},
      {"/missing", "HTTP/1.1 404 Not Found\n\n4.0.42"},
      {"/cut", "HTTP/1.1 200 OK\nContent-Length: 100\n\nhalf"},
      {"/large", "HTTP/1.1 200 OK\n\n" + std::string(3'000'000, 'x')},
      {"/moved", "HTTP/1.1 302 Found\nLocation: /page\n\n"},
      {"/loop", "HTTP/1.1 302 Found\nLocation: /loop\n\n"},
      {"/file", "HTTP/1.1 302 Found\nLocation: file:///etc/passwd\n\n"},
      {"/noise", std::string(1000, '\x7f')},
  };
  QtWeb web(QStringLiteral("Tarnwell/4.0.42"));
  const auto read = [&](const char* path) { return web.OpenUrl(site.At(path), 1000); };
  EXPECT_EQ(read("/page"), "4.0.42");
  EXPECT_TRUE(site.Request.contains("User-Agent: Tarnwell/4.0.42\r\n"));
  EXPECT_EQ(read("/moved"), "4.0.42");
  EXPECT_FALSE(site.Request.contains("Cookie"));
  EXPECT_EQ(read("/large"), std::string(1000, 'x'));
  for (const char* path : {"/empty", "/missing", "/cut", "/loop", "/file", "/noise"}) {
    EXPECT_EQ(read(path), "") << path;
  }
  for (const char* address : {"file:///etc/passwd", "ftp://127.0.0.1/", "no address", ""}) {
    EXPECT_EQ(web.OpenUrl(address, 1000), "") << address;
  }
  // Messages pass meanwhile, and it can be given up.
  site.Requests = 0;
  std::string second = "not asked";
  QTimer user;
  QObject::connect(&user, &QTimer::timeout, &user, [&] {
    if (site.Requests == 0) return;
    second = read("/page");
    web.GiveUp();
  });
  user.start(1);
  EXPECT_EQ(read("/never"), "");
  EXPECT_EQ(second, "");
}

}  // namespace
}  // namespace tarnwell::ui
