#include "platform/win32/shell/ExecuteByShell.h"

#include <shellapi.h>
#include <shlobj.h>

#include "platform/win32/api/SystemError.h"

namespace tarnwell::platform {

base::Status ExecuteByShell(const ShellVerb& call) {
  const auto orNull = [](const std::wstring& text) {
    return text.empty() ? nullptr : text.c_str();
  };
  SHELLEXECUTEINFOW info{};
  info.cbSize = sizeof info;
  info.fMask = SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
  info.hwnd = call.Owner;
  info.lpVerb = orNull(call.Verb);
  info.lpFile = call.File.c_str();
  info.lpParameters = orNull(call.Parameters);
  info.lpDirectory = orNull(call.Folder);
  info.nShow = SW_SHOWNORMAL;
  SetLastError(ERROR_SUCCESS);
  if (ShellExecuteExW(&info) != FALSE) return {};
  const base::Status status = LastError();
  // The system's words have a gap for the name.
  if (status.Code == ERROR_BAD_EXE_FORMAT) return {status.Code, "It is no program for this system"};
  return status;
}

base::Status AskWhatOpens(const std::wstring& file, HWND owner) {
  OPENASINFO info{};
  info.pcszFile = file.c_str();
  info.oaifInFlags = OAIF_ALLOW_REGISTRATION | OAIF_REGISTER_EXT | OAIF_EXEC;
  const HRESULT result = SHOpenWithDialog(owner, &info);
  return result == HRESULT_FROM_WIN32(ERROR_CANCELLED) ? base::Status() : ComError(result);
}

}  // namespace tarnwell::platform
