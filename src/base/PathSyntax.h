// The rules of paths on one platform. The core asks here and never writes a separator itself.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarnwell::base {

struct PathSyntax {
  char Separator;
  // What a drive is called when nothing better is known ("C", "/").
  std::string_view DefaultDrive;
  // Mark at the end of every drive root (":\"). Empty where roots are known by name alone.
  std::string_view RootMark;
  // Mark at the start of a network path ("\\"). Empty where the syntax knows none.
  std::string_view NetworkMark;
  bool CaseSensitive;
  // What no name holds besides the separator and NUL. Where there is such a rule, control
  // characters, a dot or a blank at the end and the names of devices are none either.
  std::string_view ForbiddenInNames;

  static const PathSyntax& Posix();    // /a/b
  static const PathSyntax& Windows();  // C:\a\b and \\server\share
  static const PathSyntax& Native();   // of the platform that this is compiled for

  // Whether an item may be called so, as far as the text alone can tell.
  bool IsName(std::string_view name) const;
  // Whether the platform keeps the name for a device, with any extension: "NUL", "com1.txt".
  bool IsNameOfDevice(std::string_view name) const;
  // True for the root of a drive as far as the text alone can tell: "C:\" or "/".
  bool IsDriveRoot(std::string_view path) const;
  // Whether the path begins at a root, of a drive or of the network.
  bool IsWhole(std::string_view path) const;
  // Position of the first network mark, or npos.
  std::size_t FindNetworkStart(std::string_view path) const;
  // The path with one separator at its end.
  std::string AddSeparator(std::string_view path) const;
  // The path less one separator at its end; a path without one, or empty, comes back unchanged.
  std::string RemoveRightSlash(std::string_view path) const;
  // The path up to and with its last separator; empty if it has none.
  std::string GetFolderPath(std::string_view path) const;
  // A path with a network mark in it is cut to start there, and is empty unless something follows
  // the name of the server and a separator; any other path comes back unchanged.
  std::string ValidatePath(std::string_view path) const;
  // What follows the last separator, one separator at the end of the path left out of account.
  std::string_view LastComponent(std::string_view path) const;
  // The path of an item: folder and name with one separator between them; with an empty folder the
  // name alone.
  std::string Join(std::string_view folder, std::string_view name) const;
  // The folder that holds the item, without a separator at its end unless it is a root; a root, or
  // a network server, is its own parent. A name alone has none: empty. No look at the disk:
  // "/a/.." has the parent "/a".
  std::string ParentOf(std::string_view path) const;
  // The root folder of a drive: "C" gives "C:\"; "/media/disk" and "\\nas\photos" are their own.
  std::string DriveRoot(std::string_view drive) const;
  // The path as it is compared: two paths that mean the same item have the same key.
  std::string Key(std::string_view path) const;
  // The same behind what `key` holds: one text serves for many keys.
  void AppendKey(std::string_view path, std::string& key) const;
  // Whether two paths or names mean the same item; a separator at the end does not count.
  bool Same(std::string_view left, std::string_view right) const;
  // Whether the path is the folder itself or lies somewhere below it.
  bool IsWithin(std::string_view path, std::string_view folder) const;
};

}  // namespace tarnwell::base
