// A record of the items that were set aside to make room for others.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/FileOperation.h"

namespace tarnwell::platform {

// The file that AsideRecordName tells of. Operations side by side, and other copies of the program,
// keep their items in it together.
class AsideRecord {
 public:
  // None is kept where there is no folder.
  explicit AsideRecord(const std::string& programFolder = {});

  // `item` is the path that the item had, `aside` the one that it gets. Failures are passed over:
  // the name says what happened too.
  void Keep(const std::string& item, const std::string& aside) const;
  // The item that got the path has its own again, or has gone.
  void Drop(const std::string& aside) const;
  // Several steps at once, in their order, and the same again when they are over. None are nothing.
  void Keep(const std::vector<PlacedItem>& steps) const;
  void Drop(const std::vector<PlacedItem>& steps) const;

 private:
  void Change(const std::function<void(std::vector<std::string>& paths)>& change) const;

  std::string folder_;
  std::string file_;
};

}  // namespace tarnwell::platform
