// The folders that a desktop keeps for one purpose each.
#pragma once

#include <QHash>
#include <QString>
#include <string>

namespace tarnwell::ui {

// Names of the icons, as the icon naming specification has them, by the bytes of the folders' whole
// paths. The folders are those of the user's XDG user directories, the home folder, and the trash
// of the home folder's volume.
QHash<std::string, QString> IconsOfKnownFolders();

}  // namespace tarnwell::ui
