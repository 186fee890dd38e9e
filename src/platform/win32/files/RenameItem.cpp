#include "platform/win32/files/RenameItem.h"

#include "base/PathSyntax.h"
#include "platform/win32/api/Handle.h"
#include "platform/win32/api/WideName.h"
#include "platform/win32/files/SystemPath.h"

namespace tarnwell::platform {
namespace {

constexpr int AsideAttempts = 100;

DWORD MoveNew(const std::wstring& from, const std::wstring& to) {
  return MoveFileExW(from.c_str(), to.c_str(), 0) != 0 ? ERROR_SUCCESS : GetLastError();
}

// Whether the folder has the item under just this spelling of its name.
bool HasSpelling(const SystemPath& path, std::string_view name) {
  WIN32_FIND_DATAW found;
  const FindHandle entry(
      FindFirstFileExW(path.Text(), FindExInfoBasic, &found, FindExSearchNameMatch, nullptr, 0));
  return entry && Narrow(found.cFileName) == name;
}

// By a third name, that says what happened should the program end in between.
DWORD Respell(const std::wstring& from, const std::wstring& to) {
  std::wstring aside;
  DWORD error = ERROR_ALREADY_EXISTS;
  for (int number = 1; error == ERROR_ALREADY_EXISTS && number <= AsideAttempts; ++number) {
    aside = from + L" (being renamed " + std::to_wstring(number) + L')';
    error = MoveNew(from, aside);
  }
  if (error != ERROR_SUCCESS) return error;
  error = MoveNew(aside, to);
  if (error != ERROR_SUCCESS) MoveNew(aside, from);
  return error;
}

}  // namespace

DWORD RenameItem(const std::string& from, const std::string& to) {
  const base::PathSyntax& syntax = base::PathSyntax::Windows();
  const SystemPath source(from), target(to);
  const std::string_view name = syntax.LastComponent(to);
  if (source.Error() != ERROR_SUCCESS) return source.Error();
  if (target.Error() != ERROR_SUCCESS) return target.Error();
  if (!syntax.IsName(name)) return ERROR_INVALID_NAME;
  const DWORD error = MoveNew(source.Wide(), target.Wide());
  // Some file systems take a change of case for done already.
  const bool isOtherCase = error == ERROR_SUCCESS && from != to && syntax.Same(from, to);
  return isOtherCase && !HasSpelling(target, name) ? Respell(source.Wide(), target.Wide()) : error;
}

}  // namespace tarnwell::platform
