#include "platform/linux/operation/RenameTogether.h"

#include <cerrno>
#include <utility>

#include "base/Text.h"
#include "platform/CountedTexts.h"
#include "platform/RenameDetours.h"
#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/files/NamingError.h"
#include "platform/linux/files/RenameItem.h"
#include "platform/linux/operation/ExpectedItem.h"
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

// Each step as what it is part of.
std::vector<PlacedItem> WholesOf(const std::vector<PlacedItem>& steps) {
  std::vector<PlacedItem> wholes = steps;
  for (const RenameDetour& detour : DetoursOf(steps)) {
    wholes[detour.First].To = steps[detour.Last].To;
    wholes[detour.Last].From = steps[detour.First].From;
  }
  return wholes;
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
  wholes_ = WholesOf(steps_);
  expected_ = &expected;
  const std::vector<PlacedItem> record = StepsOnRecord(steps_);
  record_.Keep(record);
  context_.SetTotal(steps_.size());
  bool isOnRecord = false;
  for (;;) {
    base::Status failure;
    if (GoAhead(failure)) break;
    isOnRecord = !GoBack();
    if (failure) break;  // cancelled
    const OperationStep told =
        isOnRecord ? OperationStep::RenameInPart : OperationStep::RenameTogether;
    const bool triesAgain = context_.Retries(told, wholes_[done_].From, ReasonOf(failure));
    if (isOnRecord) context_.NoteLeft(failure.Code);  // whatever the answer was
    if (isOnRecord || !triesAgain) break;
  }
  if (!isOnRecord) record_.Drop(record);
  Note();
}

bool RenameTogether::GoAhead(base::Status& failure) {
  prints_.assign(steps_.size(), {});
  stands_.assign(steps_.size(), false);
  left_.assign(steps_.size(), NoError);
  for (done_ = 0; done_ < steps_.size(); ++done_) {
    if (!context_.GoesOn()) return false;
    if (context_.IsReportDue()) context_.Report(wholes_[done_].From, wholes_[done_].To);
    failure = Take(done_);
    if (!failure) return false;
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
  place_ = std::make_unique<Place>(Place{std::move(opened.Folder), std::move(folder), traits});
  return NoError;
}

base::Status RenameTogether::Take(std::size_t at) {
  const PlacedItem& step = steps_[at];
  const ItemFingerprint* const expected = expected_->empty() ? nullptr : &(*expected_)[at];
  const std::string name = NameOfPath(step.From);
  struct statx found;
  ErrorNumber error = OpenFolderOf(step.From);
  if (error == NoError) error = LookAt(place_->Folder.Get(), name.c_str(), found);
  if (expected != nullptr && (error == ENOENT || error == ENOTDIR)) {
    left_[at] = ENOENT;
    return {};
  }
  if (error != NoError) return NamingError(error);
  const ItemFingerprint print = FingerprintOf(found, place_->Traits);
  if (expected != nullptr && !IsSameItem(print, *expected)) {
    left_[at] = ESTALE;
    return {};
  }
  const int folder = place_->Folder.Get();
  std::string refusal = protected_.Refusal(context_.Function(), folder, name.c_str());
  if (!refusal.empty()) {
    protected_.Forget();
    return {EPERM, std::move(refusal)};
  }
  base::Status status = RenameItem(step.From, step.To, record_);
  if (!status) return status;
  // A folder of that path is another one from now on.
  if (S_ISDIR(found.stx_mode)) place_.reset();
  prints_[at] = print;
  stands_[at] = true;
  return {};
}

// There is nobody who types a name by now.
base::Status RenameTogether::ReasonOf(const base::Status& failure) const {
  constexpr std::string_view reason = "It was to be called \"%1\". %2";
  const std::string text =
      failure.Code == EEXIST ? "There is an item of this name already." : failure.Reason;
  return {failure.Code, Filled(reason, {base::ForDisplay(NameOfPath(wholes_[done_].To)), text})};
}

bool RenameTogether::GoBack() {
  place_.reset();
  bool isAllBack = true;
  for (std::size_t at = done_; at > 0; --at) {
    if (!stands_[at - 1]) continue;
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
  for (std::size_t at = 0; at < steps_.size(); ++at) {
    const PlacedItem& step = steps_[at];
    const bool isDetour = step.From != wholes_[at].From;
    if (left_[at] != NoError && !isDetour) TellOfOther(context_, step.From, left_[at]);
    if (!stands_[at]) continue;
    context_.NoteDone({step.From, step.To, prints_[at]});
    if (step.To == wholes_[at].To) context_.NotePlaced(wholes_[at].From, step.To);
  }
}

}  // namespace tarnwell::platform
