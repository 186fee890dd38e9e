// What a watch told, taken together.
#pragma once

#include "RunUntil.h"
#include "TempFolder.h"
#include "platform/FolderWatch.h"

namespace tarnwell::platform {

struct WatchTold {
  int Calls = 0;
  std::set<std::string> Names;
  bool Everything = false;
  bool Gone = false;

  FolderWatch::Changed Take() {
    return [this](const FolderChanges& changes) {
      ++Calls;
      Names.insert(changes.Names.begin(), changes.Names.end());
      Everything |= changes.Everything;
      Gone |= changes.FolderGone;
    };
  }
  // Makes a file called "last" in the folder: nothing that happened before can still be under way
  // once that is told.
  void MakeLastChange(const std::string& path) {
    Put(path, "");
    EXPECT_TRUE(RunUntil([this] { return Names.contains("last"); }));
  }
};

}  // namespace tarnwell::platform
