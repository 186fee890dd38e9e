#include "platform/linux/system/DriveRules.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarnwell::platform {
namespace {

// What is mounted below these serves the system or one program, whatever it lies on.
constexpr std::array<std::string_view, 10> systemFolders = {
    "/boot", "/dev", "/etc", "/proc", "/run", "/snap", "/sys", "/tmp", "/usr", "/var",
};

// The type of the mount that holds a folder for each place that the desktop has mounted.
constexpr std::string_view placesType = "fuse.gvfsd-fuse";

// The folder right below the mount of places that holds the path.
std::string PlaceHolding(std::string_view path, const Mount& places) {
  const std::size_t name = places.Path.size() + 1;
  return path.size() > name ? std::string(path.substr(0, path.find('/', name))) : "";
}

bool IsDiskOrShare(const Mount& mount) {
  return mount.Source.starts_with("/dev/") || IsShareType(mount.Type);
}

bool ServesSystem(std::string_view path) {
  if (path.find("/.") != std::string_view::npos) return true;  // hidden on purpose
  return std::ranges::any_of(systemFolders, [&](std::string_view folder) {
    return base::PathSyntax::Posix().IsWithin(path, folder);
  });
}

}  // namespace

bool IsVolume(const Mount& mount) {
  if (mount.Internal) return false;
  return mount.Shown || (IsDiskOrShare(mount) && !ServesSystem(mount.Path));
}

std::vector<Drive> DrivesOf(const std::string& home, const std::vector<Mount>& mounts) {
  std::vector<Drive> drives;
  if (!home.empty() && home != "/") drives.push_back({home, "Home"});
  drives.push_back({"/", "File system"});
  const auto fixed = static_cast<std::ptrdiff_t>(drives.size());
  for (const Mount& mount : mounts) {
    // A path can be mounted over again and again.
    const bool known = std::ranges::count(drives, mount.Path, &Drive::Name) != 0;
    if (!known && IsVolume(mount)) drives.push_back({mount.Path, mount.Label});
  }
  std::sort(drives.begin() + fixed, drives.end(),
            [](const Drive& left, const Drive& right) { return left.Name < right.Name; });
  return drives;
}

std::string DriveHolding(std::string_view path, const std::string& home,
                         const std::vector<Mount>& mounts) {
  std::string nearest = "/";
  for (const Mount& mount : mounts) {
    if (!base::PathSyntax::Posix().IsWithin(path, mount.Path)) continue;
    std::string volume;
    if (mount.Type == placesType) {
      volume = PlaceHolding(path, mount);
    } else if (mount.Path == home || IsVolume(mount)) {
      volume = mount.Path;
    }
    if (volume.size() > nearest.size()) nearest = std::move(volume);
  }
  return nearest;
}

}  // namespace tarnwell::platform
