#include "ui/toolkit/FileUris.h"

#include "base/ItemList.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/PathUri.h"

namespace tarnwell::ui {
namespace {

constexpr QLatin1String UriList("text/uri-list");
// A line with "copy" or "cut", then the addresses.
constexpr QLatin1String CopiedFiles("x-special/gnome-copied-files");
constexpr QLatin1String CutMark("application/x-kde-cutselection");  // "1" for a cut
constexpr QLatin1String PlainText("text/plain;charset=utf-8");

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

}  // namespace tarnwell::ui
