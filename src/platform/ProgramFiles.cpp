#include "platform/ProgramFiles.h"

#include <array>
#include <utility>

#include "platform/ReleasedSkins.h"

namespace tarnwell::platform {
namespace {

constexpr std::array<std::string_view, 2> topLevelFiles = {"ring6full.gif", "TIPOFDAY.TXT"};

}  // namespace

ProgramFiles::ProgramFiles(FileSystem& files, Digest digest)
    : files_(files), syntax_(files.Syntax()), digest_(std::move(digest)) {}

std::string ProgramFiles::SkinsIn(const std::string& folder) const {
  return syntax_.Join(folder, "skins");
}

bool ProgramFiles::HoldsSkins(const std::string& folder) const {
  return files_.FolderExists(SkinsIn(folder));
}

void ProgramFiles::BringUpToDate(const std::string& folder, const std::string& dataFolder,
                                 bool addsSkins) {
  if (addsSkins && !HoldsSkins(folder)) AddSkins(folder, dataFolder);
  for (const std::string_view name : topLevelFiles) {
    CopyMissing(syntax_.Join(dataFolder, name), syntax_.Join(folder, name));
  }
  RenewSkins(SkinsIn(dataFolder), SkinsIn(folder));
}

std::string ProgramFiles::FolderOf(std::string_view file, const std::string& folder,
                                   const std::string& dataFolder) const {
  const bool ofData = !dataFolder.empty() && !files_.Exists(syntax_.Join(folder, file)) &&
                      files_.Exists(syntax_.Join(dataFolder, file));
  return ofData ? dataFolder : folder;
}

std::string ProgramFiles::SkinFolder(const std::string& folder,
                                     const std::string& dataFolder) const {
  const bool ofData = !dataFolder.empty() && !HoldsSkins(folder);
  return SkinsIn(ofData ? dataFolder : folder);
}

bool ProgramFiles::CopyMissing(const std::string& source, const std::string& target) {
  if (files_.Exists(target)) return true;
  std::string content;
  return files_.ReadFile(source, content) && files_.WriteFile(target, content);
}

bool ProgramFiles::CopySkins(const std::string& source, const std::string& target) {
  if (!files_.FolderExists(target) && !files_.MakeFolder(target)) return false;
  bool whole = true;
  const base::Status status = files_.ReadFolder(source, [&](const FolderEntry& entry) {
    if (entry.Kind != ItemKind::Folder) {
      whole = CopyMissing(syntax_.Join(source, entry.Name), syntax_.Join(target, entry.Name));
    }
    return whole;
  });
  return status && whole;
}

void ProgramFiles::AddSkins(const std::string& folder, const std::string& dataFolder) {
  // Under another name until it is whole, so that a start cut short is made good by the next.
  const std::string unfinished = syntax_.Join(folder, ".skins-unfinished");
  if (CopySkins(SkinsIn(dataFolder), unfinished)) files_.Rename(unfinished, SkinsIn(folder));
}

// Gives the skins that an earlier release brought, and nobody has changed since, their present
// form.
void ProgramFiles::RenewSkins(const std::string& source, const std::string& target) {
  files_.ReadFolder(source, [&](const FolderEntry& entry) {
    const std::string name(entry.Name);
    const std::string path = syntax_.Join(target, name);
    ItemAttributes attributes;
    std::string shipped;
    std::string own;
    const bool isOwnFile = files_.ReadAttributes(target, name, attributes) && !attributes.IsLink;
    if (isOwnFile && files_.ReadFile(path, own) &&
        files_.ReadFile(syntax_.Join(source, name), shipped) && own != shipped &&
        IsReleasedSkin(digest_(own))) {
      files_.WriteFile(path, shipped);
    }
    return true;
  });
}

}  // namespace tarnwell::platform
