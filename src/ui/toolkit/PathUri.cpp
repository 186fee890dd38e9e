#include "ui/toolkit/PathUri.h"

#include <QString>
#include <QSysInfo>
#include <algorithm>

namespace tarnwell::ui {
namespace {

constexpr QByteArrayView FileScheme("file:");

int HexDigit(char letter) {
  if (letter >= '0' && letter <= '9') return letter - '0';
  const char lower = static_cast<char>(letter | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// A per cent sign that begins no escape stands for itself.
std::string Unescape(QByteArrayView text) {
  std::string bytes;
  for (qsizetype at = 0; at < text.size(); ++at) {
    const bool fits = text[at] == '%' && at + 2 < text.size();
    const int high = fits ? HexDigit(text[at + 1]) : -1;
    const int low = fits ? HexDigit(text[at + 2]) : -1;
    if (high < 0 || low < 0) {
      bytes += text[at];
    } else {
      bytes += static_cast<char>(high * 16 + low);
      at += 2;
    }
  }
  return bytes;
}

bool IsThisComputer(QByteArrayView host) {
  return host.isEmpty() || host.compare("localhost", Qt::CaseInsensitive) == 0 ||
         host.compare(QSysInfo::machineHostName().toUtf8(), Qt::CaseInsensitive) == 0;
}

// Without "." and "..", which a list of files has no use for.
std::string Resolved(std::string_view path) {
  std::string plain;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find('/'), path.size());
    const std::string_view part = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (part == "..") {
      plain.resize(plain.empty() ? 0 : plain.rfind('/'));
    } else if (!part.empty() && part != ".") {
      (plain += '/') += part;
    }
  }
  return plain.empty() ? "/" : plain;
}

}  // namespace

QByteArray UriOfPath(std::string_view path, const base::PathSyntax& syntax) {
  std::string text(path);
  std::ranges::replace(text, syntax.Separator, '/');
  // A network path begins with its server, a drive has no separator ahead of it.
  const char* start = "file:///";
  if (text.starts_with('/')) start = syntax.FindNetworkStart(path) == 0 ? "file:" : "file://";
  return start +
         QByteArray::fromStdString(text).toPercentEncoding(syntax.RootMark.empty() ? "/" : "/:");
}

std::string PathOfUri(QByteArrayView uri, const base::PathSyntax& syntax) {
  if (uri.first(std::min(uri.size(), FileScheme.size())).compare(FileScheme, Qt::CaseInsensitive) !=
      0) {
    return {};
  }
  QByteArrayView rest = uri.sliced(FileScheme.size());
  std::string server;
  if (rest.startsWith("//")) {
    rest = rest.sliced(2);
    const qsizetype slash = rest.indexOf('/');
    if (slash < 0) return {};
    if (const QByteArrayView host = rest.first(slash); !IsThisComputer(host)) {
      if (syntax.NetworkMark.empty()) return {};
      server = std::string(syntax.NetworkMark) + host.toByteArray().toStdString();
    }
    rest = rest.sliced(slash);
  }
  std::string path = Unescape(rest);
  if (path.find('\0') != std::string::npos) return {};
  std::ranges::replace(path, syntax.Separator, '/');
  if (!path.starts_with('/')) return {};
  path = Resolved(path);
  std::ranges::replace(path, '/', syntax.Separator);
  if (!server.empty()) return server + path;
  if (!syntax.RootMark.empty()) path.erase(0, 1);
  // The root of a drive has lost its end.
  if (std::string root = syntax.AddSeparator(path); syntax.IsDriveRoot(root)) return root;
  return syntax.IsWhole(path) ? path : "";
}

}  // namespace tarnwell::ui
