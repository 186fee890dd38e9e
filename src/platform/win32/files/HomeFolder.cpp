#include "platform/win32/files/HomeFolder.h"

#include "platform/win32/api/Windows.h"
// Behind the system's own, which they need.
#include <knownfolders.h>
#include <shlobj.h>

#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {

std::string FindHomeFolder() {
  wchar_t* path = nullptr;
  const HRESULT result = SHGetKnownFolderPath(FOLDERID_Profile, 0, nullptr, &path);
  const std::string folder = SUCCEEDED(result) ? Narrow(path) : std::string();
  CoTaskMemFree(path);
  return folder;
}

}  // namespace tarnwell::platform
