// A record of the items that go by names for the time between.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/FileOperation.h"

namespace tarnwell::platform {

// The file that AsideRecordName tells of. Operations side by side, and other copies of the program,
// keep their steps in it together. Failures are passed over.
class AsideRecord {
 public:
  // None is kept where there is no folder.
  explicit AsideRecord(const std::string& programFolder);

  // Several steps at once, in their order, and the same again when they are over. None are nothing.
  void Keep(const std::vector<PlacedItem>& steps) const;
  void Drop(const std::vector<PlacedItem>& steps) const;

 private:
  void Change(const std::function<void(std::vector<std::string>& paths)>& change) const;

  std::string file_;
};

}  // namespace tarnwell::platform
