#include "platform/linux/system/LinuxDrives.h"

#include <gio/gio.h>
#include <gio/gunixmounts.h>

#include <utility>

#include "base/PathSyntax.h"
#include "platform/linux/files/HomeFolder.h"
#include "platform/linux/posix/GioObject.h"
#include "platform/linux/posix/MountNotices.h"
#include "platform/linux/posix/VolumeKind.h"

namespace tarnwell::platform {
namespace {

// GLib looks at what is mounted for people, and so would wait for a server.
bool IsShown(GUnixMountEntry* entry, const Mount& mount, const std::string& home) {
  if (!IsFarType(mount.Type)) return g_unix_mount_guess_should_display(entry) != FALSE;
  if (mount.Internal || mount.Path.find("/.") != std::string::npos) return false;
  const auto isBelow = [&mount](const std::string& folder) {
    return !folder.empty() && mount.Path != folder &&
           base::PathSyntax::Posix().IsWithin(mount.Path, folder);
  };
  return isBelow("/media") || isBelow("/run/media") || isBelow(home);
}

std::vector<Mount> ReadMounts() {
  std::vector<Mount> mounts;
  const std::string home = FindHomeFolder();
  GList* const entries = g_unix_mounts_get(nullptr);
  for (GList* item = entries; item != nullptr; item = item->next) {
    auto* const entry = static_cast<GUnixMountEntry*>(item->data);
    Mount mount;
    mount.Path = TextOf(g_unix_mount_get_mount_path(entry));
    mount.Source = TextOf(g_unix_mount_get_device_path(entry));
    mount.Type = TextOf(g_unix_mount_get_fs_type(entry));
    mount.Internal = g_unix_mount_is_system_internal(entry) != FALSE;
    mount.Shown = IsShown(entry, mount, home);
    char* const label = g_unix_mount_guess_name(entry);
    mount.Label = TextOf(label);
    g_free(label);
    mounts.push_back(std::move(mount));
  }
  g_list_free_full(entries,
                   [](gpointer entry) { g_unix_mount_free(static_cast<GUnixMountEntry*>(entry)); });
  return mounts;
}

}  // namespace

struct LinuxDrives::Monitor {
  Monitor(const std::function<void()>& changed, DesktopMounts& desktop)
      : Desktop(desktop.Listen(changed)), Mounts(changed) {}

  std::shared_ptr<void> Desktop;
  MountNotices Mounts;
};

LinuxDrives::LinuxDrives(DesktopMounts& desktop) : desktop_(desktop) {}
LinuxDrives::~LinuxDrives() = default;

std::vector<Mount> LinuxDrives::Mounts() const {
  std::vector<Mount> mounts = ReadMounts();
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
  monitor_ = changed ? std::make_unique<Monitor>(changed, desktop_) : nullptr;
}

}  // namespace tarnwell::platform
