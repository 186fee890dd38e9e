#include "platform/win32/api/SystemError.h"

#include <string>

#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {
namespace {

std::string WordsFor(DWORD error) {
  wchar_t* words = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
      nullptr, error, 0, reinterpret_cast<wchar_t*>(&words), 0, nullptr);
  std::string text = length != 0 ? Narrow({words, length}) : std::string();
  LocalFree(words);
  text.resize(text.find_last_not_of("\r\n .") + 1);
  return text.empty() ? "Error " + std::to_string(error) : text;
}

}  // namespace

base::Status SystemError(DWORD error) {
  if (error == ERROR_SUCCESS) return {};
  return {static_cast<int>(error), WordsFor(error)};
}

base::Status LastError() {
  const DWORD error = GetLastError();
  return SystemError(error != ERROR_SUCCESS ? error : ERROR_GEN_FAILURE);
}

base::Status ComError(HRESULT result) {
  if (SUCCEEDED(result)) return {};
  const bool isSystems = HRESULT_FACILITY(result) == FACILITY_WIN32;
  return SystemError(isSystems ? static_cast<DWORD>(HRESULT_CODE(result))
                               : static_cast<DWORD>(result));
}

}  // namespace tarnwell::platform
