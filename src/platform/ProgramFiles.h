// The files that come with the program, given to the folder in which a user has them.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"

namespace tarnwell::platform {

// What cannot be made or copied is left; the program goes on without.
class ProgramFiles {
 public:
  // Gives the SHA-256 of the bytes in small hexadecimal digits.
  using Digest = std::function<std::string(const std::string& bytes)>;

  // The files system must outlive this.
  ProgramFiles(FileSystem& files, Digest digest);

  // The skins of a folder of the program, and whether it has any.
  std::string SkinsIn(const std::string& folder) const;
  bool HoldsSkins(const std::string& folder) const;

  // Brings a user's folder up to what came with the program: adds the animation and the tips where
  // they are missing, renews skins that are as an earlier release brought them, and, where the
  // folder has none and `addsSkins` says so, adds the skins.
  void BringUpToDate(const std::string& folder, const std::string& dataFolder, bool addsSkins);

  // As SystemInfo has them, for these two folders; the second may be empty.
  std::string FolderOf(std::string_view file, const std::string& folder,
                       const std::string& dataFolder) const;
  std::string SkinFolder(const std::string& folder, const std::string& dataFolder) const;

 private:
  bool CopyMissing(const std::string& source, const std::string& target);
  bool CopySkins(const std::string& source, const std::string& target);
  void AddSkins(const std::string& folder, const std::string& dataFolder);
  void RenewSkins(const std::string& source, const std::string& target);

  FileSystem& files_;
  const base::PathSyntax& syntax_;
  const Digest digest_;
};

}  // namespace tarnwell::platform
