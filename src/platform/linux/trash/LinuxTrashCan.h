// The trash of the desktop, read from the disk.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/FolderWatch.h"
#include "platform/TrashCan.h"
#include "platform/linux/trash/TrashVolumes.h"

namespace tarnwell::platform {

// Tells from the default main context of GLib. Each volume is looked at by a thread of its own, so
// that one that hangs keeps no other waiting; such a thread is left behind, and none is added to it
// until it comes back. Where no notices come, the trash is looked at every few seconds.
class LinuxTrashCan : public TrashCan {
 public:
  // The watches and drives must outlive the views.
  LinuxTrashCan(TrashPlaces places, FolderWatch& watches, const Drives& drives);
  std::unique_ptr<TrashView> Follow(TrashListener& listener, std::string drive) override;

 private:
  const TrashPlaces places_;
  FolderWatch& watches_;
  const Drives& drives_;
  // How many threads are at work on each volume, by its top; of all views, those that went too.
  const std::shared_ptr<std::map<std::string, int>> busy_;
};

}  // namespace tarnwell::platform
