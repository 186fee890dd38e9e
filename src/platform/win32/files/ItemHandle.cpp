#include "platform/win32/files/ItemHandle.h"

#include <cstring>

#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {

Handle OpenItem(const std::string& path, bool followsLink, DWORD access) {
  return OpenItem(LongPath(path), followsLink, access);
}

Handle OpenItem(const std::wstring& path, bool followsLink, DWORD access) {
  const DWORD flags = FILE_FLAG_BACKUP_SEMANTICS | (followsLink ? 0 : FILE_FLAG_OPEN_REPARSE_POINT);
  return Handle(
      CreateFileW(path.c_str(), access, ShareAll, nullptr, OPEN_EXISTING, flags, nullptr));
}

std::wstring FinalPathOf(HANDLE item) {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        GetFinalPathNameByHandleW(item, path.data(), static_cast<DWORD>(path.size()), 0);
    const bool isWhole = length < path.size();
    path.resize(length);
    if (isWhole) return path;
  }
}

ItemIdentity IdentityOf(HANDLE item) {
  FILE_ID_INFO found;
  if (GetFileInformationByHandleEx(item, FileIdInfo, &found, sizeof found) != 0) {
    std::uint64_t halves[2];
    static_assert(sizeof halves == sizeof found.FileId);
    std::memcpy(halves, &found.FileId, sizeof halves);
    return {found.VolumeSerialNumber, halves[0] ^ halves[1] * 0x9E3779B97F4A7C15U};
  }
  // File systems that keep none of 128 bits.
  BY_HANDLE_FILE_INFORMATION old;
  if (GetFileInformationByHandle(item, &old) == 0) return {};
  return {old.dwVolumeSerialNumber,
          static_cast<std::uint64_t>(old.nFileIndexHigh) << 32 | old.nFileIndexLow};
}

}  // namespace tarnwell::platform
