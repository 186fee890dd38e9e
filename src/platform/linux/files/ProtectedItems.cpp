#include "platform/linux/files/ProtectedItems.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <memory>
#include <utility>
#include <vector>

#include "base/ItemList.h"
#include "base/PathSyntax.h"
#include "platform/RefusalSentence.h"
#include "platform/linux/files/HomeFolder.h"
#include "platform/linux/posix/MountTable.h"
#include "platform/linux/posix/ReachedPath.h"

namespace tarnwell::platform {
namespace {

constexpr int mostLinks = 40;  // as many as the system follows

const base::PathSyntax& Syntax() {
  return base::PathSyntax::Posix();
}

std::string WithoutLinks(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr),
                                                         &std::free);
  return real ? real.get() : std::string();
}

// The path, which lies within `from`, as it is from `to`.
std::string Rebase(const std::string& path, const std::string& from, const std::string& to) {
  const std::string rest = path.substr(from == "/" ? 0 : from.size());
  const std::string moved = (to == "/" ? "" : to) + rest;
  return moved.empty() ? "/" : moved;
}

bool LookAtFolder(const std::string& path, struct statx& found) {
  const Descriptor folder = OpenPath(path, O_PATH | O_DIRECTORY);
  return folder && LookAt(folder.Get(), "", found) == NoError;
}

// The folder's path without links, and the paths that it has by other mounts of its volume.
std::vector<std::string> PathsOf(const std::string& folder,
                                 const std::vector<MountedVolume>& mounts) {
  std::vector<std::string> paths{folder};
  const std::string real = WithoutLinks(folder);
  struct statx found;
  if (real.empty() || !LookAtFolder(real, found)) return paths;
  const auto at = std::ranges::find(mounts, found.stx_mnt_id, &MountedVolume::Id);
  if (at == mounts.end() || !Syntax().IsWithin(real, at->Path)) return paths;
  const std::string inside = Rebase(real, at->Path, at->Root);
  for (const MountedVolume& mount : mounts) {
    if (mount.Device != at->Device || !Syntax().IsWithin(inside, mount.Root)) continue;
    const std::string path = Rebase(inside, mount.Root, mount.Path);
    // Something else may be mounted over it.
    struct statx there;
    if (LookAtFolder(path, there) && IdentityOf(there) == IdentityOf(found)) paths.push_back(path);
  }
  return paths;
}

}  // namespace

void ProtectedItems::Found::TakeWay(std::string path, Kind kind, Kind holder) {
  for (int links = 0; links <= mostLinks; ++links) {
    struct statx above;
    if (LookAt(AT_FDCWD, "/", above) != NoError) return;
    std::size_t end = 0;
    bool isLink = false;
    while (end != path.npos && !isLink) {
      const std::size_t start = end + 1;
      end = path.find('/', start);
      const std::string way = path.substr(0, end);
      struct statx item;
      if (LookAt(AT_FDCWD, way.c_str(), item) != NoError) return;
      Folders.insert(IdentityOf(above));
      const auto [known, isNew] =
          Items.try_emplace(IdentityOf(item), end == path.npos ? kind : holder);
      if (!isNew) known->second = std::min(known->second, end == path.npos ? kind : holder);
      above = item;
      isLink = S_ISLNK(item.stx_mode);
      if (!isLink) continue;
      std::array<char, PATH_MAX> text;
      const ssize_t length = readlink(way.c_str(), text.data(), text.size());
      if (length <= 0) return;
      std::string target(text.data(), static_cast<std::size_t>(length));
      if (end != path.npos) target += path.substr(end);
      path.resize(target.front() == '/' ? 0 : start);
      path += target;
    }
    if (!isLink) return;
  }
}

const ProtectedItems::Found& ProtectedItems::Read() {
  if (found_) return *found_;
  found_.emplace();
  struct statx root;
  if (LookAt(AT_FDCWD, "/", root) == NoError) {
    found_->Items[IdentityOf(root)] = Kind::Root;
    found_->Folders.insert(IdentityOf(root));
  }
  const std::vector<MountedVolume> mounts = ReadMountTable();
  const auto takeFolder = [&](const std::string& folder, Kind kind, Kind holder) {
    if (folder.empty()) return;
    for (const std::string& path : PathsOf(folder, mounts)) found_->TakeWay(path, kind, holder);
  };
  takeFolder(FindHomeFolder(), Kind::Home, Kind::HoldsHome);
  takeFolder(programFolder_, Kind::Program, Kind::HoldsProgram);
  // Where they are mounted shows when it is looked at; a share that is gone would not answer.
  std::unordered_set<std::string> known;
  for (const MountedVolume& mount : mounts) {
    const std::string above = Syntax().ParentOf(mount.Path);
    if (!known.insert(above).second) continue;
    found_->TakeWay(above, Kind::HoldsMount, Kind::HoldsMount);
    struct statx folder;
    if (LookAt(AT_FDCWD, above.c_str(), folder) == NoError)
      found_->Folders.insert(IdentityOf(folder));
  }
  return *found_;
}

std::string ProtectedItems::Refusal(FileFunction function, int folder, const char* name) {
  struct statx above;
  struct statx item;
  if (LookAt(folder, "", above) != NoError || !Read().Folders.contains(IdentityOf(above)) ||
      LookAt(folder, name, item) != NoError) {
    return {};
  }
  const auto known = Read().Items.find(IdentityOf(item));
  if (known != Read().Items.end()) return Sentence(known->second, function);
  return IsSameMount(item, above) ? "" : Sentence(Kind::Mount, function);
}

std::string ProtectedItems::Refusal(FileFunction function, const std::string& items) {
  if (function == FileFunction::Copy || function == FileFunction::None) return {};
  std::string folder;
  Descriptor opened;
  for (const std::string_view item : base::ItemList(items)) {
    if (Syntax().IsDriveRoot(item)) return Sentence(Kind::Root, function);
    const std::string path = Syntax().RemoveRightSlash(item);
    std::string parent = Syntax().ParentOf(path);
    if (parent != folder) {
      struct statx found;
      const bool holdsSome =
          LookAtFolder(parent, found) && Read().Folders.contains(IdentityOf(found));
      opened = holdsSome ? OpenPath(parent, O_PATH | O_DIRECTORY) : Descriptor();
      folder = std::move(parent);
    }
    if (!opened) continue;
    const std::string name(Syntax().LastComponent(path));
    std::string refusal = Refusal(function, opened.Get(), name.c_str());
    if (!refusal.empty()) return refusal;
  }
  return {};
}

std::string ProtectedItems::Sentence(Kind kind, FileFunction function) {
  constexpr std::array subjects = {
      "The root folder",
      "The home folder",
      "The folder of the program's own files",
      "A folder on which a volume is mounted",
      "A folder that holds the home folder",
      "A folder that holds the program's own files",
      "A folder that holds a mounted volume",
  };
  return RefusalSentence(subjects.at(static_cast<std::size_t>(kind)), function);
}

}  // namespace tarnwell::platform
