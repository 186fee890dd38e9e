// A record of the item that was set aside to make room for another.
#pragma once

#include <string>

namespace tarnwell::platform {

// The file that AsideRecordName tells of.
class AsideRecord {
 public:
  // None is kept where there is no folder.
  explicit AsideRecord(const std::string& programFolder = {});

  // `item` is the path that the item had, `aside` the one that it gets. Failures are passed over:
  // the name says what happened too.
  void Keep(const std::string& item, const std::string& aside) const;
  void Drop() const;

 private:
  std::string file_;
};

}  // namespace tarnwell::platform
