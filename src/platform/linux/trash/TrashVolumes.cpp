#include "platform/linux/trash/TrashVolumes.h"

#include <gio/gunixmounts.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "platform/linux/files/HomeFolder.h"
#include "platform/linux/posix/GioObject.h"

namespace tarnwell::platform {
namespace {

// Of what GLib counts as the system's own, a person's files lie on the first two as well; the last
// are never written, and there may be a hundred of them.
bool MayHoldTrash(std::string_view type) {
  if (type == "tmpfs" || type == "ramfs") return true;
  if (type == "squashfs" || type == "erofs" || type == "iso9660") return false;
  if (type == "fuse.gvfsd-fuse") return false;  // network places by other names
  return g_unix_is_system_fs_type(std::string(type).c_str()) == FALSE;
}

std::vector<std::string> ReadTops() {
  std::vector<std::string> tops;
  GList* const entries = g_unix_mounts_get(nullptr);
  for (GList* item = entries; item != nullptr; item = item->next) {
    auto* const entry = static_cast<GUnixMountEntry*>(item->data);
    std::string path = TextOf(g_unix_mount_get_mount_path(entry));
    const bool isUsed =
        MayHoldTrash(TextOf(g_unix_mount_get_fs_type(entry))) && !std::ranges::count(tops, path);
    if (isUsed) tops.push_back(std::move(path));
  }
  g_list_free_full(entries,
                   [](gpointer entry) { g_unix_mount_free(static_cast<GUnixMountEntry*>(entry)); });
  return tops;
}

std::string HomeTrashOfProcess() {
  const char* const variable = std::getenv("XDG_DATA_HOME");
  // The standard wants a path that is not absolute to be passed over.
  if (variable != nullptr && *variable == '/') return std::string(variable) + "/Trash";
  const std::string home = FindHomeFolder();
  return home.empty() ? home : home + "/.local/share/Trash";
}

}  // namespace

TrashPlaces TrashPlaces::OfProcess() {
  return {HomeTrashOfProcess(), geteuid(), &ReadTops};
}

}  // namespace tarnwell::platform
