#include "platform/win32/files/HomeFolder.h"

#include "platform/win32/api/KnownFolder.h"
// Behind the system's own, which it needs.
#include <knownfolders.h>

namespace tarnwell::platform {

std::string FindHomeFolder() {
  return FindKnownFolder(FOLDERID_Profile);
}

}  // namespace tarnwell::platform
