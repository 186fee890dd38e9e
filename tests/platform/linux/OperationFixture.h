// Real items for file operations, and a user who answers as told.
#pragma once

#include <sys/mount.h>
#include <sys/xattr.h>

#include "TempFolder.h"
#include "base/ItemList.h"
#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/operation/RunOperation.h"

namespace tarnwell::platform {

inline const std::string otherVolume = "/dev/shm/";
inline constexpr std::size_t copyThreads = 3;  // also where the volumes suit fewer

struct ScriptedUser : OperationUser {
  int CancelAt = -1;  // which question whether to go on is the last
  int Asked = 0;
  ConflictAnswer Conflict;
  TroubleChoice Trouble = TroubleChoice::Skip;
  NoTrashAnswer NoTrash;
  std::function<void()> Meanwhile;
  std::string Heard;  // what was asked about, each followed by a blank
  OperationProgress Last;

  static std::string NameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }
  bool GoesOn() override {
    if (Meanwhile) Meanwhile();
    return Asked++ != CancelAt;
  }
  void OnProgress(const OperationProgress& progress) override { Last = progress; }
  ConflictAnswer OnConflict(const OperationConflict& conflict) override {
    Heard += "conflict:" + NameOf(conflict.Target.Path) + " ";
    return Conflict;
  }
  TroubleChoice OnTrouble(const OperationTrouble& trouble) override {
    Heard += NameOf(trouble.Path) + ":" + std::to_string(trouble.Reason.Code) + " ";
    return Trouble;
  }
  void OnRemark(OperationRemark, const std::string& path) override {
    Heard += "remark:" + NameOf(path) + " ";
  }
  NoTrashAnswer OnNoTrash(const std::string&) override { return NoTrash; }
  MissingFolderChoice OnMissingFolder(const std::string& path) override {
    Heard += "missing:" + NameOf(path) + " ";
    return MissingFolderChoice::Make;
  }
};

inline OperationResult Do(OperationUser& user, FileFunction function,
                          const std::vector<std::string>& items, const std::string& to,
                          int flags = 0) {
  return RunOperation({function, base::ItemList::TextOf(items), base::ItemList::TextOf({to}),
                       static_cast<std::uint16_t>(flags)},
                      user, {}, copyThreads);
}

// Each item that was done as "from>to " without the folder of the test, with a "*" where it was
// made with all below it. Each stands there as told, and what has moved is no more where it was.
inline std::string Told(const OperationResult& result, std::size_t root) {
  std::string told;
  for (const DoneItem& item : result.Done) {
    const bool isWhole = item.Print.Below != 0;
    EXPECT_NE(item.Print.Kind, 0U) << item.To;
    EXPECT_EQ(FingerprintOf(item.To, isWhole), item.Print) << item.To;
    const std::string from = item.From.empty() ? "" : item.From.substr(root);
    told += from + ">" + item.To.substr(root) + (isWhole ? "* " : " ");
  }
  return told;
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
