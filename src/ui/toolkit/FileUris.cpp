#include "ui/toolkit/FileUris.h"

#include <QDir>
#include <QUrl>

#include "base/ItemList.h"
#include "base/PathSyntax.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/FilePath.h"
#include "ui/toolkit/PathUri.h"

namespace tarnwell::ui {
namespace {

constexpr QLatin1String UriList("text/uri-list");
constexpr QLatin1String PlainText("text/plain;charset=utf-8");

#ifdef Q_OS_WIN

// Four bytes, the lowest first, of the DROPEFFECT_ flags; Qt gives formats of Windows such names.
constexpr QLatin1String PreferredEffect(
    "application/x-qt-windows-mime;value=\"Preferred DropEffect\"");
constexpr char CopyEffect = 1, MoveEffect = 2, LinkEffect = 4;

// As addresses of Qt's own, names come through whole that are no UTF-16.
void PutUris(QMimeData& data, const base::ItemList& paths) {
  QList<QUrl> urls;
  for (const std::string_view path : paths) urls.append(QUrl::fromLocalFile(ToQtPath(path)));
  data.setUrls(urls);
}

void PutMark(QMimeData& data, const platform::ClipboardFiles& files) {
  const char effect = files.IsCut ? MoveEffect : static_cast<char>(CopyEffect | LinkEffect);
  data.setData(PreferredEffect, QByteArray(1, effect) + QByteArray(3, '\0'));
}

#else

// A line with "copy" or "cut", then the addresses.
constexpr QLatin1String CopiedFiles("x-special/gnome-copied-files");
constexpr QLatin1String CutMark("application/x-kde-cutselection");  // "1" for a cut

QByteArray JoinUris(const base::ItemList& paths, const char* between) {
  QByteArray list;
  for (const std::string_view path : paths) {
    if (!list.isEmpty()) list += between;
    list += UriOfPath(path);
  }
  return list;
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

void PutUris(QMimeData& data, const base::ItemList& paths) {
  data.setData(UriList, JoinUris(paths, "\r\n") + "\r\n");
}

void PutMark(QMimeData& data, const platform::ClipboardFiles& files) {
  data.setData(CopiedFiles,
               (files.IsCut ? "cut\n" : "copy\n") + JoinUris(base::ItemList(files.Items), "\n"));
  if (files.IsCut) data.setData(CutMark, "1");
}

#endif

}  // namespace

std::unique_ptr<QMimeData> MimeDataOf(std::string_view items) {
  auto data = std::make_unique<QMimeData>();
  PutUris(*data, base::ItemList(items));
  return data;
}

std::unique_ptr<QMimeData> ClipboardDataOf(const platform::ClipboardFiles& files) {
  const base::ItemList paths(files.Items);
  std::unique_ptr<QMimeData> data = MimeDataOf(files.Items);
  PutMark(*data, files);
  std::string text;
  for (const std::string_view path : paths) (text += text.empty() ? "" : "\n") += path;
  // Text has to be valid, whatever the names are; under both names by which programs ask for it.
  const QString shown = ToQString(text);
  data->setText(shown);
  data->setData(PlainText, shown.toUtf8());
  return data;
}

#ifdef Q_OS_WIN

bool HasFiles(const QMimeData& data) {
  return data.hasFormat(UriList);
}

platform::ClipboardFiles FilesOf(const QMimeData& data) {
  platform::ClipboardFiles files;
  const QByteArray effect = data.data(PreferredEffect);
  files.IsCut = !effect.isEmpty() && (effect.front() & MoveEffect) != 0;
  for (const QUrl& url : data.urls()) {
    const std::string path = FromQtPath(QDir::cleanPath(url.toLocalFile()));
    if (base::PathSyntax::Native().IsWhole(path)) {
      base::ItemList::Add(files.Items, path);
    } else {
      ++files.Foreign;
    }
  }
  return files;
}

#else

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

#endif

}  // namespace tarnwell::ui
