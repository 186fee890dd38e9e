#include "platform/win32/files/ProtectedItems.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "base/ItemList.h"
#include "base/PathSyntax.h"
#include "platform/RefusalSentence.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/HomeFolder.h"

namespace tarnwell::platform {
namespace {

const base::PathSyntax& ItsSyntax() {
  return base::PathSyntax::Windows();
}

bool IsShareRoot(std::string_view path) {
  const std::string_view mark = ItsSyntax().NetworkMark;
  if (!path.starts_with(mark)) return false;
  path.remove_prefix(mark.size());
  const std::size_t share = path.find(ItsSyntax().Separator);
  return share == path.npos || path.find(ItsSyntax().Separator, share + 1) == path.npos;
}

ItemIdentity IdentityAt(const std::string& path, bool followsLink) {
  const Handle item = OpenItem(path, followsLink);
  return item ? IdentityOf(item.Get()) : ItemIdentity();
}

std::string FindSystemFolder() {
  std::array<wchar_t, MAX_PATH> path{};
  return Narrow({path.data(), GetSystemWindowsDirectoryW(path.data(), MAX_PATH)});
}

// Where volumes are mounted that have no letter, or more than that.
std::vector<std::string> ReadMountFolders() {
  std::vector<std::string> folders;
  std::array<wchar_t, MAX_PATH + 1> volume{};
  const HANDLE finding = FindFirstVolumeW(volume.data(), static_cast<DWORD>(volume.size()));
  for (bool has = finding != INVALID_HANDLE_VALUE; has;
       has = FindNextVolumeW(finding, volume.data(), static_cast<DWORD>(volume.size())) != 0) {
    std::wstring paths(MAX_PATH, L'\0');
    DWORD size = 0;
    const auto read = [&] {
      return GetVolumePathNamesForVolumeNameW(volume.data(), paths.data(),
                                              static_cast<DWORD>(paths.size()), &size) != 0;
    };
    bool isRead = read();
    if (!isRead && GetLastError() == ERROR_MORE_DATA) {
      paths.resize(size);
      isRead = read();
    }
    if (!isRead) continue;
    for (const wchar_t* path = paths.c_str(); *path != 0;
         path += std::wstring_view(path).size() + 1) {
      std::string folder = Narrow(path);
      if (!ItsSyntax().IsDriveRoot(folder)) folders.push_back(ItsSyntax().RemoveRightSlash(folder));
    }
  }
  if (finding != INVALID_HANDLE_VALUE) FindVolumeClose(finding);
  return folders;
}

}  // namespace

void ProtectedItems::Found::TakeWay(std::string path, Kind kind, Kind holder) {
  if (!ItsSyntax().IsDriveRoot(path)) path = ItsSyntax().RemoveRightSlash(path);
  bool isHolder = false;
  while (!ItsSyntax().IsDriveRoot(path) && !IsShareRoot(path)) {
    const Kind here = isHolder ? holder : kind;
    const auto [known, isNew] = Items.try_emplace(IdentityAt(path, false), here);
    if (!isNew) known->second = std::min(known->second, here);
    std::string above = ItsSyntax().ParentOf(path);
    if (above == path) break;
    path = std::move(above);
    Folders.insert(IdentityAt(path, true));
    isHolder = true;
  }
}

const ProtectedItems::Found& ProtectedItems::Read() {
  if (found_) return *found_;
  found_.emplace();
  const auto takeFolder = [this](const std::string& folder, Kind kind, Kind holder) {
    if (folder.empty()) return;
    found_->TakeWay(folder, kind, holder);
    const std::string plain = FromLongPath(FinalPathOf(OpenItem(folder, true).Get()));
    if (!plain.empty()) found_->TakeWay(plain, kind, holder);
  };
  takeFolder(FindHomeFolder(), Kind::Home, Kind::HoldsHome);
  takeFolder(FindSystemFolder(), Kind::System, Kind::HoldsSystem);
  takeFolder(programFolder_, Kind::Program, Kind::HoldsProgram);
  for (const std::string& folder : ReadMountFolders()) {
    found_->TakeWay(folder, Kind::Mount, Kind::HoldsMount);
  }
  // What could not be looked at is told by nothing.
  found_->Items.erase(ItemIdentity());
  found_->Folders.erase(ItemIdentity());
  return *found_;
}

std::string ProtectedItems::Refusal(FileFunction function, const std::string& items) {
  if (function == FileFunction::Copy || function == FileFunction::None) return {};
  std::string folder;
  bool holdsSome = false;
  for (const std::string_view item : base::ItemList(items)) {
    const std::string path = ItsSyntax().RemoveRightSlash(item);
    if (ItsSyntax().IsDriveRoot(item) || IsShareRoot(path)) return Sentence(Kind::Root, function);
    std::string parent = ItsSyntax().ParentOf(path);
    if (parent != folder) {
      holdsSome = Read().Folders.contains(IdentityAt(parent, true));
      folder = std::move(parent);
    }
    if (!holdsSome) continue;
    const auto known = Read().Items.find(IdentityAt(path, false));
    if (known != Read().Items.end()) return Sentence(known->second, function);
  }
  return {};
}

std::string ProtectedItems::Sentence(Kind kind, FileFunction function) {
  constexpr std::array subjects = {
      "The root folder",
      "The home folder",
      "The folder of Windows",
      "The folder of the program's own files",
      "A folder on which a volume is mounted",
      "A folder that holds the home folder",
      "A folder that holds the folder of Windows",
      "A folder that holds the program's own files",
      "A folder that holds a mounted volume",
  };
  return RefusalSentence(subjects.at(static_cast<std::size_t>(kind)), function);
}

}  // namespace tarnwell::platform
