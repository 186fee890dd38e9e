#include "platform/win32/operation/ItemSort.h"

#include <string_view>
#include <utility>
#include <vector>

#include "base/PathSyntax.h"
#include "platform/win32/api/Handle.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/ItemLook.h"
#include "platform/win32/files/NamingError.h"

namespace tarnwell::platform {
namespace {

ItemSort SortFrom(const WIN32_FIND_DATAW& found) {
  const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return isFolder && !IsLinkEntry(found) ? ItemSort::Folder : ItemSort::File;
}

void ReadEntries(const std::string& folder,
                 const std::function<void(const WIN32_FIND_DATAW& found)>& take) {
  WIN32_FIND_DATAW found;
  const std::wstring pattern = LongPath(base::PathSyntax::Windows().Join(folder, "*"));
  const FindHandle items(FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &found,
                                          FindExSearchNameMatch, nullptr,
                                          FIND_FIRST_EX_LARGE_FETCH));
  for (bool isThere = static_cast<bool>(items); isThere;
       isThere = FindNextFileW(items.Get(), &found) != 0) {
    const std::wstring_view name = found.cFileName;
    if (name != L"." && name != L"..") take(found);
  }
}

// Of a link the copy may be anything.
bool IsCopyOf(const WIN32_FIND_DATAW& item, const std::string& copy) {
  WIN32_FIND_DATAW found;
  if (LookAtItem(LongPath(copy), found) != ERROR_SUCCESS) return false;
  if (IsLinkEntry(item)) return true;
  const bool isSameSort = SortFrom(item) == SortFrom(found);
  const bool isFolder = SortFrom(item) == ItemSort::Folder;
  return isSameSort && (isFolder || (item.nFileSizeHigh == found.nFileSizeHigh &&
                                     item.nFileSizeLow == found.nFileSizeLow));
}

}  // namespace

base::Status FindSort(const std::string& path, ItemSort& sort) {
  WIN32_FIND_DATAW found;
  sort = ItemSort::None;
  const DWORD error = LookAtItem(LongPath(path), found);
  if (error == ERROR_SUCCESS) sort = SortFrom(found);
  const bool isNone = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
  return isNone ? base::Status() : NamingError(error);
}

ItemSort SortOf(const std::string& path) {
  ItemSort sort = ItemSort::None;
  static_cast<void>(FindSort(path, sort));
  return sort;
}

base::Status ReasonOfMissing(const std::string& path) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  std::string root = path;
  while (!syntax.IsDriveRoot(root)) {
    std::string above = syntax.ParentOf(root);
    if (above == root || !syntax.IsWhole(above)) return NamingError(ERROR_PATH_NOT_FOUND);
    root = std::move(above);
  }
  const bool isThere = GetFileAttributesW(LongPath(root).c_str()) != INVALID_FILE_ATTRIBUTES;
  const DWORD error = isThere ? ERROR_FILE_NOT_FOUND : GetLastError();
  const bool isNoDrive =
      !isThere && (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND);
  return NamingError(isNoDrive ? ERROR_INVALID_DRIVE : error);
}

bool FolderExists(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(LongPath(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void ReadNames(const std::string& folder,
               const std::function<void(const std::string& name, ItemSort sort)>& take) {
  ReadEntries(folder, [&](const WIN32_FIND_DATAW& found) {
    take(Narrow(found.cFileName), SortFrom(found));
  });
}

std::string FirstMissing(const std::string& from, const std::string& to) {
  std::string missing;
  std::vector<std::string> folders;
  ReadEntries(from, [&](const WIN32_FIND_DATAW& found) {
    if (!missing.empty()) return;
    const std::string way = base::PathSyntax::Windows().Separator + Narrow(found.cFileName);
    if (!IsCopyOf(found, to + way)) missing = way;
    if (SortFrom(found) == ItemSort::Folder) folders.push_back(way);
  });
  for (const std::string& way : folders) {
    if (!missing.empty()) break;
    if (const std::string below = FirstMissing(from + way, to + way); !below.empty()) {
      missing = way + below;
    }
  }
  return missing;
}

}  // namespace tarnwell::platform
