// Port: notices of changes in a folder on disk.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarnwell::platform {

// What happened in a folder since the last notice.
struct FolderChanges {
  std::vector<std::string> Names;  // items that came, went or changed, each once
  bool Everything = false;         // more than is named: the folder is to be read again
  bool FolderGone = false;         // the folder itself is no longer there
};

// Watches while it lives.
class Watch {
 public:
  virtual ~Watch() = default;
};

class FolderWatch {
 public:
  virtual ~FolderWatch() = default;
  // Calls `changed` from the event loop after items of the folder came, went or changed, or the
  // folder itself went; many changes in a short time come as one call. What happens further
  // down is not told, but for what it changes in the folder's own items. Gives null where the
  // folder cannot be watched.
  using Changed = std::function<void(const FolderChanges&)>;
  virtual std::unique_ptr<Watch> Start(const std::string& folder, Changed changed) = 0;
};

}  // namespace tarnwell::platform
