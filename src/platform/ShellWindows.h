// Port: windows that the shell of the system has, where it has them. Elsewhere the program shows
// windows of its own, and nothing answers this.
//
// All of them belong to the main window. What the user does there, and what goes wrong, they tell
// by themselves.
#pragma once

#include <string>
#include <vector>

namespace tarnwell::platform {

class ShellWindows {
 public:
  virtual ~ShellWindows() = default;

  // What lies in the trash of all volumes, in a window that lives on by itself.
  virtual void OpenRecycleBin() = 0;
  // Deletes what lies in the trash of the volume that holds the path, or of all where it is empty,
  // once the user has agreed. Returns when that is done.
  virtual void EmptyRecycleBin(const std::string& rootPath) = 0;
  // These return when the dialog is closed.
  virtual void MapNetworkDrive() = 0;
  virtual void DisconnectNetworkDrive() = 0;
  // The properties of the items, which may lie in several folders, in a window that lives on by
  // itself. Full paths, at least one. Gives 33 or more where the window has opened, and the
  // system's number for what failed else; that is told nowhere else.
  virtual int ShowProperties(const std::vector<std::string>& paths) = 0;
};

}  // namespace tarnwell::platform
