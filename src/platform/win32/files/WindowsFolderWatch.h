// Notices of changes in a folder by ReadDirectoryChangesW.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/FolderWatch.h"

namespace tarnwell::platform {

class NoticePort;
class OpenWatches;

// Reports from the loop of messages, 200 ms after the first of a run of changes, with the names up
// to a thousand and Everything beyond. A Watch may be destroyed within its own call. It keeps
// nobody from renaming or deleting the folder, nor from taking its volume away; the folder above is
// watched as well, since a folder hears nothing of its own end. A folder further up is not renamed
// by the system while anything below it is open: see LettingGo.
class WindowsFolderWatch : public FolderWatch {
 public:
  WindowsFolderWatch();
  WindowsFolderWatch(const WindowsFolderWatch&) = delete;
  WindowsFolderWatch& operator=(const WindowsFolderWatch&) = delete;
  ~WindowsFolderWatch() override;

  std::unique_ptr<Watch> Start(const std::string& folder, Changed changed) override;

  // A call that lets go of whatever is watched below the folder, and gives what it is to be let go
  // of for: the watches begin anew with that, and tell Everything. Null where there is none to let
  // go of, and on all threads but that of the watches. May outlive this object.
  std::function<std::shared_ptr<void>(const std::string& folder)> LettingGo() const;

 private:
  // Of all watches; they may outlive this object.
  std::shared_ptr<NoticePort> port_;
  const std::shared_ptr<OpenWatches> watches_;
};

}  // namespace tarnwell::platform
