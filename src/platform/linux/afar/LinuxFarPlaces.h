// Far places, as the table of mounts tells them.
#pragma once

#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "platform/afar/FarPlaces.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/MountTable.h"

namespace tarnwell::platform {

// As FarPlaces::Find, for these mounts.
std::optional<FarPlace> FindFarPlace(const std::vector<MountedVolume>& mounts,
                                     const std::string& path, LastLink last, std::string& plain);

class LinuxFarPlaces : public FarPlaces {
 public:
  LinuxFarPlaces();
  // Of these mounts only, whatever the system's table says.
  explicit LinuxFarPlaces(std::vector<MountedVolume> mounts) : mounts_(std::move(mounts)) {}

  using FarPlaces::Find;
  std::optional<FarPlace> Find(const std::string& path, LastLink last,
                               std::string& plain) const override;
  bool Any() const override { return !Mounts().empty(); }
  std::optional<FarPlace> FindBelow(const std::string& plain) const override;
  std::vector<std::string> MountedIn(const std::string& plain) const override;

 private:
  std::vector<MountedVolume> Mounts() const;

  mutable std::mutex mutex_;
  Descriptor table_;  // tells of changes; none where the mounts are given
  mutable std::vector<MountedVolume> mounts_;
};

}  // namespace tarnwell::platform
