#include "platform/win32/operation/WindowsRenames.h"

#include <utility>

#include "platform/win32/files/Fingerprint.h"
#include "platform/win32/files/NamingError.h"
#include "platform/win32/files/RenameItem.h"
#include "platform/win32/operation/ItemSort.h"

namespace tarnwell::platform {
namespace {

TakenStep FailedRename(base::Status failure) {
  TakenStep step;
  step.IsNameTaken = failure.Code == ERROR_ALREADY_EXISTS || failure.Code == ERROR_FILE_EXISTS;
  step.Failure = std::move(failure);
  return step;
}

}  // namespace

TakenStep WindowsRenames::Take(const PlacedItem& step, const ItemFingerprint* expected) {
  ItemSort sort = ItemSort::None;
  base::Status status = FindSort(step.From, sort);
  if (!status) return FailedRename(std::move(status));
  if (sort == ItemSort::None) {
    if (expected != nullptr) return {.Is = TakenStep::Way::Gone};
    return FailedRename(ReasonOfMissing(step.From));
  }
  const ItemFingerprint print = FingerprintOf(step.From, false);
  if (expected != nullptr && !IsSameItem(print, *expected)) return {.Is = TakenStep::Way::Other};
  std::string refusal = check_.Refusal(step.From);
  if (!refusal.empty()) return FailedRename({ERROR_ACCESS_DENIED, std::move(refusal)});
  status = NamingError(RenameItem(step.From, step.To));
  if (!status) return FailedRename(std::move(status));
  return {.Is = TakenStep::Way::Renamed, .Print = print};
}

bool WindowsRenames::GiveBack(const PlacedItem& step) {
  return RenameItem(step.To, step.From) == ERROR_SUCCESS;
}

void WindowsRenames::TellOfOther(const std::string& path, bool isGone) {
  check_.TellOfOther(path, isGone);
}

}  // namespace tarnwell::platform
