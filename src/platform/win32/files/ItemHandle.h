// Items that are opened to be looked at alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/win32/api/Handle.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

inline constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Of the item at the path, or of what a link in its place leads to. Others may write it, rename it
// and delete it meanwhile. None where the call fails, with the reason in GetLastError.
Handle OpenItem(const std::string& path, bool followsLink, DWORD access = FILE_READ_ATTRIBUTES);
// The same of a path as calls take it.
Handle OpenItem(const std::wstring& path, bool followsLink, DWORD access = FILE_READ_ATTRIBUTES);

// Where the item is, without a link on the way, as calls take paths; empty where the volume cannot
// tell.
std::wstring FinalPathOf(HANDLE item);

// Names an item, whatever its path. All zeros where it cannot be told.
struct ItemIdentity {
  std::uint64_t Volume = 0;
  std::uint64_t Number = 0;  // that of 128 bits, folded
  bool operator==(const ItemIdentity&) const = default;
};

struct HashItemIdentity {
  std::size_t operator()(const ItemIdentity& item) const {
    return static_cast<std::size_t>(item.Number ^ item.Volume << 32);
  }
};

ItemIdentity IdentityOf(HANDLE item);

// Whether the item is a symbolic link or a junction, by its attributes and the tag of what it bears
// in place of content. Others with a tag, of files in a cloud say, are what they look like.
inline bool IsLinkTag(DWORD attributes, DWORD tag) {
  return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         (tag == IO_REPARSE_TAG_SYMLINK || tag == IO_REPARSE_TAG_MOUNT_POINT);
}

}  // namespace tarnwell::platform
