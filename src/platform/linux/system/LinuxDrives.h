// Drives on Linux: mounted volumes, named by their mount points.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/FileSystem.h"

namespace tarnwell::platform {

// Reads the table of mounts at each call and tells of its changes from the default main context of
// GLib. Which mounts count is up to DriveRules.
class LinuxDrives : public Drives {
 public:
  LinuxDrives();
  ~LinuxDrives() override;
  std::vector<Drive> List() const override;
  std::string HomeFolder() const override;
  std::string DriveOf(const std::string& path) const override;
  void OnChange(std::function<void()> changed) override;

 private:
  class Monitor;
  std::unique_ptr<Monitor> monitor_;
};

}  // namespace tarnwell::platform
