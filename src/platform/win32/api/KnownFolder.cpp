#include "platform/win32/api/KnownFolder.h"

#include <shlobj.h>

#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {

std::string FindKnownFolder(const GUID& meaning) {
  wchar_t* path = nullptr;
  const HRESULT result = SHGetKnownFolderPath(meaning, KF_FLAG_DEFAULT, nullptr, &path);
  std::string folder = SUCCEEDED(result) ? Narrow(path) : std::string();
  CoTaskMemFree(path);
  return folder;
}

}  // namespace tarnwell::platform
