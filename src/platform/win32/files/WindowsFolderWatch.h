// Notices of changes in a folder by ReadDirectoryChangesW.
#pragma once

#include <memory>
#include <string>

#include "platform/FolderWatch.h"

namespace tarnwell::platform {

class NoticePort;

// Reports from the loop of messages, 200 ms after the first of a run of changes, with the names up
// to a thousand and Everything beyond. A Watch may be destroyed within its own call. It keeps
// nobody from renaming or deleting the folder, nor from taking its volume away; the folder above is
// watched as well, since a folder hears nothing of its own end.
class WindowsFolderWatch : public FolderWatch {
 public:
  WindowsFolderWatch() = default;
  WindowsFolderWatch(const WindowsFolderWatch&) = delete;
  WindowsFolderWatch& operator=(const WindowsFolderWatch&) = delete;
  ~WindowsFolderWatch() override;

  std::unique_ptr<Watch> Start(const std::string& folder, Changed changed) override;

 private:
  std::shared_ptr<NoticePort> port_;  // of all watches; they may outlive this object
};

}  // namespace tarnwell::platform
