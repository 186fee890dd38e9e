// Real items for file operations, and a user who answers as told.
#pragma once

#include <sys/mount.h>
#include <sys/xattr.h>

#include "TempFolder.h"
#include "platform/contract/OperationCalls.h"
#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/operation/RunOperation.h"

namespace tarnwell::platform {

inline const std::string otherVolume = "/dev/shm/";
inline constexpr std::size_t copyThreads = 3;  // also where the volumes suit fewer

inline OperationResult CarryOut(const OperationRequest& request, OperationUser& user) {
  return RunOperation(request, user, {}, copyThreads);
}

inline ItemFingerprint PrintOf(const std::string& path, bool isWhole) {
  return FingerprintOf(path, isWhole);
}

// With folders on one volume, and on two.
inline void BetweenFolders(
    const std::function<void(const TempFolder& here, const TempFolder& there)>& check) {
  for (const std::string& where : {testing::TempDir(), otherVolume}) {
    const TempFolder here;
    const TempFolder there(where);
    check(here, there);
  }
}

// Every item below the folder by its path there, with all that a copy is to keep.
inline std::map<std::string, std::string> Describe(const std::string& folder) {
  std::map<std::string, std::string> items;
  std::map<ino_t, std::string> first;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    const std::string path = entry.path();
    struct stat found {};
    lstat(path.c_str(), &found);
    std::ostringstream text;
    text << std::oct << found.st_mode << ' ' << std::dec << found.st_uid << ' '
         << found.st_mtim.tv_sec << '.' << found.st_mtim.tv_nsec;
    for (const char* name : {"user.tarnwell.color", "system.posix_acl_access"}) {
      char value[100];
      const ssize_t length = lgetxattr(path.c_str(), name, value, sizeof value);
      if (length > 0) text << ' ' << std::string(value, static_cast<std::size_t>(length));
    }
    if (S_ISLNK(found.st_mode)) text << std::filesystem::read_symlink(entry.path());
    const std::string relative = path.substr(folder.size());
    if (S_ISREG(found.st_mode)) {
      text << ' ' << found.st_size << ' ' << std::hash<std::string>()(Get(path));
      if (found.st_nlink > 1) {
        // Which name comes first is up to the folder; which belong together is not.
        std::string& names = first[found.st_ino];
        if (!names.empty()) items[std::min(names, relative) + "=" + std::max(names, relative)];
        names = relative;
      }
    }
    items[relative] = text.str();
  }
  return items;
}

// In a child that sees a small volume there.
inline void OnSmallVolume(const std::string& folder, const std::function<void()>& check) {
  InChild([&] {
    if (unshare(CLONE_NEWNS) != 0 ||
        mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("none", folder.c_str(), "tmpfs", 0, "size=2m") != 0) {
      _exit(LacksRight);
    }
    check();
  });
}

// Names of the folders and files, those of temporary ones among them.
inline std::string NamesBelow(const std::string& folder) {
  std::string names;
  for (const auto& [path, text] : Describe(folder)) names += path.substr(1) + " ";
  return names;
}

}  // namespace tarnwell::platform
