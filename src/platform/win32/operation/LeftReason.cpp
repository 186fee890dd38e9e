#include "platform/win32/operation/LeftReason.h"

#include <cstdint>

#include "base/PathSyntax.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/Fingerprint.h"
#include "platform/win32/files/ItemHandle.h"
#include "platform/win32/files/NamingError.h"
#include "platform/win32/operation/ItemSort.h"
#include "platform/win32/operation/ShellOperation.h"

namespace tarnwell::platform {
namespace {

// By making a file there, which goes at once.
DWORD ErrorOfMakingIn(const std::string& folder) {
  const std::string path = base::PathSyntax::Windows().Join(folder, "tarnwell.tmp");
  const Handle file(CreateFileW(LongPath(path).c_str(), GENERIC_WRITE | DELETE, 0, nullptr,
                                CREATE_NEW, FILE_FLAG_DELETE_ON_CLOSE, nullptr));
  const DWORD error = file ? ERROR_SUCCESS : GetLastError();
  return error == ERROR_FILE_EXISTS ? ERROR_SUCCESS : error;
}

DWORD ErrorOfReading(const std::string& path) {
  return OpenItem(path, false, GENERIC_READ) ? ERROR_SUCCESS : GetLastError();
}

DWORD ErrorOfTaking(const std::string& path) {
  const Handle item = OpenItem(path, false, DELETE);
  if (!item) return GetLastError();
  return ErrorOfMakingIn(base::PathSyntax::Windows().ParentOf(path));
}

bool HasRoomIn(const std::string& folder, std::uint64_t size) {
  ULARGE_INTEGER free;
  const BOOL isRead = GetDiskFreeSpaceExW(Wide(folder).c_str(), &free, nullptr, nullptr);
  return isRead == 0 || free.QuadPart >= size;
}

}  // namespace

base::Status ReasonOfLeft(const std::string& path, bool takes, const std::string& target) {
  if (base::Status status = FitForShell(path); !status) return status;
  if (base::Status status = FitForShell(target); !status) return status;
  DWORD error = takes ? ErrorOfTaking(path) : ErrorOfReading(path);
  if (error == ERROR_SUCCESS && !target.empty()) {
    const std::string folder = base::PathSyntax::Windows().ParentOf(target);
    error = ErrorOfMakingIn(folder);
    const bool isFull = !HasRoomIn(folder, FingerprintOf(path, false).Size);
    if (error == ERROR_SUCCESS && isFull) error = ERROR_DISK_FULL;
    const ItemSort there = SortOf(target);
    if (error == ERROR_SUCCESS && there != ItemSort::None && there != SortOf(path)) {
      return {ERROR_ALREADY_EXISTS, there == ItemSort::Folder
                                        ? "There is a folder of this name, and a file cannot take "
                                          "its place"
                                        : "There is a file of this name, and a folder cannot take "
                                          "its place"};
    }
  }
  if (error != ERROR_SUCCESS) return NamingError(error);
  return {ERROR_GEN_FAILURE, "Windows has left it, and does not say why"};
}

}  // namespace tarnwell::platform
