#include "ui/toolkit/IconSource.h"

#include <QFile>
#include <QMimeType>
#include <utility>

#include "base/PathSyntax.h"
#include "lister/rows/CellText.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/FilePath.h"
#include "ui/toolkit/KnownFolders.h"

namespace tarnwell::ui {
namespace {

struct OwnType {
  std::string_view Icon;
  std::string_view Extensions;  // between blanks
};

// For desktops whose theme has no icons by type.
constexpr OwnType OwnTypes[] = {
    {"file-document", " doc docx odt ott rtf pages tex epub "},
    {"file-sheet", " xls xlsx ods ots csv tsv "},
    {"file-pdf", " pdf ps djvu "},
    {"file-image", " png jpg jpeg gif bmp svg svgz webp tif tiff ico heic avif xcf psd odg raw "},
    {"file-audio", " mp3 ogg oga opus flac wav m4a aac wma mid midi "},
    {"file-video", " mp4 mkv webm avi mov mpg mpeg m4v wmv ogv flv "},
    {"file-archive", " zip gz tgz bz2 xz zst tar 7z rar deb rpm jar iso lz4 lzma "},
    {"file-code",
     " c cc cpp cxx h hh hpp py js ts java rs go rb pl php sh bash lua html htm css xml json yaml "
     "yml toml sql cmake "},
};

// Of pictures that stand in for a drawing, in pixels.
constexpr int DrawnSizes[] = {16, 24, 32, 48, 64, 128};

// Names can be made up without end; no more are worth remembering.
constexpr qsizetype MostExtensions = 2000;

// In small letters.
QByteArray TypeOf(std::string_view path) {
  const std::string_view extension =
      lister::ExtensionOf(base::PathSyntax::Native().LastComponent(path));
  return QByteArray(extension.data(), static_cast<qsizetype>(extension.size())).toLower();
}

}  // namespace

QIcon IconSource::Own(std::string_view name) const {
  QIcon icon;
  if (dataFolder_.isEmpty()) return icon;
  const QString path = QStringLiteral("%1/icons/%2").arg(dataFolder_, ToQString(name));
  const QString drawing = path + QStringLiteral(".svg");
  if (QFile::exists(drawing)) return QIcon(drawing);
  for (const int size : DrawnSizes) {
    const QString picture = QStringLiteral("%1-%2.png").arg(path).arg(size);
    if (!QFile::exists(picture)) break;
    icon.addFile(picture, QSize(size, size));
  }
  return icon;
}

IconSource::IconSource(const QString& dataFolder, SystemIcons system)
    : dataFolder_(dataFolder), system_(std::move(system)) {
  if (system_.OfExtension) {
    drive_ = system_.Drive;
    folder_ = system_.Folder;
    openFolder_ = system_.OpenFolder;
    file_ = system_.File;
    return;
  }
  drive_ = QIcon::fromTheme(QStringLiteral("drive-harddisk"), Own("drive"));
  // Icons that stand side by side come from one hand.
  themedFolders_ = QIcon::hasThemeIcon(QStringLiteral("folder")) &&
                   QIcon::hasThemeIcon(QStringLiteral("folder-open"));
  themed_ = themedFolders_ && QIcon::hasThemeIcon(QStringLiteral("text-x-generic")) &&
            QIcon::hasThemeIcon(QStringLiteral("image-x-generic"));
  folder_ = OfFolders(QStringLiteral("folder"));
  openFolder_ = OfFolders(QStringLiteral("folder-open"));
  file_ = themed_ ? QIcon::fromTheme(QStringLiteral("text-x-generic")) : Own("file");
}

// Where the theme has no icon of that name there is none, rather than one in another hand.
QIcon IconSource::OfFolders(const QString& name) const {
  if (!themedFolders_) return Own(name.toStdString());
  return QIcon::hasThemeIcon(name) ? QIcon::fromTheme(name) : QIcon();
}

QIcon IconSource::KnownFolder(const std::string& path) const {
  if (knownFolders_.isEmpty()) {
    const QHash<std::string, QString> names = IconsOfKnownFolders();
    for (auto each = names.cbegin(); each != names.cend(); ++each) {
      knownFolders_[each.key()] = OfFolders(each.value());
    }
  }
  return knownFolders_.value(path);
}

QIcon IconSource::Named(const std::string& name) const {
  if (name.empty()) return {};
  if (base::PathSyntax::Native().IsWhole(name)) return QIcon(ToQtPath(name));
  const QIcon own = Own(name);
  return own.isNull() ? QIcon::fromTheme(ToQString(name)) : own;
}

QIcon IconSource::File(std::string_view path) const {
  const QByteArray extension = TypeOf(path);
  if (extension.isEmpty()) return file_;
  const auto known = byExtension_.constFind(extension);
  if (known != byExtension_.constEnd()) return *known;
  if (byExtension_.size() >= MostExtensions) byExtension_.clear();
  return *byExtension_.insert(extension, FindFile(extension));
}

QIcon IconSource::FindFile(const QByteArray& extension) const {
  if (system_.OfExtension) {
    const QIcon icon = system_.OfExtension(QString::fromUtf8(extension));
    return icon.isNull() ? file_ : icon;
  }
  if (!themed_) {
    const std::string word = ' ' + extension.toStdString() + ' ';
    for (const OwnType& type : OwnTypes) {
      if (type.Extensions.find(word) != std::string_view::npos) return Own(type.Icon);
    }
    return file_;
  }
  const QMimeType type = types_.mimeTypeForFile(QStringLiteral("x.") + QString::fromUtf8(extension),
                                                QMimeDatabase::MatchExtension);
  for (const QString& candidate : {type.iconName(), type.genericIconName()}) {
    if (QIcon::hasThemeIcon(candidate)) return QIcon::fromTheme(candidate);
  }
  return file_;
}

}  // namespace tarnwell::ui
