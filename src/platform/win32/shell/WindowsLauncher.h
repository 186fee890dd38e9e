// Documents, addresses and programs by the system's shell.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Dialogs.h"
#include "platform/FileSystem.h"
#include "platform/Launcher.h"
#include "platform/NumberForms.h"
#include "platform/OwnerWindow.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

struct LaunchTools {
  const FileSystem& Files;
  platform::Dialogs& Dialogs;
  const NumberForms& Forms;
  std::function<void(const std::string& path)> OpenFolder;  // in the pane in use
  OwnerWindow Owner;
};

// A name without a folder goes by PATH first. What is not there is looked for in the working
// folder, and then left to the shell, which knows more programs by name. A program that was picked
// in a list starts as people expect of it here, without a question but the system's own.
class WindowsLauncher : public Launcher {
 public:
  explicit WindowsLauncher(LaunchTools tools) : tools_(std::move(tools)) {}

  base::Status Execute(const LaunchRequest& request) override;
  base::Status OpenTerminal(const std::string& folder) override;
  std::vector<LaunchFailure> OpenFiles(const std::vector<std::string>& paths,
                                       const std::string& folder) override;

 private:
  base::Status CheckFolder(const std::string& folder) const;
  // A folder to the pane, all else to the shell.
  base::Status OpenItem(const std::string& path, const LaunchRequest& request) const;
  base::Status Start(const std::wstring& file, const LaunchRequest& request) const;
  base::Status OpenFile(const std::string& path, const std::string& folder, bool isOnly) const;
  base::Status Call(std::wstring file, std::wstring parameters, const std::string& folder) const;

  const LaunchTools tools_;
};

}  // namespace tarnwell::platform
