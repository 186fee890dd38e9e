// Which paths lead to what is mounted from elsewhere: shares, and places that programs show.
#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/MountTable.h"

namespace tarnwell::platform {

struct FarPlace {
  std::string Key;   // the path that it is mounted at; one for each of the desktop's places
  std::string Name;  // what people call it: the host, or the path where none is told
};

enum class LastLink { Followed, Itself };

// The one that the path leads to, through links or not. Looks at the folders of this machine on the
// way alone, so it never waits for a host. `mounts` are those that may. What nothing has that path
// is not far. Otherwise `plain` becomes the path without links, as far as it is there.
std::optional<FarPlace> FindFarPlace(const std::vector<MountedVolume>& mounts,
                                     const std::string& path, LastLink last, std::string& plain);

// Asked from any thread.
class FarPlaces {
 public:
  FarPlaces();
  // Of these mounts only, whatever the system's table says.
  explicit FarPlaces(std::vector<MountedVolume> mounts) : mounts_(std::move(mounts)) {}

  std::optional<FarPlace> Find(const std::string& path, LastLink last, std::string& plain) const;
  std::optional<FarPlace> Find(const std::string& path, LastLink last = LastLink::Followed) const {
    std::string plain;
    return Find(path, last, plain);
  }
  // Whether anything at all is mounted from elsewhere.
  bool Any() const { return !Mounts().empty(); }
  // One of those below the folder, whose path is without links.
  std::optional<FarPlace> FindBelow(const std::string& plain) const;
  // Names of what is mounted from elsewhere right in the folder, whose path is without links.
  std::vector<std::string> MountedIn(const std::string& plain) const;

 private:
  std::vector<MountedVolume> Mounts() const;

  mutable std::mutex mutex_;
  Descriptor table_;  // tells of changes; none where the mounts are given
  mutable std::vector<MountedVolume> mounts_;
};

}  // namespace tarnwell::platform
