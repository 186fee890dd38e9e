#include "app/WindowsIcons.h"

#include <QDir>
#include <QImage>
#include <QPixmap>

#include "platform/win32/api/Windows.h"
// The shell's headers need what stands above.
#include <shellapi.h>

namespace tarnwell::app {
namespace {

constexpr UINT IconSizes[] = {SHGFI_SMALLICON, SHGFI_LARGEICON};

void AddPicture(QIcon& icon, HICON handle) {
  if (handle == nullptr) return;
  const QImage image = QImage::fromHICON(handle);
  DestroyIcon(handle);
  if (!image.isNull()) icon.addPixmap(QPixmap::fromImage(image));
}

QIcon IconOf(const QString& path, DWORD attributes, UINT flags) {
  QIcon icon;
  for (const UINT size : IconSizes) {
    SHFILEINFOW found{};
    if (SHGetFileInfoW(reinterpret_cast<const wchar_t*>(path.utf16()), attributes, &found,
                       sizeof found, SHGFI_ICON | size | flags) != 0) {
      AddPicture(icon, found.hIcon);
    }
  }
  return icon;
}

}  // namespace

ui::SystemIcons ShellIcons() {
  // By the name alone; nothing of it is on a disk.
  const auto byName = [](const QString& name, DWORD attributes, UINT flags = 0) {
    return IconOf(name, attributes, SHGFI_USEFILEATTRIBUTES | flags);
  };
  ui::SystemIcons icons;
  icons.Drive = IconOf(QDir::toNativeSeparators(QDir::rootPath()), 0, 0);
  icons.Folder = byName(QStringLiteral("folder"), FILE_ATTRIBUTE_DIRECTORY);
  icons.OpenFolder = byName(QStringLiteral("folder"), FILE_ATTRIBUTE_DIRECTORY, SHGFI_OPENICON);
  icons.File = byName(QStringLiteral("file"), FILE_ATTRIBUTE_NORMAL);
  if (icons.Folder.isNull() || icons.File.isNull() || icons.Drive.isNull()) return {};
  icons.OfExtension = [byName](const QString& extension) {
    return byName(QStringLiteral("x.") + extension, FILE_ATTRIBUTE_NORMAL);
  };
  return icons;
}

}  // namespace tarnwell::app
