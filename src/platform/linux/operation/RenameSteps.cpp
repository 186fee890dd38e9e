#include "platform/linux/operation/RenameSteps.h"

#include <cerrno>
#include <utility>

#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/files/NamingError.h"
#include "platform/linux/files/RenameItem.h"
#include "platform/linux/operation/ExpectedItem.h"
#include "platform/linux/operation/OpenPlace.h"
#include "platform/linux/posix/ItemIdentity.h"

namespace tarnwell::platform {
namespace {

TakenStep FailedStep(base::Status failure) {
  TakenStep step;
  step.IsNameTaken = failure.Code == EEXIST;
  step.Failure = std::move(failure);
  return step;
}

}  // namespace

ErrorNumber RenameSteps::OpenFolderOf(const std::string& path) {
  std::string folder = path.substr(0, path.rfind('/'));
  if (place_ && place_->Path == folder) return NoError;
  OpenPlace opened;
  if (const ErrorNumber error = OpenPlaceAt(folder, opened); error != NoError) return error;
  const VolumeTraits traits = TraitsOf(opened.Folder.Get());
  place_ = std::make_unique<Place>(Place{std::move(opened.Folder), std::move(folder), traits});
  return NoError;
}

TakenStep RenameSteps::Take(const PlacedItem& step, const ItemFingerprint* expected) {
  const std::string name = step.From.substr(step.From.rfind('/') + 1);
  struct statx found;
  ErrorNumber error = OpenFolderOf(step.From);
  if (error == NoError) error = LookAt(place_->Folder.Get(), name.c_str(), found);
  if (expected != nullptr && (error == ENOENT || error == ENOTDIR)) {
    return {.Is = TakenStep::Way::Gone};
  }
  if (error != NoError) return FailedStep(NamingError(error));
  const ItemFingerprint print = FingerprintOf(found, place_->Traits);
  if (expected != nullptr && !IsSameItem(print, *expected)) return {.Is = TakenStep::Way::Other};
  const int folder = place_->Folder.Get();
  std::string refusal = protected_.Refusal(context_.Function(), folder, name.c_str());
  if (!refusal.empty()) {
    protected_.Forget();
    return FailedStep({EPERM, std::move(refusal)});
  }
  base::Status status = RenameItem(step.From, step.To, record_);
  if (!status) return FailedStep(std::move(status));
  // A folder of that path is another one from now on.
  if (S_ISDIR(found.stx_mode)) place_.reset();
  return {.Is = TakenStep::Way::Renamed, .Print = print};
}

bool RenameSteps::GiveBack(const PlacedItem& step) {
  place_.reset();
  return static_cast<bool>(RenameItem(step.To, step.From, record_));
}

void RenameSteps::TellOfOther(const std::string& path, bool isGone) {
  platform::TellOfOther(context_, path, isGone ? ENOENT : ESTALE);
}

}  // namespace tarnwell::platform
