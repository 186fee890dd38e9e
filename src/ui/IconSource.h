// The icons of drives, folders and files: those of the user's icon theme, else the program's own.
#pragma once

#include <QHash>
#include <QIcon>
#include <QMimeDatabase>
#include <QString>
#include <string_view>

namespace tarnwell::ui {

class IconSource {
 public:
  // `dataFolder` holds the program's own pictures as icons/<name>.svg; empty where there is none.
  explicit IconSource(const QString& dataFolder);

  // The program's own picture icons/<name>.svg; empty if there is none of that name.
  QIcon Own(std::string_view name) const;

  const QIcon& Drive() const { return drive_; }
  const QIcon& Folder() const { return folder_; }
  const QIcon& OpenFolder() const { return openFolder_; }
  const QIcon& AnyFile() const { return file_; }
  // By the type that the name at the end of the path tells; the file is not read.
  QIcon File(const QString& path) const;

 private:
  QString dataFolder_;
  QIcon drive_;
  QIcon folder_;
  QIcon openFolder_;
  QIcon file_;
  QMimeDatabase types_;
  mutable QHash<QString, QIcon> byType_;
};

}  // namespace tarnwell::ui
