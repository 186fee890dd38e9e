// Where an item has gone that the desktop has put into the trash.
#pragma once

#include <sys/stat.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/FileOperation.h"
#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/trash/TrashFolder.h"

namespace tarnwell::platform {

// GLib does not tell. It is found by being the same item as before, under one of the names that
// GLib gives in turn where others have been thrown away under the first. Serves one operation.
class TrashFinder {
 public:
  // `path` is the full one that the item had in the open folder, `before` what it was there. To be
  // called right after it went. Nothing where it is in no trash that is known of.
  std::optional<DoneItem> Find(int folder, const std::string& path, const struct statx& before);

 private:
  struct Trash {
    TrashPath Path;
    OpenTrash Opened;
  };

  // Those of the volume of the open folder.
  static std::vector<Trash> TrashesOf(int folder, const struct statx& item);
  static std::optional<DoneItem> FindIn(const Trash& trash, const std::string& path,
                                        const struct statx& before);

  std::map<std::uint64_t, std::vector<Trash>> trashes_;  // by device
};

}  // namespace tarnwell::platform
