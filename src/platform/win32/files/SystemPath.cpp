#include "platform/win32/files/SystemPath.h"

#include <algorithm>

#include "platform/win32/api/WideName.h"

namespace tarnwell::platform {
namespace {

// As far as paths go: a volume without a letter begins by R"(\\?\)".
constexpr std::string_view DeviceMark = R"(\\?\)", InNoPath = "/:*?\"<>|";
constexpr std::size_t LongestName = 255;  // units of UTF-16

bool IsPossiblePath(std::string_view path) {
  if (path.empty() || path.find('\0') != path.npos) return false;
  if (path.starts_with(DeviceMark)) path.remove_prefix(DeviceMark.size());
  if (path.size() > 1 && path[1] == ':') {
    path.remove_prefix(2);
    if (!path.empty() && path.front() != '\\') return false;  // from a folder that was last open
  }
  return path.find_first_of(InNoPath) == path.npos;
}

bool AreNamesShort(std::wstring_view path) {
  for (std::size_t start = 0; start <= path.size();) {
    const std::size_t end = std::min(path.find(L'\\', start), path.size());
    if (end - start > LongestName) return false;
    start = end + 1;
  }
  return true;
}

}  // namespace

SystemPath::SystemPath(std::string_view path) {
  if (IsPossiblePath(path)) {
    const bool isDrive = path.size() == 2 && path[1] == ':';  // and no folder that was last open
    text_ = isDrive ? LongPath(std::string(path) + '\\') : LongPath(path);
    if (!AreNamesShort(text_)) error_ = ERROR_FILENAME_EXCED_RANGE;
  } else {
    error_ = ERROR_INVALID_NAME;
  }
}

}  // namespace tarnwell::platform
