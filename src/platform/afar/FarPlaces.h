// Which paths lead to other machines: shares, and places that programs show.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarnwell::platform {

struct FarPlace {
  std::string Key;   // the path that it begins at, one for each place
  std::string Name;  // what people call it: the host, or the path where none is told
};

enum class LastLink : std::uint8_t { Followed, Itself };

// Asked from any thread. Looks at the folders of this machine alone, so it never waits for a host.
class FarPlaces {
 public:
  virtual ~FarPlaces() = default;

  // The one that the path leads to, through links or not. What nothing has that path is not far.
  // Otherwise `plain` becomes the path without links, as far as it is there.
  virtual std::optional<FarPlace> Find(const std::string& path, LastLink last,
                                       std::string& plain) const = 0;
  std::optional<FarPlace> Find(const std::string& path, LastLink last = LastLink::Followed) const {
    std::string plain;
    return Find(path, last, plain);
  }
  // Whether there is anything far at all that a path could lead to.
  virtual bool Any() const = 0;
  // One of those below the folder, whose path is without links.
  virtual std::optional<FarPlace> FindBelow(const std::string& plain) const = 0;
  // Names of what is mounted from elsewhere right in the folder, whose path is without links.
  virtual std::vector<std::string> MountedIn(const std::string& plain) const = 0;
};

}  // namespace tarnwell::platform
