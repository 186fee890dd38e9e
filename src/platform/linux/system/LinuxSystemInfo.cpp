#include "platform/linux/system/LinuxSystemInfo.h"

#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "platform/linux/files/HomeFolder.h"
#include "platform/linux/files/LinuxFileSystem.h"
#include "platform/linux/operation/SweepTemporaries.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"
#include "platform/linux/system/ReleasedSkins.h"

namespace tarnwell::platform {
namespace {

const base::PathSyntax& PathRules() {
  return base::PathSyntax::Posix();
}

constexpr std::array<std::string_view, 2> topLevelFiles = {"ring6full.gif", "TIPOFDAY.TXT"};

std::string Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::string SkinsIn(const std::string& folder) {
  return PathRules().Join(folder, "skins");
}

bool HoldsSkins(const std::string& folder) {
  return LinuxFileSystem().FolderExists(SkinsIn(folder));
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

bool CopyMissing(const std::string& source, const std::string& target) {
  LinuxFileSystem files;
  if (files.Exists(target)) return true;
  std::string content;
  return files.ReadFile(source, content) && files.WriteFile(target, content);
}

bool CopySkins(const std::string& source, const std::string& target) {
  if (g_mkdir_with_parents(target.c_str(), 0777) != 0) return false;
  bool whole = true;
  const base::Status status = LinuxFileSystem().ReadFolder(source, [&](const FolderEntry& entry) {
    if (entry.Kind != ItemKind::Folder) {
      whole =
          CopyMissing(PathRules().Join(source, entry.Name), PathRules().Join(target, entry.Name));
    }
    return whole;
  });
  return status && whole;
}

void AddSkins(const std::string& folder, const std::string& dataFolder) {
  // Under another name until it is whole, so that a start cut short is made good by the next.
  const std::string unfinished = PathRules().Join(folder, ".skins-unfinished");
  if (CopySkins(SkinsIn(dataFolder), unfinished)) {
    std::rename(unfinished.c_str(), SkinsIn(folder).c_str());
  }
}

// Gives the skins that an earlier release brought, and nobody has changed since, their present
// form.
void RenewSkins(const std::string& source, const std::string& target) {
  LinuxFileSystem files;
  files.ReadFolder(source, [&](const FolderEntry& entry) {
    const std::string name(entry.Name);
    const std::string path = PathRules().Join(target, name);
    ItemAttributes attributes;
    std::string shipped;
    std::string own;
    const bool isOwnFile = files.ReadAttributes(target, name, attributes) && !attributes.IsLink;
    if (isOwnFile && files.ReadFile(path, own) &&
        files.ReadFile(PathRules().Join(source, name), shipped) && own != shipped &&
        IsReleasedSkin(own)) {
      files.WriteFile(path, shipped);
    }
    return true;
  });
}

// What cannot be written stays as it is.
void BringUpToDate(const std::string& folder, const std::string& dataFolder) {
  for (const std::string_view name : topLevelFiles) {
    CopyMissing(PathRules().Join(dataFolder, name), PathRules().Join(folder, name));
  }
  RenewSkins(SkinsIn(dataFolder), SkinsIn(folder));
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
  if (choice.Own && !HoldsSkins(programFolder_)) AddSkins(programFolder_, dataFolder_);
  BringUpToDate(programFolder_, dataFolder_);
}

std::string LinuxSystemInfo::FolderOf(std::string_view file) const {
  const LinuxFileSystem files;
  const bool ofData = !dataFolder_.empty() &&
                      !files.Exists(PathRules().Join(programFolder_, file)) &&
                      files.Exists(PathRules().Join(dataFolder_, file));
  return ofData ? dataFolder_ : programFolder_;
}

std::string LinuxSystemInfo::SkinFolder() const {
  const bool ofData = !dataFolder_.empty() && !HoldsSkins(programFolder_);
  return SkinsIn(ofData ? dataFolder_ : programFolder_);
}

void LinuxSystemInfo::SetCurrentFolder(const std::string& folder) {
  std::error_code ignored;
  std::filesystem::current_path(folder, ignored);
}

}  // namespace tarnwell::platform
