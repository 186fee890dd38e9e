#include "ui/toolkit/FilePath.h"

#include <QDir>
#include <QFile>

#include "base/WideText.h"

namespace tarnwell::ui {

// On Windows QFile's coding of names is an 8-bit code page, and Qt's UTF-8 has no surrogates that
// stand alone, which names there may hold.
QString ToQtPath(std::string_view path) {
#ifdef Q_OS_WIN
  return QString::fromStdU16String(base::ToWide(path));
#else
  return QFile::decodeName(QByteArray(path.data(), static_cast<qsizetype>(path.size())));
#endif
}

std::string FromQtPath(const QString& path) {
  const QString native = QDir::toNativeSeparators(path);
#ifdef Q_OS_WIN
  return base::FromWide(native.toStdU16String());
#else
  return QFile::encodeName(native).toStdString();
#endif
}

}  // namespace tarnwell::ui
