#include "platform/win32/system/WindowsLibraries.h"

#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

std::vector<Library> WindowsLibraries() {
  return {
#ifdef __MINGW64_VERSION_MAJOR
      {"MinGW-w64 runtime " + std::to_string(__MINGW64_VERSION_MAJOR) + "." +
           std::to_string(__MINGW64_VERSION_MINOR),
       "ZPL 2.1 and public domain; winpthreads: MIT"},
#endif
#ifdef __GLIBCXX__
      {"GNU C++ Library", "GPL 3 or later, with the GCC Runtime Library Exception"},
#endif
  };
}

}  // namespace tarnwell::platform
