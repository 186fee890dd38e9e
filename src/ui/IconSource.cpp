#include "ui/IconSource.h"

#include <QFile>
#include <QMimeType>

#include "ui/Convert.h"

namespace tarnwell::ui {

QIcon IconSource::Own(std::string_view name) const {
  const QString path = QStringLiteral("%1/icons/%2.svg").arg(dataFolder_, ToQString(name));
  return !dataFolder_.isEmpty() && QFile::exists(path) ? QIcon(path) : QIcon();
}

IconSource::IconSource(const QString& dataFolder) : dataFolder_(dataFolder) {
  drive_ = QIcon::fromTheme(QStringLiteral("drive-harddisk"), Own("drive"));
  file_ = QIcon::fromTheme(QStringLiteral("text-x-generic"), Own("file"));
  // Closed and open folder stand side by side, so they come from one hand.
  const bool themed = QIcon::hasThemeIcon(QStringLiteral("folder")) &&
                      QIcon::hasThemeIcon(QStringLiteral("folder-open"));
  folder_ = themed ? QIcon::fromTheme(QStringLiteral("folder")) : Own("folder");
  openFolder_ = themed ? QIcon::fromTheme(QStringLiteral("folder-open")) : Own("folder-open");
}

QIcon IconSource::File(const QString& path) const {
  const QMimeType type = types_.mimeTypeForFile(path, QMimeDatabase::MatchExtension);
  const auto known = byType_.constFind(type.name());
  if (known != byType_.constEnd()) return *known;
  QIcon icon = file_;
  for (const QString& candidate : {type.iconName(), type.genericIconName()}) {
    if (!QIcon::hasThemeIcon(candidate)) continue;
    icon = QIcon::fromTheme(candidate);
    break;
  }
  byType_.insert(type.name(), icon);
  return icon;
}

}  // namespace tarnwell::ui
