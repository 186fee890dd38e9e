#include "platform/linux/operation/RenameTogether.h"

#include <cerrno>
#include <unordered_map>
#include <utility>

#include "platform/RenameDetours.h"
#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/files/NamingError.h"
#include "platform/linux/files/RenameItem.h"
#include "platform/linux/operation/OpenPlace.h"
#include "platform/linux/posix/ItemIdentity.h"

namespace tarnwell::platform {
namespace {

// Where the numbers of items last, they alone tell: a name is given back to the same item, whatever
// has been written to it.
bool IsSameItem(const ItemFingerprint& found, const ItemFingerprint& expected) {
  if (expected.Number == 0) return found == expected;
  return found.Device == expected.Device && found.Number == expected.Number &&
         found.Born == expected.Born && found.Kind == expected.Kind;
}

// A killed run leaves the record, by which the next one sees how far a circle has come.
std::vector<PlacedItem> StepsOnRecord(const std::vector<PlacedItem>& steps) {
  std::vector<PlacedItem> record;
  for (const RenameDetour& detour : DetoursOf(steps)) {
    for (std::size_t at = detour.First; at <= detour.Last; ++at) record.push_back(steps[at]);
  }
  return record;
}

std::string FolderPathOf(const std::string& path) {
  return path.substr(0, path.rfind('/'));
}

std::string NameOfPath(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

}  // namespace

void RenameTogether::Run(std::vector<PlacedItem> steps,
                         const std::vector<ItemFingerprint>& expected) {
  steps_ = std::move(steps);
  expected_ = &expected;
  const std::vector<PlacedItem> record = StepsOnRecord(steps_);
  record_.Keep(record);
  context_.SetTotal(steps_.size());
  bool isOnRecord = false;
  for (;;) {
    base::Status failure;
    if (GoAhead(failure)) break;
    isOnRecord = !GoBack();
    const bool triesAgain =
        !failure && context_.Retries(OperationStep::RenameTogether, steps_[done_].From, failure);
    if (!triesAgain || isOnRecord) break;
  }
  if (!isOnRecord) record_.Drop(record);
  Note();
}

bool RenameTogether::GoAhead(base::Status& failure) {
  prints_.assign(steps_.size(), {});
  stands_.assign(steps_.size(), false);
  for (done_ = 0; done_ < steps_.size(); ++done_) {
    if (!context_.GoesOn()) return false;
    const PlacedItem& step = steps_[done_];
    if (context_.IsReportDue()) context_.Report(step.From, step.To);
    failure = Take(step, expected_->empty() ? nullptr : &(*expected_)[done_]);
    if (!failure) return false;
    stands_[done_] = true;
    context_.SetItemsDone(done_ + 1);
  }
  return true;
}

ErrorNumber RenameTogether::OpenFolderOf(const std::string& path) {
  std::string folder = FolderPathOf(path);
  if (place_ && place_->Path == folder) return NoError;
  OpenPlace opened;
  if (const ErrorNumber error = OpenPlaceAt(folder, opened); error != NoError) return error;
  const VolumeTraits traits = TraitsOf(opened.Folder.Get());
  place_ = std::make_unique<Place>(std::move(opened.Folder), std::move(folder), traits);
  return NoError;
}

base::Status RenameTogether::Take(const PlacedItem& step, const ItemFingerprint* expected) {
  if (const ErrorNumber error = OpenFolderOf(step.From); error != NoError)
    return NamingError(error);
  const int folder = place_->Folder.Get();
  const std::string name = NameOfPath(step.From);
  struct statx found;
  if (const ErrorNumber error = LookAt(folder, name.c_str(), found); error != NoError)
    return NamingError(error);
  const ItemFingerprint print = FingerprintOf(found, place_->Traits);
  if (expected != nullptr && !IsSameItem(print, *expected))
    return {ESTALE, "It is another item by now."};
  std::string refusal = protected_.Refusal(context_.Function(), folder, name.c_str());
  if (!refusal.empty()) {
    protected_.Forget();
    return {EPERM, std::move(refusal)};
  }
  base::Status status = RenameItem(step.From, step.To, record_);
  // A folder of that path is another one from now on.
  if (status && S_ISDIR(found.stx_mode)) place_.reset();
  if (status) prints_[done_] = print;
  return status;
}

bool RenameTogether::GoBack() {
  place_.reset();
  bool isAllBack = true;
  for (std::size_t at = done_; at > 0; --at) {
    const PlacedItem& step = steps_[at - 1];
    if (RenameItem(step.To, step.From, record_)) {
      stands_[at - 1] = false;
      continue;
    }
    isAllBack = false;
    context_.Remark(OperationRemark::KeptNewName, step.To);
  }
  context_.SetItemsDone(0);
  return isAllBack;
}

// What went by a name for the time between is told to have come from where it was before.
void RenameTogether::Note() {
  std::unordered_map<std::string, std::string> origins;
  for (const RenameDetour& detour : DetoursOf(steps_)) {
    origins[steps_[detour.First].To] = steps_[detour.First].From;
  }
  for (std::size_t at = 0; at < steps_.size(); ++at) {
    if (!stands_[at]) continue;
    const PlacedItem& step = steps_[at];
    context_.NoteDone({step.From, step.To, prints_[at]});
    if (origins.contains(step.To)) continue;
    const auto origin = origins.find(step.From);
    context_.NotePlaced(origin == origins.end() ? step.From : origin->second, step.To);
  }
}

}  // namespace tarnwell::platform
