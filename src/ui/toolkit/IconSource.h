// The icons of drives, folders and files: those of the user's icon theme, else the program's own.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QIcon>
#include <QMimeDatabase>
#include <QString>
#include <functional>
#include <string>
#include <string_view>

namespace tarnwell::ui {

// The icons of a system that shows its own and has no themes.
struct SystemIcons {
  QIcon Drive;
  QIcon Folder;
  QIcon OpenFolder;
  QIcon File;
  // Of files with that extension, in small letters and without its dot; may be empty.
  std::function<QIcon(const QString& extension)> OfExtension;
};

class IconSource {
 public:
  // `dataFolder` holds the program's own pictures as icons/<name>.svg, or drawn from that in
  // several sizes as icons/<name>-<pixels>.png; empty where there is none.
  explicit IconSource(const QString& dataFolder, SystemIcons system = {});

  // The program's own picture; empty if there is none of that name.
  QIcon Own(std::string_view name) const;
  // The picture in the file of that whole path, else the program's own of that name, else the
  // theme's; empty if there is none.
  QIcon Named(const std::string& name) const;

  const QIcon& Drive() const { return drive_; }
  const QIcon& Folder() const { return folder_; }
  const QIcon& OpenFolder() const { return openFolder_; }
  // Of a folder that has an icon of its own: what the desktop keeps it for. Empty for any other. By
  // the bytes of its whole path; nothing is read but, once, which folders these are.
  QIcon KnownFolder(const std::string& path) const;
  const QIcon& AnyFile() const { return file_; }
  // By the extension of the name at the end of the path, in bytes; the file is not read.
  QIcon File(std::string_view path) const;

 private:
  QIcon OfFolders(const QString& name) const;
  QIcon FindFile(const QByteArray& extension) const;

  QString dataFolder_;
  SystemIcons system_;
  QIcon drive_;
  QIcon folder_;
  QIcon openFolder_;
  QIcon file_;
  bool themedFolders_ = false;  // the pictures of folders are the theme's
  bool themed_ = false;         // the theme tells types of files apart
  QMimeDatabase types_;         // read when it is first asked, which takes time and memory
  mutable QHash<QByteArray, QIcon> byExtension_;
  mutable QHash<std::string, QIcon> knownFolders_;
};

}  // namespace tarnwell::ui
