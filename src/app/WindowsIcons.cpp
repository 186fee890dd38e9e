#include "app/WindowsIcons.h"

#include <QImage>
#include <QPixmap>

#include "platform/win32/api/Windows.h"
// The shell's headers need what stands above.
#include <shellapi.h>

namespace tarnwell::app {
namespace {

constexpr DWORD IconSizes[] = {SHGFI_SMALLICON, SHGFI_LARGEICON};

void AddPicture(QIcon& icon, HICON handle) {
  if (handle == nullptr) return;
  const QImage image = QImage::fromHICON(handle);
  DestroyIcon(handle);
  if (!image.isNull()) icon.addPixmap(QPixmap::fromImage(image));
}

// By the name alone; nothing of it is on a disk.
QIcon IconByName(const QString& name, DWORD attributes, DWORD flags) {
  QIcon icon;
  for (const DWORD size : IconSizes) {
    SHFILEINFOW found{};
    if (SHGetFileInfoW(reinterpret_cast<const wchar_t*>(name.utf16()), attributes, &found,
                       sizeof found, SHGFI_ICON | SHGFI_USEFILEATTRIBUTES | size | flags) != 0) {
      AddPicture(icon, found.hIcon);
    }
  }
  return icon;
}

QIcon StockIcon(SHSTOCKICONID number) {
  QIcon icon;
  for (const DWORD size : IconSizes) {
    SHSTOCKICONINFO found{};
    found.cbSize = sizeof found;
    if (SUCCEEDED(SHGetStockIconInfo(number, SHGSI_ICON | size, &found))) {
      AddPicture(icon, found.hIcon);
    }
  }
  return icon;
}

}  // namespace

ui::SystemIcons ShellIcons() {
  ui::SystemIcons icons;
  icons.Drive = StockIcon(SIID_DRIVEFIXED);
  icons.Folder = IconByName(QStringLiteral("folder"), FILE_ATTRIBUTE_DIRECTORY, 0);
  icons.OpenFolder = IconByName(QStringLiteral("folder"), FILE_ATTRIBUTE_DIRECTORY, SHGFI_OPENICON);
  icons.File = IconByName(QStringLiteral("file"), FILE_ATTRIBUTE_NORMAL, 0);
  if (icons.Folder.isNull() || icons.File.isNull() || icons.Drive.isNull()) return {};
  icons.OfExtension = [](const QString& extension) {
    return IconByName(QStringLiteral("x.") + extension, FILE_ATTRIBUTE_NORMAL, 0);
  };
  return icons;
}

}  // namespace tarnwell::app
