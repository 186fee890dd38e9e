// Notices of changes in a folder by inotify.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/FolderWatch.h"

namespace tarnwell::platform {

class NoticeQueue;

// Reports from the default main context of GLib, 200 ms after the first of a run of changes, with
// the names up to a thousand and Everything beyond. A Watch may be destroyed within its own call.
//
// Not by GIO's monitors: those share what they know by path, so that two of one folder by different
// paths fall silent with the first that ends, and a path that leads elsewhere by now is not seen.
class LinuxFolderWatch : public FolderWatch {
 public:
  std::unique_ptr<Watch> Start(const std::string& folder, Changed changed) override;

 private:
  std::shared_ptr<NoticeQueue> queue_;  // of all watches; they may outlive this object
};

}  // namespace tarnwell::platform
