#include "platform/linux/system/LinuxSystemInfo.h"

#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "platform/ProgramFiles.h"
#include "platform/linux/files/HomeFolder.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/operation/SweepTemporaries.h"
#include "platform/linux/posix/GioObject.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

const base::PathSyntax& PathRules() {
  return base::PathSyntax::Posix();
}

std::string Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string Sha256Of(const std::string& bytes) {
  const GioText digest(
      g_compute_checksum_for_string(G_CHECKSUM_SHA256, bytes.data(), gssize(bytes.size())));
  return digest.get();
}

// The files of the disk, and what is done with them.
struct OnDisk {
  LinuxFileSystem Files;
  ProgramFiles Program{Files, Sha256Of};
};

bool HoldsSkins(const std::string& folder) {
  return OnDisk().Program.HoldsSkins(folder);
}

std::string FindDataFolder(const std::string& executableFolder) {
  if (executableFolder.empty()) return {};
  const std::string above = PathRules().ParentOf(executableFolder);
  const std::array<std::string, 3> candidates = {
      PathRules().Join(executableFolder, "data"), PathRules().Join(above, "share/tarnwell"),
      PathRules().Join(PathRules().ParentOf(above), "data")};
  for (const std::string& candidate : candidates) {
    if (HoldsSkins(candidate)) return candidate;
  }
  return {};
}

// Of an installed program, of one that is carried about, and of one that was built here.
std::string FindGuidePage(const std::string& executableFolder) {
  const std::string above = PathRules().ParentOf(executableFolder);
  const std::array<std::string, 3> candidates = {
      PathRules().Join(above, "share/doc/tarnwell/guide/index.html"),
      PathRules().Join(executableFolder, "guide/index.html"),
      PathRules().Join(above, "guide/index.html")};
  for (const std::string& candidate : candidates) {
    if (LinuxFileSystem().Exists(candidate)) return candidate;
  }
  return candidates.front();
}

bool IsWritable(const std::string& folder) {
  return faccessat(AT_FDCWD, folder.c_str(), W_OK, AT_EACCESS) == 0;
}

struct Choice {
  std::string Folder;
  bool Own = false;       // to be made and filled
  bool Portable = false;  // holds the program as well
};

Choice ChooseFolder(const ProgramPlaces& places) {
  const std::string& executableFolder = places.ExecutableFolder;
  if (!places.TarnwellHome.empty()) {
    std::error_code ignored;
    const std::string path = std::filesystem::absolute(places.TarnwellHome, ignored).string();
    return {PathRules().IsDriveRoot(path) ? path : PathRules().RemoveRightSlash(path), true};
  }
  if (IsWritable(executableFolder) && HoldsSkins(executableFolder)) {
    return {.Folder = executableFolder, .Portable = true};
  }
  // A relative data folder is to be taken for none, by the rules of the variable.
  if (places.DataHome.starts_with('/'))
    return {PathRules().Join(places.DataHome, "tarnwell"), true};
  if (!places.HomeFolder.empty()) {
    return {PathRules().Join(places.HomeFolder, ".local/share/tarnwell"), true};
  }
  return {executableFolder};
}

}  // namespace

ProgramPlaces ProgramPlaces::OfProcess() {
  ProgramPlaces places;
  std::error_code ignored;
  const std::string executable = std::filesystem::read_symlink("/proc/self/exe", ignored).string();
  if (!executable.empty()) places.ExecutableFolder = PathRules().ParentOf(executable);
  places.TarnwellHome = Variable("TARNWELL_HOME");
  places.DataHome = Variable("XDG_DATA_HOME");
  places.HomeFolder = FindHomeFolder();
  return places;
}

LinuxSystemInfo::LinuxSystemInfo(const ProgramPlaces& places)
    : dataFolder_(FindDataFolder(places.ExecutableFolder)),
      guidePage_(FindGuidePage(places.ExecutableFolder)) {
  const Choice choice = ChooseFolder(places);
  programFolder_ = choice.Folder;
  isPortable_ = choice.Portable;
  if (choice.Own && g_mkdir_with_parents(programFolder_.c_str(), 0700) != 0) {
    folderTrouble_ = SystemError(errno);
    return;
  }
  if (const Descriptor folder = OpenPath(programFolder_, O_PATH | O_DIRECTORY); folder) {
    SweepTemporaries(folder.Get(), [] { return true; });
  }
  if (dataFolder_.empty()) return;
  OnDisk().Program.BringUpToDate(programFolder_, dataFolder_, choice.Own);
}

std::string LinuxSystemInfo::FolderOf(std::string_view file) const {
  return OnDisk().Program.FolderOf(file, programFolder_, dataFolder_);
}

std::string LinuxSystemInfo::SkinFolder() const {
  return OnDisk().Program.SkinFolder(programFolder_, dataFolder_);
}

void LinuxSystemInfo::SetCurrentFolder(const std::string& folder) {
  std::error_code ignored;
  std::filesystem::current_path(folder, ignored);
}

}  // namespace tarnwell::platform
