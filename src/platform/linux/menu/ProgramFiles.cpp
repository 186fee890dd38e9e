#include "platform/linux/menu/ProgramFiles.h"

#include <fcntl.h>
#include <gio/gio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <sstream>
#include <string_view>

#include "base/PathSyntax.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/GioObject.h"

namespace tarnwell::platform {
namespace {

constexpr std::size_t bytesToTell = 4096;  // as many as GLib looks at

// What the types of executable binaries are, or descend from.
constexpr const char* binaryTypes[] = {"application/x-executable", "application/x-pie-executable",
                                       "application/x-sharedlib"};

// Without links; empty where there is no such item.
std::string RealPath(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr),
                                                         &std::free);
  return real ? real.get() : "";
}

std::string RealFolderOf(const std::string& path) {
  return RealPath(base::PathSyntax::Posix().ParentOf(path));
}

}  // namespace

FileContent ContentOf(const std::string& path) {
  const Descriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  struct stat stat;
  if (!file || fstat(file.Get(), &stat) != 0 || !S_ISREG(stat.st_mode)) return FileContent::Other;
  char bytes[bytesToTell];
  const ssize_t count = pread(file.Get(), bytes, sizeof bytes, 0);
  if (count <= 0) return FileContent::Other;
  if (std::string_view(bytes, static_cast<std::size_t>(count)).starts_with("#!")) {
    return FileContent::Script;
  }
  const GioText type(g_content_type_guess(nullptr, reinterpret_cast<const guchar*>(bytes),
                                          static_cast<gsize>(count), nullptr));
  // Scripts count as executable among the types, with "#!" or without.
  if (g_content_type_is_a(type.get(), "text/plain") != FALSE) return FileContent::Other;
  for (const char* const each : binaryTypes) {
    if (g_content_type_is_a(type.get(), each) != FALSE) return FileContent::Binary;
  }
  return FileContent::Other;
}

bool IsRegisteredEntry(const std::string& path) {
  const std::string folder = RealFolderOf(path) + "/";
  const auto holds = [&folder](const char* data) {
    const std::string applications = RealPath(std::string(data) + "/applications");
    return !applications.empty() && folder.starts_with(applications + "/");
  };
  if (holds(g_get_user_data_dir())) return true;
  for (const char* const* data = g_get_system_data_dirs(); *data != nullptr; ++data) {
    if (holds(*data)) return true;
  }
  return false;
}

bool IsSystemProgram(const std::string& path) {
  const std::string folder = RealFolderOf(path);
  struct stat stat;
  if (folder.empty() || ::stat(folder.c_str(), &stat) != 0) return false;
  if (stat.st_uid != 0 || (stat.st_mode & S_IWOTH) != 0) return false;
  const char* const search = std::getenv("PATH");
  std::istringstream places(search != nullptr ? search : "");
  for (std::string place; std::getline(places, place, ':');) {
    if (place.starts_with('/') && RealPath(place) == folder) return true;
  }
  return false;
}

}  // namespace tarnwell::platform
