// What the engine of file operations gets from the system that the program runs on.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/FileOperation.h"
#include "platform/OperationUser.h"

namespace tarnwell::ui {

// As platform::FileOperation::Refusal.
using OperationRefusal =
    std::function<std::string(platform::FileFunction function, const std::string& items)>;

// Whether a call with the path may wait for another machine, and for ever.
using FarTest = std::function<bool(const std::string& path)>;

struct OperationSystem {
  // Does the work of one request on the thread that calls it, and returns when it is done.
  std::function<platform::OperationResult(const platform::OperationRequest& request,
                                          platform::OperationUser& user)>
      Run = {};
  OperationRefusal Refusal = {};
  // These two as in platform::OperationEngine.
  std::function<std::vector<std::string>(const platform::OperationRequest& request)> VolumesOf = {};
  std::function<platform::ItemFingerprint(const std::string& path, bool isWhole)> Fingerprint = {};
  FarTest IsFar = {};  // may be empty
};

}  // namespace tarnwell::ui
