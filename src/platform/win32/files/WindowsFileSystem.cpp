#include "platform/win32/files/WindowsFileSystem.h"

#include <algorithm>
#include <new>
#include <stdexcept>
#include <utility>

#include "base/ItemList.h"
#include "platform/win32/api/Handle.h"
#include "platform/win32/api/SystemError.h"
#include "platform/win32/files/CheckTarget.h"
#include "platform/win32/files/ItemLook.h"
#include "platform/win32/files/LinkTarget.h"
#include "platform/win32/files/MeasureFolder.h"
#include "platform/win32/files/NamedStreams.h"
#include "platform/win32/files/NamingError.h"
#include "platform/win32/files/ProtectedItems.h"
#include "platform/win32/files/RenameItem.h"
#include "platform/win32/files/ReplaceContent.h"
#include "platform/win32/files/SystemPath.h"
#include "platform/win32/files/WindowsFolder.h"

namespace tarnwell::platform {
namespace {

DWORD ReadWhole(HANDLE file, std::string& content) {
  constexpr DWORD step = 1U << 20U;
  LARGE_INTEGER size{};
  GetFileSizeEx(file, &size);
  content.reserve(static_cast<std::size_t>(size.QuadPart) + step);
  for (;;) {
    const std::size_t length = content.size();
    content.resize(length + step);
    DWORD got = 0;
    const bool isRead = ::ReadFile(file, content.data() + length, step, &got, nullptr) != 0;
    content.resize(length + got);
    if (!isRead) return GetLastError();
    if (got == 0) return ERROR_SUCCESS;
  }
}

}  // namespace

const base::PathSyntax& WindowsFileSystem::Syntax() const {
  return base::PathSyntax::Windows();
}

std::unique_ptr<OpenedFolder> WindowsFileSystem::OpenFolder(const std::string& folder,
                                                            base::Status& status) const {
  return WindowsFolder::Open(folder, status);
}

base::Status WindowsFileSystem::ReadAttributes(const std::string& folder, const std::string& name,
                                               ItemAttributes& attributes) const {
  const SystemPath path(name.empty() ? folder : Syntax().Join(folder, name));
  return path.Error() == ERROR_SUCCESS ? ReadItem(path.Wide(), attributes)
                                       : SystemError(path.Error());
}

bool WindowsFileSystem::FolderExists(const std::string& path) const {
  const SystemPath folder(path);
  return folder.Error() == ERROR_SUCCESS && OpenItem(folder.Wide(), true, FILE_LIST_DIRECTORY) &&
         FindFolder(folder.Wide()) == ERROR_SUCCESS;
}

bool WindowsFileSystem::Exists(const std::string& path) const {
  const SystemPath item(path);
  WIN32_FIND_DATAW found;
  return item.Error() == ERROR_SUCCESS && LookAtItem(item.Wide(), found) == ERROR_SUCCESS;
}

std::string WindowsFileSystem::ReadLink(const std::string& path) const {
  const SystemPath link(path);
  WIN32_FIND_DATAW found;
  const bool isLink = link.Error() == ERROR_SUCCESS &&
                      LookAtItem(link.Wide(), found) == ERROR_SUCCESS && IsLinkEntry(found);
  return isLink ? ReadLinkTarget(link.Wide()) : "";
}

base::Status WindowsFileSystem::CheckTarget(const std::string& path) const {
  return platform::CheckTarget(path);
}

base::Status WindowsFileSystem::MeasureFolder(const std::string& folder, const GoOn& goOn,
                                              FolderTotal& total) const {
  return platform::MeasureFolder(folder, goOn, total);
}

base::Status WindowsFileSystem::ReadSpace(const std::string& folder, Space& space) const {
  const SystemPath path(Syntax().AddSeparator(folder));
  if (path.Error() != ERROR_SUCCESS) return SystemError(path.Error());
  ULARGE_INTEGER free, total;
  // Shares are only taken with a separator at their end.
  const std::wstring asked = path.Wide().ends_with(L'\\') ? path.Wide() : path.Wide() + L'\\';
  if (GetDiskFreeSpaceExW(asked.c_str(), &free, &total, nullptr) == 0) return LastError();
  space = {free.QuadPart, total.QuadPart};
  return {};
}

base::Status WindowsFileSystem::WriteExtendedAttribute(const std::string& path,
                                                       ExtendedAttribute attribute,
                                                       const std::string& text) {
  const SystemPath item(path);
  return item.Error() == ERROR_SUCCESS ? WriteNote(item.Wide(), attribute, text)
                                       : SystemError(item.Error());
}

base::Status WindowsFileSystem::MakeFolder(const std::string& path) {
  const SystemPath folder(path);
  if (folder.Error() != ERROR_SUCCESS) return NamingError(folder.Error());
  if (!Syntax().IsName(Syntax().LastComponent(path))) return NamingError(ERROR_INVALID_NAME);
  const bool isMade = CreateDirectoryW(folder.Text(), nullptr) != 0;
  return NamingError(isMade ? ERROR_SUCCESS : GetLastError());
}

base::Status WindowsFileSystem::Rename(const std::string& from, const std::string& to) {
  const std::string refusal =
      ProtectedItems(programFolder_).Refusal(FileFunction::Rename, base::ItemList::TextOf({from}));
  if (!refusal.empty()) return {ERROR_ACCESS_DENIED, refusal};
  DWORD error = RenameItem(from, to);
  if ((error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION) && letGo_) {
    if (const std::shared_ptr<void> until = letGo_(from)) error = RenameItem(from, to);
  }
  return NamingError(error);
}

base::Status WindowsFileSystem::ReadFile(const std::string& path, std::string& content) const {
  const SystemPath item(path);
  if (item.Error() != ERROR_SUCCESS) return SystemError(item.Error());
  if (FindFolder(item.Wide()) == ERROR_SUCCESS) return NoFileError();
  const Handle file(CreateFileW(item.Text(), GENERIC_READ, ShareAll, nullptr, OPEN_EXISTING,
                                FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!file) return LastError();
  if (GetFileType(file.Get()) != FILE_TYPE_DISK) return {ERROR_BAD_FILE_TYPE, "Not a regular file"};
  try {
    std::string text;
    const DWORD error = ReadWhole(file.Get(), text);
    if (error == ERROR_SUCCESS) content = std::move(text);
    return SystemError(error);
  } catch (const std::bad_alloc&) {
    return SystemError(ERROR_NOT_ENOUGH_MEMORY);
  } catch (const std::length_error&) {
    return SystemError(ERROR_FILE_TOO_LARGE);
  }
}

base::Status WindowsFileSystem::WriteFile(const std::string& path, const std::string& content) {
  return ReplaceContent(path, content);
}

base::Status WindowsFileSystem::RemoveFile(const std::string& path) {
  const SystemPath item(path);
  if (item.Error() != ERROR_SUCCESS) return SystemError(item.Error());
  WIN32_FIND_DATAW found;
  if (const DWORD error = LookAtItem(item.Wide(), found); error != ERROR_SUCCESS) {
    return SystemError(error);
  }
  bool isGone;
  if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
    isGone = DeleteFileW(item.Text()) != 0;
  } else if (IsLinkEntry(found) && !IsVolumeTarget(ReadLinkTarget(item.Wide()))) {
    isGone = RemoveDirectoryW(item.Text()) != 0;  // the link alone
  } else {
    return NoFileError();
  }
  return isGone ? base::Status() : LastError();
}

}  // namespace tarnwell::platform
