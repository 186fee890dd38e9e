#include "platform/win32/api/ProcessText.h"

#include "base/PathSyntax.h"
#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {

std::wstring EnvironmentText(const wchar_t* name) {
  std::wstring text(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  text.resize(GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size())));
  return text;
}

std::wstring FullPath(const std::wstring& path) {
  std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(
      GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return full;
}

std::string FullFolder(std::string_view path) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  const std::string folder = FromLongPath(FullPath(Wide(path)));
  return syntax.IsDriveRoot(folder) ? folder : syntax.RemoveRightSlash(folder);
}

std::wstring ExecutablePath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

}  // namespace tarnwell::platform
