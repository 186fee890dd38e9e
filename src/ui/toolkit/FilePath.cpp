#include "ui/toolkit/FilePath.h"

#include <QDir>
#include <QFile>

namespace tarnwell::ui {

// On Windows QFile's coding of names is an 8-bit code page, while paths are UTF-8 in this program.
QString ToQtPath(std::string_view path) {
#ifdef Q_OS_WIN
  return QString::fromUtf8(path.data(), static_cast<qsizetype>(path.size()));
#else
  return QFile::decodeName(QByteArray(path.data(), static_cast<qsizetype>(path.size())));
#endif
}

std::string FromQtPath(const QString& path) {
  const QString native = QDir::toNativeSeparators(path);
#ifdef Q_OS_WIN
  return native.toStdString();
#else
  return QFile::encodeName(native).toStdString();
#endif
}

}  // namespace tarnwell::ui
