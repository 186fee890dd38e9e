// A path on its way to the file system.
#pragma once

#include <string>
#include <string_view>

#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// The path as calls take it. None may hold what no name holds: a NUL would end it, a colon lead to
// a stream of the file, and wildcards to another item.
class SystemPath {
 public:
  explicit SystemPath(std::string_view path);

  // ERROR_SUCCESS; for a path that no item has ERROR_INVALID_NAME, or ERROR_FILENAME_EXCED_RANGE
  // where a name in it is longer than any file system takes: the system says the same of both.
  DWORD Error() const { return error_; }
  const wchar_t* Text() const { return text_.c_str(); }
  const std::wstring& Wide() const { return text_; }

 private:
  std::wstring text_;
  DWORD error_ = ERROR_SUCCESS;
};

}  // namespace tarnwell::platform
