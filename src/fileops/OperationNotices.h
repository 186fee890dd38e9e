// Tells the desktop of operations: how far they are, that one waits for an answer, and that a long
// one has ended while the user looks elsewhere.
//
// Decides what is worth telling; how it looks is the desktop's affair.
#pragma once

#include <functional>

#include "fileops/OperationQueue.h"
#include "platform/DesktopNotices.h"

namespace tarnwell::fileops {

class OperationNotices {
 public:
  // Milliseconds; what took no longer ends without a word.
  static constexpr std::int64_t LongTime = 10000;

  // `isActive` tells whether one of the program's windows is in use, `bringBack` shows the main
  // one.
  OperationNotices(OperationQueue& operations, platform::DesktopNotices& desktop,
                   std::function<bool()> isActive, std::function<void()> bringBack);
  OperationNotices(const OperationNotices&) = delete;
  OperationNotices& operator=(const OperationNotices&) = delete;

 private:
  void ShowEntry();
  void TellEnd(const OperationRecord& record, const platform::OperationResult& result,
               std::int64_t took) const;

  OperationQueue& operations_;
  platform::DesktopNotices& desktop_;
  const std::function<bool()> isActive_;
  const std::function<void()> bringBack_;
  platform::TaskEntry shown_;
};

}  // namespace tarnwell::fileops
