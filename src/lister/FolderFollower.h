// Follows the folder of a list on disk: one watch, moved from folder to folder, with a bracket in
// which it rests.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/FolderWatch.h"

namespace tarnwell::lister {

class FolderFollower {
 public:
  FolderFollower(platform::FolderWatch& watches, platform::FolderWatch::Changed changed)
      : watches_(watches), changed_(std::move(changed)) {}

  // From now on this is the folder to watch, at once unless stopped. Empty for none.
  void Follow(const std::string& folder) {
    if (folder == folder_ && watch_ && !worn_) return;
    folder_ = folder;
    Watch();
  }
  // No notices until Resume, whatever is followed meanwhile.
  void Stop() {
    stopped_ = true;
    watch_.reset();
  }
  void Resume() {
    stopped_ = false;
    if (!watch_) Watch();
  }

 private:
  void Watch() {
    worn_ = false;
    watch_.reset();
    if (stopped_ || folder_.empty()) return;
    watch_ = watches_.Start(folder_, [this](const platform::FolderChanges& changes) {
      // The folder may have gone and come again, and the watch be on the one that went.
      worn_ = true;
      changed_(changes);
    });
  }

  platform::FolderWatch& watches_;
  platform::FolderWatch::Changed changed_;
  std::string folder_;
  std::unique_ptr<platform::Watch> watch_;
  bool stopped_ = false;
  bool worn_ = false;  // a notice came: to be renewed with the next read
};

}  // namespace tarnwell::lister
