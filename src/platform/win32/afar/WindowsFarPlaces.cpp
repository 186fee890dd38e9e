#include "platform/win32/afar/WindowsFarPlaces.h"

#include "platform/win32/files/FarPath.h"

namespace tarnwell::platform {

std::optional<FarPlace> WindowsFarPlaces::Find(const std::string& path, LastLink /*last*/,
                                               std::string& plain) const {
  plain = path;
  const auto share = NetworkShareOf(path);
  if (!share) return {};
  return FarPlace{share->Path, share->Server};
}

std::optional<FarPlace> WindowsFarPlaces::FindBelow(const std::string& /*plain*/) const {
  return {};
}

std::vector<std::string> WindowsFarPlaces::MountedIn(const std::string& /*plain*/) const {
  return {};
}

}  // namespace tarnwell::platform
