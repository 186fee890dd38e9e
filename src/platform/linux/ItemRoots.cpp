#include "platform/linux/ItemRoots.h"

#include <gio/gunixmounts.h>

#include <algorithm>
#include <cstdlib>
#include <unordered_set>

#include "base/PathSyntax.h"
#include "platform/linux/GioObject.h"

namespace tarnwell::platform {
namespace {

// The table of mounts knows no links.
std::string WithoutLinks(const std::string& folder) {
  const std::unique_ptr<char, decltype(&std::free)> path(realpath(folder.c_str(), nullptr),
                                                         &std::free);
  return path ? path.get() : folder;
}

std::unordered_set<std::string> MountPoints() {
  std::unordered_set<std::string> points;
  GList* const entries = g_unix_mounts_get(nullptr);
  for (GList* item = entries; item != nullptr; item = item->next) {
    points.insert(g_unix_mount_get_mount_path(static_cast<GUnixMountEntry*>(item->data)));
  }
  g_list_free_full(entries,
                   [](gpointer entry) { g_unix_mount_free(static_cast<GUnixMountEntry*>(entry)); });
  return points;
}

}  // namespace

bool HoldsRoot(const std::string& folder, const std::vector<std::string>& names,
               const std::string& home) {
  const base::PathSyntax& syntax = base::PathSyntax::Posix();
  std::unordered_set<std::string> roots = MountPoints();
  roots.insert("/");
  if (!home.empty())
    roots.insert(syntax.Join(WithoutLinks(syntax.ParentOf(home)), syntax.LastComponent(home)));
  const std::string place = WithoutLinks(folder);
  return std::ranges::any_of(
      names, [&](const std::string& name) { return roots.contains(syntax.Join(place, name)); });
}

}  // namespace tarnwell::platform
