#include "platform/linux/system/LinuxDrives.h"

#include <utility>

#include "platform/linux/files/HomeFolder.h"
#include "platform/linux/network/SystemMounts.h"
#include "platform/linux/system/DriveRules.h"

namespace tarnwell::platform {

LinuxDrives::LinuxDrives(DesktopMounts& desktop) : desktop_(desktop) {}

std::vector<Mount> LinuxDrives::Mounts() const {
  std::vector<Mount> mounts = ReadSystemMounts();
  for (const DesktopMount& each : desktop_.List()) {
    if (each.Path.empty()) continue;
    mounts.push_back({.Path = each.Path,
                      .Label = each.Name,
                      .Source = each.Address,
                      .Type = {},
                      .Internal = false,
                      .Shown = true});
  }
  return mounts;
}

std::vector<Drive> LinuxDrives::List() const {
  return DrivesOf(HomeFolder(), Mounts());
}

std::string LinuxDrives::HomeFolder() const {
  return FindHomeFolder();
}

std::string LinuxDrives::DriveOf(const std::string& path) const {
  return DriveHolding(path, HomeFolder(), Mounts());
}

void LinuxDrives::OnChange(std::function<void()> changed) {
  ofDesktop_.reset();
  ofSystem_.reset();
  if (!changed) return;
  ofDesktop_ = desktop_.Listen(changed);
  ofSystem_ = std::make_unique<MountNotices>(std::move(changed));
}

}  // namespace tarnwell::platform
