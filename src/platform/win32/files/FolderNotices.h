// What a watched folder has to tell, on its way from the thread that hears of it to the event loop.
#pragma once

#include <memory>
#include <mutex>
#include <set>
#include <string>

#include "platform/FolderWatch.h"

namespace tarnwell::platform {

class FolderNotices {
 public:
  FolderNotices(std::string folder, FolderWatch::Changed changed);

  const std::string& Folder() const { return folder_; }
  // These two are called on any thread; true for the first change of a run, which wants a Tell.
  bool TakeName(std::string name);
  bool TakeEverything();
  // These two on the event loop: tells what was taken since the last time, unless it is closed. The
  // call may let go of the watch.
  void Tell();
  void Close() { isOpen_ = false; }

 private:
  bool BeginRun();

  const std::string folder_;
  const FolderWatch::Changed changed_;
  bool isOpen_ = true;
  std::mutex mutex_;
  bool isRun_ = false;
  bool isEverything_ = false;
  std::set<std::string> names_;
};

}  // namespace tarnwell::platform
