#include "platform/linux/network/SystemMounts.h"

#include <gio/gio.h>
#include <gio/gunixmounts.h>

#include <algorithm>
#include <array>
#include <utility>

#include "base/PathSyntax.h"
#include "platform/linux/files/HomeFolder.h"
#include "platform/linux/posix/GioObject.h"
#include "platform/linux/posix/VolumeKind.h"

namespace tarnwell::platform {
namespace {

constexpr std::array<std::string_view, 10> shareTypes = {
    "nfs", "nfs4",     "cifs",       "smb3",        "smbfs",
    "9p",  "virtiofs", "fuse.sshfs", "fuse.rclone", "fuse.davfs",
};

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

}  // namespace

std::vector<Mount> ReadSystemMounts() {
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
    mount.Label = TextOf(GioText(g_unix_mount_guess_name(entry)).get());
    mounts.push_back(std::move(mount));
  }
  g_list_free_full(entries,
                   [](gpointer entry) { g_unix_mount_free(static_cast<GUnixMountEntry*>(entry)); });
  return mounts;
}

bool IsShareType(std::string_view type) {
  return std::ranges::count(shareTypes, type) != 0;
}

}  // namespace tarnwell::platform
