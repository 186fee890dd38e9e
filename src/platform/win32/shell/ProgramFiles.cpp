#include "platform/win32/shell/ProgramFiles.h"

#include <shellapi.h>
#include <shlwapi.h>

#include <sstream>
#include <vector>

#include "platform/win32/api/ProcessText.h"

namespace tarnwell::platform {
namespace {

bool HasEnding(const std::wstring& path, const std::wstring& ending) {
  return lstrcmpiW(PathFindExtensionW(path.c_str()), ending.c_str()) == 0;
}

// ".COM", ".EXE" and the like, in the order in which they are tried.
std::vector<std::wstring> ProgramEndings() {
  std::wistringstream list(EnvironmentText(L"PATHEXT"));
  std::vector<std::wstring> endings;
  for (std::wstring each; std::getline(list, each, L';');) {
    if (!each.empty()) endings.push_back(each);
  }
  return endings;
}

std::wstring FindInPath(const std::wstring& folders, const std::wstring& name) {
  std::wstring path(MAX_PATH, L'\0');
  DWORD length = SearchPathW(folders.c_str(), name.c_str(), nullptr,
                             static_cast<DWORD>(path.size()), path.data(), nullptr);
  if (length > path.size()) {
    path.resize(length);
    length = SearchPathW(folders.c_str(), name.c_str(), nullptr, static_cast<DWORD>(path.size()),
                         path.data(), nullptr);
  }
  path.resize(length < path.size() ? length : 0);
  return path.empty() || PathIsDirectoryW(path.c_str()) != FALSE ? std::wstring() : path;
}

}  // namespace

std::wstring FindProgram(const std::wstring& name) {
  if (name.empty() || name.find_first_of(L"\\/:") != name.npos) return {};
  const std::wstring folders = EnvironmentText(L"PATH");
  const std::vector<std::wstring> endings = ProgramEndings();
  for (const std::wstring& ending : endings) {
    if (!HasEnding(name, ending)) continue;
    if (std::wstring found = FindInPath(folders, name); !found.empty()) return found;
  }
  for (const std::wstring& ending : endings) {
    if (std::wstring found = FindInPath(folders, name + ending); !found.empty()) return found;
  }
  return {};
}

// The two letters of a program's content are followed by the version of the windows that it was
// made for, and by none where it has a terminal: see SHGFI_EXETYPE of SHGetFileInfo.
bool StartsInTerminal(const std::wstring& path) {
  if (HasEnding(path, L".bat") || HasEnding(path, L".cmd")) return true;
  SHFILEINFOW unused{};
  const DWORD_PTR type = SHGetFileInfoW(path.c_str(), 0, &unused, sizeof unused, SHGFI_EXETYPE);
  return type != 0 && HIWORD(type) == 0;
}

}  // namespace tarnwell::platform
