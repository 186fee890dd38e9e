// Whether an item of a request may be worked on.
#pragma once

#include <string>
#include <unordered_set>

#include "platform/operation/OperationTalk.h"
#include "platform/win32/files/ItemHandle.h"
#include "platform/win32/files/ProtectedItems.h"

namespace tarnwell::platform {

// Each of these is false where the item is to be left, of which the user has heard.
class ItemCheck {
 public:
  ItemCheck(OperationTalk& talk, const std::string& programFolder)
      : talk_(talk), programFolder_(programFolder), protected_(programFolder) {}

  // And the shell can be asked for it.
  bool IsThere(const std::string& path, const ItemFingerprint* expected);
  // It is not protected.
  bool MayTake(const std::string& path);
  // Why it may not be taken; empty where it may.
  std::string Refusal(const std::string& path);
  // All is well with an item of which nothing is expected: null.
  bool IsAsExpected(const std::string& path, const ItemFingerprint* expected);
  // The shell can be asked for all that lies in it too; `target` is empty for none.
  bool IsFitBelow(const std::string& path, const std::string& target);
  // A folder does not go into itself, and the shell can be asked for the target.
  bool MayBecome(const std::string& from, const std::string& to);

  // Tells that the item is gone, or another one.
  void TellOfOther(const std::string& path, bool isGone);

 private:
  bool IsInto(const std::string& from, const std::string& to);

  OperationTalk& talk_;
  const std::string programFolder_;
  ProtectedItems protected_;
  // The folder that a target lay in last, and what is on the way to it.
  std::string wayFrom_;
  std::unordered_set<ItemIdentity, HashItemIdentity> way_;
};

}  // namespace tarnwell::platform
