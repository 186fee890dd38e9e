// What the program runs on and where its own files are.
#pragma once

#include <string>
#include <string_view>

#include "platform/SystemInfo.h"

namespace tarnwell::platform {

// What decides where the program's files are. Any of these may be empty for "not known".
struct ProgramPlaces {
  std::string ExecutableFolder;
  std::string TarnwellHome;  // $TARNWELL_HOME
  std::string DataHome;      // $XDG_DATA_HOME
  std::string HomeFolder;

  // The places of the running process.
  static ProgramPlaces OfProcess();
};

// Finds the program's folder once, when it is made: $TARNWELL_HOME, else the executable's own
// folder when that is writable and holds "skins" (the program is portable then), else "tarnwell" in
// the user's data folder. The first and the last are made where they are missing, and given the
// skins that came with the program where they hold no "skins". Each start adds the animation and
// the tips to any of the three where they are missing, and renews skins that are as an earlier
// release brought them. What cannot be made or copied is left; the program goes on without. What a
// killed run has left half written in the folder is cleared away.
class LinuxSystemInfo : public SystemInfo {
 public:
  explicit LinuxSystemInfo(const ProgramPlaces& places);
  bool IsWindows95() const override { return false; }
  bool IsWindows98() const override { return false; }
  bool IsWindowsMe() const override { return false; }
  std::string ProgramFolder() const override { return programFolder_; }
  base::Status FolderTrouble() const override { return folderTrouble_; }
  std::string FolderOf(std::string_view file) const override;
  std::string SkinFolder() const override;
  std::string GuidePage() const override { return guidePage_; }
  void SetCurrentFolder(const std::string& folder) override;
  // All that the program keeps for itself has to lie in its folder, which may be on a stick.
  bool IsPortable() const { return isPortable_; }
  // The folder of the files that came with the program (icons, skins): "data" beside the
  // executable, "share/tarnwell" of an installation, or "data" of the sources; empty if there is
  // none.
  std::string DataFolder() const { return dataFolder_; }

 private:
  std::string dataFolder_;
  std::string guidePage_;
  std::string programFolder_;
  base::Status folderTrouble_;
  bool isPortable_ = false;
};

}  // namespace tarnwell::platform
