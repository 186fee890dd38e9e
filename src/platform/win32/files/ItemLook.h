// What the file system tells of an item.
#pragma once

#include <string>

#include "base/Status.h"
#include "platform/FileSystem.h"
#include "platform/win32/api/FileTime.h"
#include "platform/win32/api/Windows.h"
#include "platform/win32/files/ItemHandle.h"

namespace tarnwell::platform {

inline bool IsLinkEntry(const WIN32_FIND_DATAW& found) {
  return IsLinkTag(found.dwFileAttributes, found.dwReserved0);
}

// Of what tells attributes, times and size by the names that the system's structures share.
template <class Facts>
ItemAttributes AttributesFrom(const Facts& found) {
  ItemAttributes attributes;
  const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  attributes.Kind = isFolder ? ItemKind::Folder : ItemKind::File;
  attributes.IsHidden = (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0;
  attributes.IsSystem = (found.dwFileAttributes & FILE_ATTRIBUTE_SYSTEM) != 0;
  if (!isFolder) {
    attributes.Size = (static_cast<std::uint64_t>(found.nFileSizeHigh) << 32U) | found.nFileSizeLow;
  }
  attributes.Modified = FromFileTime(found.ftLastWriteTime);
  attributes.Created = FromFileTime(found.ftCreationTime);
  attributes.Accessed = FromFileTime(found.ftLastAccessTime);
  // The mark of a folder says nothing of what may be done in it.
  const bool isReadOnly = !isFolder && (found.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
  attributes.Mode = isFolder ? 0777 : isReadOnly ? 0444 : 0666;
  return attributes;
}

// The item itself, no link followed, also of one that a program holds for itself alone. dwReserved0
// has the tag of a reparse point; the names are not set. Gives a code of winerror.h.
DWORD LookAtItem(const std::wstring& path, WIN32_FIND_DATAW& found);

// As FileSystem::ReadAttributes.
base::Status ReadItem(const std::wstring& path, ItemAttributes& attributes);

// Whether the path leads to a folder, at its end by a link too. Gives a code of winerror.h.
DWORD FindFolder(const std::wstring& path);

// The status for a folder where only a file will do.
base::Status NoFileError();

}  // namespace tarnwell::platform
