// Paths of files as Qt's own classes take and give them.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tarnwell::ui {

// To open a file by, never to show: see Convert.h for that. A path that Qt's coding of names cannot
// tell leads to no file.
QString ToQtPath(std::string_view path);
std::string FromQtPath(const QString& path);

}  // namespace tarnwell::ui
