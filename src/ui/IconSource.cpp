#include "ui/IconSource.h"

#include <QMimeType>

namespace tarnwell::ui {

IconSource::IconSource(const QString& dataFolder) {
  const auto own = [&](const char* name) {
    return QIcon(dataFolder + QStringLiteral("/icons/") + QLatin1String(name) +
                 QStringLiteral(".svg"));
  };
  drive_ = QIcon::fromTheme(QStringLiteral("drive-harddisk"), own("drive"));
  file_ = QIcon::fromTheme(QStringLiteral("text-x-generic"), own("file"));
  // Closed and open folder stand side by side, so they come from one hand.
  const bool themed = QIcon::hasThemeIcon(QStringLiteral("folder")) &&
                      QIcon::hasThemeIcon(QStringLiteral("folder-open"));
  folder_ = themed ? QIcon::fromTheme(QStringLiteral("folder")) : own("folder");
  openFolder_ = themed ? QIcon::fromTheme(QStringLiteral("folder-open")) : own("folder-open");
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
