#include "platform/win32/files/CheckTarget.h"

#include "base/PathSyntax.h"
#include "base/Text.h"
#include "platform/win32/api/Handle.h"
#include "platform/win32/files/ItemLook.h"
#include "platform/win32/files/NamingError.h"
#include "platform/win32/files/SystemPath.h"

namespace tarnwell::platform {
namespace {

base::Status NoFolder(DWORD error, std::string_view name, bool isLink) {
  const char* const what = isLink ? " is a link that leads to no folder." : " is no folder.";
  return {static_cast<int>(error),
          '"' + base::ForDisplay(name) + '"' + what + " Type the path of a folder."};
}

// Whether a folder can be made in it.
DWORD MayMakeIn(const std::wstring& folder) {
  const Handle opened = OpenItem(folder, true, FILE_ADD_SUBDIRECTORY);
  return opened ? ERROR_SUCCESS : GetLastError();
}

}  // namespace

base::Status CheckTarget(const std::string& path) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  std::string folder = path;
  // Up to the nearest one that is there.
  for (bool isMissing = false;; isMissing = true) {
    const SystemPath reached(folder);
    if (reached.Error() != ERROR_SUCCESS) return NamingError(reached.Error());
    const DWORD error = FindFolder(reached.Wide());
    if (error == ERROR_SUCCESS) {
      return NamingError(isMissing ? MayMakeIn(reached.Wide()) : ERROR_SUCCESS);
    }
    const std::string_view name = syntax.LastComponent(folder);
    WIN32_FIND_DATAW found;
    if (LookAtItem(reached.Wide(), found) == ERROR_SUCCESS) {
      const bool isLink = IsLinkEntry(found);
      const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
      return isLink || !isFolder ? NoFolder(error, name, isLink) : NamingError(error);
    }
    const std::string above = syntax.ParentOf(folder);
    const bool isMissingHere =
        error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_DIRECTORY;
    if (above.empty() || above == folder) {
      const DWORD gone =
          syntax.FindNetworkStart(folder) == 0 ? ERROR_BAD_NETPATH : ERROR_INVALID_DRIVE;
      return NamingError(isMissingHere ? gone : error);
    }
    if (!isMissingHere) return NamingError(error);
    if (!syntax.IsName(name)) return NamingError(ERROR_INVALID_NAME);
    folder = above;
  }
}

}  // namespace tarnwell::platform
