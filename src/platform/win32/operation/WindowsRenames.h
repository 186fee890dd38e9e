// The steps of renames that count as one.
#pragma once

#include <string>
#include <vector>

#include "platform/operation/RenameTogether.h"
#include "platform/win32/operation/AsideRecord.h"
#include "platform/win32/operation/ItemCheck.h"

namespace tarnwell::platform {

// By the file system and not by the shell, which would ask where a name is taken.
class WindowsRenames : public RenameSystem {
 public:
  WindowsRenames(ItemCheck& check, const std::string& programFolder)
      : check_(check), record_(programFolder) {}

  TakenStep Take(const PlacedItem& step, const ItemFingerprint* expected) override;
  bool GiveBack(const PlacedItem& step) override;
  void Keep(const std::vector<PlacedItem>& steps) override { record_.Keep(steps); }
  void Drop(const std::vector<PlacedItem>& steps) override { record_.Drop(steps); }
  void TellOfOther(const std::string& path, bool isGone) override;

 private:
  ItemCheck& check_;
  const AsideRecord record_;
};

}  // namespace tarnwell::platform
