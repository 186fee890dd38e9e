#include "platform/linux/trash/LookAtTrash.h"

#include <cerrno>

#include "platform/linux/posix/ItemStat.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/VolumeKind.h"

namespace tarnwell::platform {
namespace {

// Adds the nearest folder on the way to the path that is there, with what comes next.
Descriptor AddWay(std::string path, TrashLook& look) {
  for (;;) {
    const std::size_t slash = path.rfind('/');
    const std::string next = path.substr(slash + 1);
    path.resize(slash == 0 ? 1 : slash);
    Descriptor folder = OpenPath(path, O_PATH | O_DIRECTORY);
    if (folder) {
      look.Ways[path].insert(next);
      return folder;
    }
    if (path == "/") return {};
  }
}

TrashLook::Stamp StampOf(const Descriptor& folder) {
  struct statx found;
  if (!folder || LookAt(folder.Get(), "", found) != NoError) return {};
  return {IdentityOf(found), Nanoseconds(found.stx_ctime)};
}

}  // namespace

TrashLook LookAtTrash(const TrashPath& path) {
  TrashLook look;
  base::Status status;
  const OpenTrash trash = OpenTrash::Of(path, status);
  const Descriptor above = AddWay(path.Text(), look);
  look.IsLocal = above && IsLocalVolume(above, path.Text().substr(0, path.Text().rfind('/') + 1));
  look.IsThere = static_cast<bool>(trash.Top);
  if (!look.IsThere) {
    if (status.Code != ENOENT) look.Trouble = status;
    return look;
  }
  look.Self = trash.Self;
  look.Stamps = {StampOf(trash.Files), StampOf(trash.Notes)};
  const auto watch = [&](const Descriptor& folder, const std::string& place) {
    folder ? void(look.Ways[place]) : void(AddWay(place, look));
  };
  watch(trash.Files, path.FilesFolder());
  watch(trash.Notes, path.NotesFolder());
  return look;
}

}  // namespace tarnwell::platform
