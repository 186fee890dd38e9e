// The Recycle Bin, network drives and properties by the shell's own windows.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/OwnerWindow.h"
#include "platform/ShellWindows.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// Needs a ComThread with a loop of messages.
class WindowsShellWindows : public ShellWindows {
 public:
  explicit WindowsShellWindows(OwnerWindow owner) : owner_(std::move(owner)) {}

  void OpenRecycleBin() override;
  void EmptyRecycleBin(const std::string& rootPath) override;
  void MapNetworkDrive() override;
  void DisconnectNetworkDrive() override;
  int ShowProperties(const std::vector<std::string>& paths) override;

 private:
  HWND Owner() const;

  const OwnerWindow owner_;
};

}  // namespace tarnwell::platform
