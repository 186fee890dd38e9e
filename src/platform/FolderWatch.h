// Port: notices of changes in a folder on disk.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace tarnwell::platform {

// Watches while it lives.
class Watch {
 public:
  virtual ~Watch() = default;
};

class FolderWatch {
 public:
  virtual ~FolderWatch() = default;
  // Calls `changed` from the event loop after items of the folder came, went or changed, or the
  // folder itself went; many changes in a short time come as one call. What happens below the
  // folder's own items does not count. Gives null where the folder cannot be watched.
  virtual std::unique_ptr<Watch> Start(const std::string& folder,
                                       std::function<void()> changed) = 0;
};

}  // namespace tarnwell::platform
