// Notices of changes in a folder by GIO.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/FolderWatch.h"

namespace tarnwell::platform {

// Reports from the default main context of GLib, 200 ms after the first of a run of changes, with
// the names up to a thousand and Everything beyond. A file that is being written all the time is
// told of about once a second. A Watch may be destroyed within its own call. Folders on other
// machines are not watched, since changes made there go unnoticed here.
class LinuxFolderWatch : public FolderWatch {
 public:
  std::unique_ptr<Watch> Start(const std::string& folder, Changed changed) override;
};

}  // namespace tarnwell::platform
