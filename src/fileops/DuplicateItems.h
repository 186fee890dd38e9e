// The command that copies items to where they are, under a name with the time in it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/FormHost.h"
#include "forms/Messenger.h"
#include "platform/Clock.h"
#include "platform/FileOperation.h"
#include "platform/FileSystem.h"

namespace tarnwell::fileops {

// "yymmdd-hhmmss".
std::string TimeStamp(const platform::LocalTime& time);
// The stamp goes ahead of the path's last dot, wherever that is, or else to the end.
std::string StampedPath(std::string_view path, std::string_view stamp);

class DuplicateCommand {
 public:
  DuplicateCommand(platform::FileSystem& files, platform::FileOperation& platform,
                   const platform::Clock& clock, forms::FormHost& host, forms::Messenger& messenger)
      : files_(files), platform_(platform), clock_(clock), host_(host), messenger_(messenger) {}

  // Full paths; one stamp serves them all. Those that could not be copied are told in one message
  // when the operation is done. Gives that, or NoOperation.
  platform::OperationId DuplicateItems(const std::vector<std::string>& paths);

 private:
  struct Item {
    std::string Path;
    bool IsAsked;  // the order has a request for it
  };
  platform::OperationId Start(const std::vector<std::string>& paths);
  void TellFailures(const std::vector<Item>& items, const std::vector<int>& codes);

  platform::FileSystem& files_;
  platform::FileOperation& platform_;
  const platform::Clock& clock_;
  forms::FormHost& host_;
  forms::Messenger& messenger_;
};

}  // namespace tarnwell::fileops
