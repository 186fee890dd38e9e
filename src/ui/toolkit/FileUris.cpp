#include "ui/toolkit/FileUris.h"

#include <QSysInfo>
#include <algorithm>

#include "base/ItemList.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {
namespace {

constexpr QLatin1String UriList("text/uri-list");
// A line with "copy" or "cut", then the addresses.
constexpr QLatin1String CopiedFiles("x-special/gnome-copied-files");
constexpr QLatin1String CutMark("application/x-kde-cutselection");  // "1" for a cut
constexpr QLatin1String PlainText("text/plain;charset=utf-8");

constexpr QByteArrayView FileScheme("file:");

QByteArray JoinUris(const base::ItemList& paths, const char* between) {
  QByteArray list;
  for (const std::string_view path : paths) {
    const auto bytes = QByteArray::fromRawData(path.data(), static_cast<qsizetype>(path.size()));
    if (!list.isEmpty()) list += between;
    list += "file://" + bytes.toPercentEncoding("/");
  }
  return list;
}

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

// Adds what the lines name; false if there are no addresses among them.
bool TakeUris(QByteArray lines, platform::ClipboardFiles& files) {
  const int foreign = files.Foreign;
  while (lines.endsWith('\0')) lines.chop(1);  // some programs hand over the end of a C string
  for (const QByteArray& each : lines.replace('\r', '\n').split('\n')) {
    const QByteArray line = each.trimmed();
    if (line.isEmpty() || line.startsWith('#')) continue;
    const std::string path = PathOfUri(line);
    if (path.empty()) {
      ++files.Foreign;
    } else {
      base::ItemList::Add(files.Items, path);
    }
  }
  return !files.Items.empty() || files.Foreign > foreign;
}

}  // namespace

std::unique_ptr<QMimeData> MimeDataOf(std::string_view items) {
  auto data = std::make_unique<QMimeData>();
  data->setData(UriList, JoinUris(base::ItemList(items), "\r\n") + "\r\n");
  return data;
}

std::unique_ptr<QMimeData> ClipboardDataOf(const platform::ClipboardFiles& files) {
  const base::ItemList paths(files.Items);
  std::unique_ptr<QMimeData> data = MimeDataOf(files.Items);
  data->setData(CopiedFiles, (files.IsCut ? "cut\n" : "copy\n") + JoinUris(paths, "\n"));
  if (files.IsCut) data->setData(CutMark, "1");
  std::string text;
  for (const std::string_view path : paths) (text += text.empty() ? "" : "\n") += path;
  // Text has to be valid, whatever the names are; under both names by which programs ask for it.
  const QString shown = ToQString(text);
  data->setText(shown);
  data->setData(PlainText, shown.toUtf8());
  return data;
}

bool HasFiles(const QMimeData& data) {
  return data.hasFormat(CopiedFiles) || data.hasFormat(UriList);
}

platform::ClipboardFiles FilesOf(const QMimeData& data) {
  platform::ClipboardFiles files;
  if (data.hasFormat(CopiedFiles)) {
    const QByteArray marked = data.data(CopiedFiles);
    const qsizetype end = marked.indexOf('\n');
    const QByteArray word = marked.left(end).trimmed();
    files.IsCut = word == "cut";
    if ((files.IsCut || word == "copy") && end >= 0 && TakeUris(marked.mid(end + 1), files)) {
      return files;
    }
  }
  files.IsCut = data.hasFormat(CutMark) && data.data(CutMark).startsWith('1');
  if (data.hasFormat(UriList)) TakeUris(data.data(UriList), files);
  return files;
}

std::string PathOfUri(QByteArrayView uri) {
  if (uri.first(std::min(uri.size(), FileScheme.size())).compare(FileScheme, Qt::CaseInsensitive) !=
      0) {
    return {};
  }
  QByteArrayView rest = uri.sliced(FileScheme.size());
  if (rest.startsWith("//")) {
    rest = rest.sliced(2);
    const qsizetype slash = rest.indexOf('/');
    if (slash < 0 || !IsThisComputer(rest.first(slash))) return {};
    rest = rest.sliced(slash);
  }
  const std::string path = Unescape(rest);
  if (!path.starts_with('/') || path.find('\0') != std::string::npos) return {};
  return Resolved(path);
}

}  // namespace tarnwell::ui
