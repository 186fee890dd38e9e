// The icons of drives, folders and files: those of the user's icon theme, else the program's own.
#pragma once

#include <QHash>
#include <QIcon>
#include <QMimeDatabase>
#include <QString>

namespace tarnwell::ui {

class IconSource {
 public:
  // `dataFolder` holds the program's own icons as icons/folder.svg, icons/folder-open.svg,
  // icons/file.svg and icons/drive.svg.
  explicit IconSource(const QString& dataFolder);

  const QIcon& Drive() const { return drive_; }
  const QIcon& Folder() const { return folder_; }
  const QIcon& OpenFolder() const { return openFolder_; }
  const QIcon& AnyFile() const { return file_; }
  // By the type that the name at the end of the path tells; the file is not read.
  QIcon File(const QString& path) const;

 private:
  QIcon drive_;
  QIcon folder_;
  QIcon openFolder_;
  QIcon file_;
  QMimeDatabase types_;
  mutable QHash<QString, QIcon> byType_;
};

}  // namespace tarnwell::ui
