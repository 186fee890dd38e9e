#include "platform/win32/operation/TargetFolder.h"

#include "base/PathSyntax.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/NamingError.h"
#include "platform/win32/operation/ItemSort.h"
#include "platform/win32/operation/ShellOperation.h"

namespace tarnwell::platform {
namespace {

DWORD MakeFolderPath(const std::string& folder) {
  if (CreateDirectoryW(LongPath(folder).c_str(), nullptr) != 0) return ERROR_SUCCESS;
  const DWORD error = GetLastError();
  if (error == ERROR_ALREADY_EXISTS && FolderExists(folder)) return ERROR_SUCCESS;
  const std::string above = base::PathSyntax::Windows().ParentOf(folder);
  if (error != ERROR_PATH_NOT_FOUND || above == folder || FolderExists(above)) return error;
  if (const DWORD failed = MakeFolderPath(above); failed != ERROR_SUCCESS) return failed;
  return CreateDirectoryW(LongPath(folder).c_str(), nullptr) != 0 ? ERROR_SUCCESS : GetLastError();
}

}  // namespace

bool HasTarget(OperationTalk& talk, const std::string& folder) {
  for (;;) {
    base::Status status;
    if (!FolderExists(folder)) {
      ItemSort sort = ItemSort::None;
      status = FindSort(folder, sort);
      if (status && sort != ItemSort::None) status = NamingError(ERROR_DIRECTORY);
      if (status) status = FitForShell(folder);
      // Nobody is asked whether to make what cannot be made.
      const base::Status missing = ReasonOfMissing(folder);
      if (status && missing.Code == ERROR_INVALID_DRIVE) status = missing;
      if (status) {
        if (!talk.MakesFolder(folder)) return false;
        status = NamingError(MakeFolderPath(folder));
      }
    }
    if (status) return true;
    if (!talk.Retries(OperationStep::Find, folder, status)) return false;
  }
}

}  // namespace tarnwell::platform
