#include "platform/linux/afar/LinuxFarPlaces.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <string_view>
#include <utility>

#include "base/PathSyntax.h"
#include "platform/linux/posix/VolumeKind.h"

namespace tarnwell::platform {
namespace {

// Shows all places of the desktop below one mount.
constexpr std::string_view placesType = "fuse.gvfsd-fuse";
constexpr int mostLinks = 40;  // as the kernel has it

bool IsAtOrBelow(std::string_view path, std::string_view folder) {
  return path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

// "server:/export", "//server/share", "user@host:", "https://host/folder".
std::string HostOf(std::string_view source) {
  if (const std::size_t scheme = source.find("://"); scheme != source.npos) {
    source.remove_prefix(scheme + 3);
  } else if (source.starts_with("//")) {
    source.remove_prefix(2);
  } else if (source.find(':') == source.npos) {
    return {};
  }
  std::string_view host = source.substr(0, source.find('/'));
  if (host.ends_with(':')) host.remove_suffix(1);
  if (const std::size_t user = host.rfind('@'); user != host.npos) host.remove_prefix(user + 1);
  return std::string(host);
}

// The desktop names its places "sftp:host=server,user=me".
std::string HostOfPlace(std::string_view name) {
  for (const std::string_view field : {"host=", "server="}) {
    const std::size_t at = name.find(field);
    if (at == name.npos) continue;
    const std::string_view rest = name.substr(at + field.size());
    return std::string(rest.substr(0, rest.find(',')));
  }
  return std::string(name);
}

FarPlace PlaceAt(const MountedVolume& mount, std::string_view path) {
  if (mount.Type == placesType && path.size() > mount.Path.size() + 1) {
    const std::size_t start = mount.Path.size() + 1;
    const std::size_t end = std::min(path.find('/', start), path.size());
    return {std::string(path.substr(0, end)), HostOfPlace(path.substr(start, end - start))};
  }
  const std::string host = HostOf(mount.Source);
  return {mount.Path, host.empty() ? mount.Path : host};
}

const MountedVolume* MountAt(const std::vector<MountedVolume>& mounts, std::string_view path) {
  const auto found = std::ranges::find(mounts, path, &MountedVolume::Path);
  return found == mounts.end() ? nullptr : &*found;
}

std::vector<MountedVolume> ReadFarMounts() {
  std::vector<MountedVolume> mounts = ReadMountTable();
  std::erase_if(mounts, [](const MountedVolume& mount) {
    // The system mounts what it shows of itself when someone looks.
    return !IsFarType(mount.Type) || IsAtOrBelow(mount.Path, "/proc");
  });
  return mounts;
}

}  // namespace

std::optional<FarPlace> FindFarPlace(const std::vector<MountedVolume>& mounts,
                                     const std::string& path, LastLink last, std::string& plain) {
  plain = path;
  if (mounts.empty() || !path.starts_with('/')) return {};
  plain.clear();
  std::string rest = path;
  int links = 0;
  while (true) {
    const std::size_t start = std::min(rest.find_first_not_of('/'), rest.size());
    const std::size_t end = std::min(rest.find('/', start), rest.size());
    const std::string name = rest.substr(start, end - start);
    rest.erase(0, end);
    if (name.empty()) break;
    if (name == ".") continue;
    if (name == "..") {
      plain.erase(std::min(plain.rfind('/'), plain.size()));
      continue;
    }
    plain += '/' + name;
    if (const MountedVolume* const mount = MountAt(mounts, plain)) {
      return PlaceAt(*mount, plain + rest);
    }
    const bool isLast = rest.find_first_not_of('/') == rest.npos;
    if (isLast && last == LastLink::Itself) continue;
    std::array<char, PATH_MAX> target;
    const ssize_t length = readlink(plain.c_str(), target.data(), target.size());
    if (length <= 0) continue;  // no link, or nothing
    if (++links > mostLinks) return {};
    rest.insert(0, std::string(target.data(), static_cast<std::size_t>(length)) + '/');
    if (rest.starts_with('/')) {
      plain.clear();
    } else {
      plain.erase(plain.rfind('/'));
    }
  }
  if (plain.empty()) plain = "/";
  return {};
}

LinuxFarPlaces::LinuxFarPlaces()
    : table_(open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC)), mounts_(ReadFarMounts()) {}

std::vector<MountedVolume> LinuxFarPlaces::Mounts() const {
  const std::lock_guard lock(mutex_);
  // Told once for each change, to whoever polls next.
  pollfd change{.fd = table_.Get(), .events = POLLPRI, .revents = 0};
  if (table_ && poll(&change, 1, 0) > 0) mounts_ = ReadFarMounts();
  return mounts_;
}

std::optional<FarPlace> LinuxFarPlaces::Find(const std::string& path, LastLink last,
                                             std::string& plain) const {
  return FindFarPlace(Mounts(), path, last, plain);
}

std::optional<FarPlace> LinuxFarPlaces::FindBelow(const std::string& plain) const {
  for (const MountedVolume& mount : Mounts()) {
    if (plain == "/" || IsAtOrBelow(mount.Path, plain)) return PlaceAt(mount, mount.Path);
  }
  return {};
}

std::vector<std::string> LinuxFarPlaces::MountedIn(const std::string& plain) const {
  const base::PathSyntax& syntax = base::PathSyntax::Posix();
  std::vector<std::string> names;
  for (const MountedVolume& mount : Mounts()) {
    if (syntax.ParentOf(mount.Path) == plain) names.emplace_back(syntax.LastComponent(mount.Path));
  }
  return names;
}

}  // namespace tarnwell::platform
