#include "platform/win32/files/ItemLook.h"

#include "platform/win32/api/Handle.h"
#include "platform/win32/api/SystemError.h"
#include "platform/win32/files/LinkTarget.h"

namespace tarnwell::platform {
namespace {

// What the path leads to, every link followed.
DWORD LookAtTarget(const std::wstring& path, BY_HANDLE_FILE_INFORMATION& found) {
  const Handle target = OpenItem(path, true);
  const bool isSeen = target && GetFileInformationByHandle(target.Get(), &found) != 0;
  return isSeen ? ERROR_SUCCESS : GetLastError();
}

}  // namespace

DWORD LookAtItem(const std::wstring& path, WIN32_FIND_DATAW& found) {
  WIN32_FILE_ATTRIBUTE_DATA data;
  DWORD error = ERROR_SUCCESS;
  if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) == 0) error = GetLastError();
  const bool isHeld = error == ERROR_SHARING_VIOLATION || error == ERROR_ACCESS_DENIED;
  if (error != ERROR_SUCCESS && !isHeld) return error;
  const bool isPlain =
      error == ERROR_SUCCESS && (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
  if (isPlain) {
    found.dwFileAttributes = data.dwFileAttributes;
    found.ftCreationTime = data.ftCreationTime;
    found.ftLastAccessTime = data.ftLastAccessTime;
    found.ftLastWriteTime = data.ftLastWriteTime;
    found.nFileSizeHigh = data.nFileSizeHigh;
    found.nFileSizeLow = data.nFileSizeLow;
    found.dwReserved0 = 0;
    return ERROR_SUCCESS;
  }
  // The folder tells the tag, and of items that cannot be opened.
  const FindHandle entry(
      FindFirstFileExW(path.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, 0));
  if (entry) return ERROR_SUCCESS;
  return error != ERROR_SUCCESS ? error : GetLastError();
}

base::Status ReadItem(const std::wstring& path, ItemAttributes& attributes) {
  WIN32_FIND_DATAW found;
  if (const DWORD error = LookAtItem(path, found); error != ERROR_SUCCESS) {
    return SystemError(error);
  }
  attributes = AttributesFrom(found);
  if (!IsLinkEntry(found)) return {};
  const bool isHidden = attributes.IsHidden, isSystem = attributes.IsSystem;
  BY_HANDLE_FILE_INFORMATION target;
  const bool isThere = LookAtTarget(path, target) == ERROR_SUCCESS;
  if (isThere) attributes = AttributesFrom(target);
  attributes.IsHidden = isHidden;
  attributes.IsSystem = isSystem;
  // The root of another volume looks like a link, and is a folder for whoever works with it.
  attributes.IsLink = !IsVolumeTarget(ReadLinkTarget(path));
  attributes.IsBroken = !isThere && attributes.IsLink;
  if (attributes.IsBroken) {
    attributes.Kind = ItemKind::Other;
    attributes.Size = 0;
  }
  return {};
}

DWORD FindFolder(const std::wstring& path) {
  BY_HANDLE_FILE_INFORMATION found;
  if (const DWORD error = LookAtTarget(path, found); error != ERROR_SUCCESS) return error;
  const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return isFolder ? ERROR_SUCCESS : ERROR_DIRECTORY;
}

base::Status NoFileError() {
  constexpr int directoryNotSupported = 336;  // ERROR_DIRECTORY_NOT_SUPPORTED of winerror.h
  return {directoryNotSupported, "Is a folder"};
}

}  // namespace tarnwell::platform
