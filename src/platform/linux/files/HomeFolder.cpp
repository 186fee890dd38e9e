#include "platform/linux/files/HomeFolder.h"

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <vector>

#include "platform/linux/files/LinuxFileSystem.h"

namespace tarnwell::platform {
namespace {

std::string HomeOfUser() {
  std::vector<char> buffer(1024);
  for (;;) {
    passwd entry{};
    passwd* found = nullptr;
    const int error = getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found);
    if (error == EINTR) continue;
    if (error == ERANGE) {
      buffer.resize(buffer.size() * 2);
      continue;
    }
    if (error != 0 || found == nullptr || found->pw_dir == nullptr) return {};
    return found->pw_dir;
  }
}

}  // namespace

std::string FindHomeFolder() {
  const char* const variable = std::getenv("HOME");
  std::string home = variable != nullptr && *variable != '\0' ? variable : HomeOfUser();
  while (home.size() > 1 && home.back() == '/') home.pop_back();
  if (home.empty() || home.front() != '/') return {};
  return LinuxFileSystem().FolderExists(home) ? home : std::string();
}

}  // namespace tarnwell::platform
