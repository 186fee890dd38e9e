// Far places, as paths, drives and links tell them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/afar/FarPlaces.h"

namespace tarnwell::platform {

// A place is a share, by the name of its server.
class WindowsFarPlaces : public FarPlaces {
 public:
  using FarPlaces::Find;
  std::optional<FarPlace> Find(const std::string& path, LastLink last,
                               std::string& plain) const override;
  // A network path leads to whatever there is, at any time.
  bool Any() const override { return true; }
  // None: nothing of this machine enters a share unless by a link, which is not followed there.
  std::optional<FarPlace> FindBelow(const std::string& plain) const override;
  std::vector<std::string> MountedIn(const std::string& plain) const override;
};

}  // namespace tarnwell::platform
