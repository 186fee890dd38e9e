// What the program runs on and where its own files are.
#pragma once

#include <string>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/SystemInfo.h"

namespace tarnwell::platform {

// What decides where the program's files are. Any of these may be empty for "not known".
struct ProgramPlaces {
  std::string ExecutableFolder;
  std::string TarnwellHome;  // %TARNWELL_HOME%
  std::string LocalAppData;  // FOLDERID_LocalAppData

  // The places of the running process.
  static ProgramPlaces OfProcess();
};

// Finds the program's folder once, when it is made: %TARNWELL_HOME%, else the executable's own
// folder when that is writable and holds "skins" (the program is portable then), else "Tarnwell" in
// the user's local application data. The first and the last are made where they are missing, and
// given the skins that came with the program where they hold no "skins". Each start adds the
// animation and the tips to any of the three where they are missing, and renews skins that are as
// an earlier release brought them. What cannot be made or copied is left; the program goes on
// without.
class WindowsSystemInfo : public SystemInfo {
 public:
  // The files must outlive this.
  WindowsSystemInfo(const ProgramPlaces& places, FileSystem& files);
  bool IsWindows95() const override { return false; }
  bool IsWindows98() const override { return false; }
  bool IsWindowsMe() const override { return false; }
  std::string ProgramFolder() const override { return programFolder_; }
  base::Status FolderTrouble() const override { return folderTrouble_; }
  std::string FolderOf(std::string_view file) const override;
  std::string SkinFolder() const override;
  std::string GuidePage() const override { return guidePage_; }
  // A folder in use as the current one cannot be deleted by anyone.
  void SetCurrentFolder(const std::string& folder) override;
  // The folder of the files that came with the program (icons, skins): "data" beside the
  // executable, the executable's own folder, or "data" of the sources; empty if there is none.
  std::string DataFolder() const { return dataFolder_; }

 private:
  FileSystem& files_;
  std::string dataFolder_;
  std::string guidePage_;
  std::string programFolder_;
  base::Status folderTrouble_;
};

}  // namespace tarnwell::platform
