#include "ui/toolkit/KnownFolders.h"

#include <QStandardPaths>

#include "ui/toolkit/FilePath.h"

namespace tarnwell::ui {
namespace {

struct KnownFolder {
  QStandardPaths::StandardLocation Location;
  const char* Below;
  const char* Icon;
};

// What the user has not set up may be the home folder, which therefore comes last.
constexpr KnownFolder KnownFolders[] = {
    {QStandardPaths::DesktopLocation, "", "user-desktop"},
    {QStandardPaths::DocumentsLocation, "", "folder-documents"},
    {QStandardPaths::DownloadLocation, "", "folder-download"},
    {QStandardPaths::MusicLocation, "", "folder-music"},
    {QStandardPaths::PicturesLocation, "", "folder-pictures"},
    {QStandardPaths::MoviesLocation, "", "folder-videos"},
    {QStandardPaths::TemplatesLocation, "", "folder-templates"},
    {QStandardPaths::PublicShareLocation, "", "folder-publicshare"},
    {QStandardPaths::GenericDataLocation, "/Trash", "user-trash"},
    {QStandardPaths::GenericDataLocation, "/Trash/files", "user-trash"},
    {QStandardPaths::HomeLocation, "", "user-home"},
};

}  // namespace

QHash<std::string, QString> IconsOfKnownFolders() {
  QHash<std::string, QString> icons;
  for (const KnownFolder& folder : KnownFolders) {
    const QString path = QStandardPaths::writableLocation(folder.Location);
    if (path.isEmpty()) continue;
    icons[FromQtPath(path) + folder.Below] = QLatin1String(folder.Icon);
  }
  return icons;
}

}  // namespace tarnwell::ui
