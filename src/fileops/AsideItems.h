// Items that a run has left under other names, which was killed while it replaced or renamed them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/FileOperation.h"
#include "platform/FileSystem.h"

namespace tarnwell::fileops {

class AsideItems {
 public:
  // `record` is what the file of platform::AsideRecordName holds.
  AsideItems(platform::FileSystem& files, std::string_view record);

  // What is there under another name: the path that it had, and the one that it has.
  const std::vector<platform::PlacedItem>& Found() const { return found_; }
  // Whether one of them can have its name back. Where names were being exchanged in a circle, all
  // that the circle has renamed so far goes back with it.
  bool CanGoBack() const { return !ways_.empty(); }
  // Gives these names back, and overwrites nothing. Gives a line for each that could not have it.
  std::vector<std::string> GoBack();
  // The part of the record about folders that are not there, and may come back with their drive.
  const std::string& Away() const { return away_; }

 private:
  using Steps = std::vector<platform::PlacedItem>;
  // Steps that lead through one other name. Others may have been at the items since.
  void Take(const Steps& steps);
  Steps WayBack(const Steps& steps) const;

  platform::FileSystem& files_;
  std::vector<platform::PlacedItem> found_;
  std::vector<Steps> ways_;
  std::string away_;
};

}  // namespace tarnwell::fileops
