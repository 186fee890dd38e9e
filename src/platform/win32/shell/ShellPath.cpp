#include "platform/win32/shell/ShellPath.h"

#include "base/PathSyntax.h"
#include "platform/win32/api/Handle.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {
namespace {

bool IsShort(const std::wstring& path) {
  return path.size() < MAX_PATH;
}

// With what a folder is searched by.
constexpr std::wstring_view allItems = L"\\*.*";

std::wstring UnfitIn(const std::wstring& folder, std::size_t longest) {
  if (folder.size() + longest + allItems.size() >= MAX_PATH) return L"\\";
  WIN32_FIND_DATAW found;
  const FindHandle items(FindFirstFileExW((LongPath(Narrow(folder)) + L"\\*").c_str(),
                                          FindExInfoBasic, &found, FindExSearchNameMatch, nullptr,
                                          FIND_FIRST_EX_LARGE_FETCH));
  for (bool isThere = static_cast<bool>(items); isThere;
       isThere = FindNextFileW(items.Get(), &found) != 0) {
    const std::wstring_view name = found.cFileName;
    if (name == L"." || name == L"..") continue;
    const std::wstring way = L'\\' + std::wstring(name);
    if (folder.size() + longest + way.size() >= MAX_PATH) return way;
    const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 &&
                          (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0;
    if (!isFolder) continue;
    if (const std::wstring below = UnfitIn(folder + way, longest); !below.empty()) {
      return below.size() > 1 ? way + below : way;
    }
  }
  return {};
}

}  // namespace

std::string UnfitBelow(const std::string& folder, const std::string& target) {
  const std::size_t here = Wide(folder).size(), there = Wide(target).size();
  return Narrow(UnfitIn(Wide(folder), there > here ? there - here : 0));
}

bool AreNamesOfTheShell(std::string_view path) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  while (!path.empty() && !syntax.IsDriveRoot(path)) {
    if (path.ends_with(syntax.Separator)) path.remove_suffix(1);
    const std::size_t end = path.rfind(syntax.Separator);
    if (end == path.npos || path.substr(0, end + 1) == syntax.NetworkMark) break;
    if (!syntax.IsName(path.substr(end + 1))) return false;
    path = path.substr(0, end + 1);
  }
  return true;
}

base::Status NamesFault() {
  return {ERROR_INVALID_NAME,
          "Other programs take no name that ends in a dot or a blank, or is that of a device"};
}

base::Status LengthFault() {
  return {ERROR_FILENAME_EXCED_RANGE,
          "The path has more than 259 characters, which is more than other programs take"};
}

base::Status ReadShellPath(const std::string& path, std::wstring& shellPath) {
  shellPath = Wide(path);
  const bool areNames = AreNamesOfTheShell(path);
  if (IsShort(shellPath) && areNames) return {};
  std::wstring brief(MAX_PATH + path.size(), L'\0');
  brief.resize(
      GetShortPathNameW(LongPath(path).c_str(), brief.data(), static_cast<DWORD>(brief.size())));
  const std::string name = FromLongPath(brief);
  shellPath = Wide(name);
  if (!name.empty() && IsShort(shellPath) && AreNamesOfTheShell(name)) return {};
  return areNames ? LengthFault() : NamesFault();
}

}  // namespace tarnwell::platform
