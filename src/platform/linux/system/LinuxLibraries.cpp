#include "platform/linux/system/LinuxLibraries.h"

#include <glib.h>

namespace tarnwell::platform {

std::vector<Library> LinuxLibraries() {
  const std::string glib = std::to_string(glib_major_version) + "." +
                           std::to_string(glib_minor_version) + "." +
                           std::to_string(glib_micro_version);
  return {
      {"GLib, GObject and GIO " + glib, "LGPL 2.1 or later"},
      {"libxcb", "MIT"},
#ifdef __GLIBCXX__
      {"GNU C++ Library", "GPL 3 or later, with the GCC Runtime Library Exception"},
#endif
#ifdef __GLIBC__
      {"GNU C Library", "LGPL 2.1 or later"},
#endif
  };
}

}  // namespace tarnwell::platform
