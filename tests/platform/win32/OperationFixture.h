// Real items for file operations.
#pragma once

#include "TempFolder.h"
#include "platform/contract/OperationCalls.h"
#include "platform/win32/files/Fingerprint.h"
#include "platform/win32/operation/RunOperation.h"

namespace tarnwell::platform {

inline OperationResult CarryOut(const OperationRequest& request, OperationUser& user) {
  return RunOperation(request, user);
}

inline ItemFingerprint PrintOf(const std::string& path, bool isWhole) {
  return FingerprintOf(path, isWhole);
}

inline void BetweenFolders(
    const std::function<void(const TempFolder& here, const TempFolder& there)>& check) {
  const TempFolder here;
  const TempFolder there;
  check(here, there);
}

}  // namespace tarnwell::platform
