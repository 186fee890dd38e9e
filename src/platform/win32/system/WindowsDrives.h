// Drives by their letters.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/win32/system/HiddenWindow.h"

namespace tarnwell::platform {

// Asks the system at each call. Nothing here wakes an empty drive or waits for another machine; the
// process has to take a drive without a disk for an error (SetErrorMode). To be used by the thread
// with the loop of messages.
class WindowsDrives : public Drives {
 public:
  // Labels are as people know them: "System (C:)", "photos on nas (P:)"; where a volume has none,
  // its kind stands for it.
  std::vector<Drive> List() const override;
  std::string HomeFolder() const override;
  // A letter, or, for a network path, "\\server\share"; empty where the path has neither.
  std::string DriveOf(const std::string& path) const override;
  void OnChange(std::function<void()> changed) override;

 private:
  std::unique_ptr<HiddenWindow> window_;
};

}  // namespace tarnwell::platform
