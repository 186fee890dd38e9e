// Port: what the program runs on and where its own files are.
#pragma once

#include <string>
#include <string_view>

#include "base/Status.h"

namespace tarnwell::platform {

class SystemInfo {
 public:
  virtual ~SystemInfo() = default;
  virtual bool IsWindows95() const = 0;
  virtual bool IsWindows98() const = 0;
  virtual bool IsWindowsMe() const = 0;
  // The folder of the program's own files (settings, run marker, skins), without a separator at its
  // end unless it is a root.
  virtual std::string ProgramFolder() const = 0;
  // Why that folder is not there and could not be made; success where it is there.
  virtual base::Status FolderTrouble() const = 0;
  // The folder of a file that came with the program and is read as it runs: the program's folder,
  // or, where that lacks the file and could not be given it, the one of the files that came with
  // it.
  virtual std::string FolderOf(std::string_view file) const = 0;
  // The folder of the skins: that of the program's folder, or, where it has none and could be given
  // none, the one of the files that came with the program.
  virtual std::string SkinFolder() const = 0;
  // The page that the user guide begins with: where it is, or would be if it were there.
  virtual std::string GuidePage() const = 0;
  // Where relative paths start, and programs that are given no folder. One that is not there
  // changes nothing.
  virtual void SetCurrentFolder(const std::string& folder) = 0;
};

}  // namespace tarnwell::platform
