// Far places, as paths, drives and links tell them.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/afar/FarPlaces.h"

namespace tarnwell::platform {

// As FarPlaces::Find. `readLink` is asked for items of this machine alone, and gives where a link
// leads; an empty text for what is none, and for a volume that is mounted here.
std::optional<FarPlace> FindFarPlace(
    const std::string& path, LastLink last, std::string& plain,
    const std::function<std::string(const std::string& path)>& readLink);

// A place is a share, by the name of its server.
class WindowsFarPlaces : public FarPlaces {
 public:
  using FarPlaces::Find;
  std::optional<FarPlace> Find(const std::string& path, LastLink last,
                               std::string& plain) const override;
  // A network path leads to whatever there is, at any time.
  bool Any() const override { return true; }
  // None of both: only links lead to shares from here.
  std::optional<FarPlace> FindBelow(const std::string& /*plain*/) const override { return {}; }
  std::vector<std::string> MountedIn(const std::string& /*plain*/) const override { return {}; }
};

}  // namespace tarnwell::platform
