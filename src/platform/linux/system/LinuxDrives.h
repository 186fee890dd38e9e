// Drives on Linux: mounted volumes, named by their mount points.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/linux/network/DesktopMounts.h"
#include "platform/linux/network/SystemMounts.h"
#include "platform/linux/posix/MountNotices.h"

namespace tarnwell::platform {

// Reads the table of mounts at each call, adds what the desktop has mounted, and tells of changes
// from the default main context of GLib. Which mounts count is up to DriveRules.
class LinuxDrives : public Drives {
 public:
  // The mounts of the desktop, which are asked for with the first OnChange, must outlive this.
  explicit LinuxDrives(DesktopMounts& desktop);
  std::vector<Drive> List() const override;
  std::string HomeFolder() const override;
  std::string DriveOf(const std::string& path) const override;
  void OnChange(std::function<void()> changed) override;

 private:
  std::vector<Mount> Mounts() const;

  DesktopMounts& desktop_;
  std::shared_ptr<void> ofDesktop_;
  std::unique_ptr<MountNotices> ofSystem_;
};

}  // namespace tarnwell::platform
