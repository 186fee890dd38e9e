#include "platform/operation/RenameTogether.h"

#include <utility>

#include "base/PathSyntax.h"
#include "base/Text.h"
#include "platform/CountedTexts.h"
#include "platform/RenameDetours.h"

namespace tarnwell::platform {
namespace {

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

}  // namespace

bool IsSameItem(const ItemFingerprint& found, const ItemFingerprint& expected) {
  if (expected.Number == 0) return found == expected;
  return found.Device == expected.Device && found.Number == expected.Number &&
         found.Born == expected.Born && found.Kind == expected.Kind;
}

void RenameTogether::Run(std::vector<PlacedItem> steps,
                         const std::vector<ItemFingerprint>& expected) {
  steps_ = std::move(steps);
  wholes_ = WholesOf(steps_);
  const std::vector<PlacedItem> record = StepsOnRecord(steps_);
  system_.Keep(record);
  talk_.SetTotal(steps_.size());
  bool isOnRecord = false;
  for (;;) {
    TakenStep failure;
    if (GoAhead(expected, failure)) break;
    isOnRecord = !GoBack();
    if (failure.Failure) break;  // cancelled
    const OperationStep told =
        isOnRecord ? OperationStep::RenameInPart : OperationStep::RenameTogether;
    const bool triesAgain = talk_.Retries(told, wholes_[done_].From, ReasonOf(failure));
    if (isOnRecord) talk_.NoteLeft(failure.Failure.Code);  // whatever the answer was
    if (isOnRecord || !triesAgain) break;
  }
  if (!isOnRecord) system_.Drop(record);
  Note();
}

bool RenameTogether::GoAhead(const std::vector<ItemFingerprint>& expected, TakenStep& failure) {
  taken_.assign(steps_.size(), {});
  for (done_ = 0; done_ < steps_.size(); ++done_) {
    if (!talk_.GoesOn()) return false;
    if (talk_.IsReportDue()) talk_.Report(wholes_[done_].From, wholes_[done_].To);
    TakenStep taken = system_.Take(steps_[done_], expected.empty() ? nullptr : &expected[done_]);
    if (taken.Is == TakenStep::Way::Failed) {
      failure = std::move(taken);
      return false;
    }
    taken_[done_] = std::move(taken);
    talk_.SetItemsDone(done_ + 1);
  }
  return true;
}

// There is nobody who types a name by now.
base::Status RenameTogether::ReasonOf(const TakenStep& failure) const {
  constexpr std::string_view reason = "It was to be called \"%1\". %2";
  const std::string text =
      failure.IsNameTaken ? "There is an item of this name already." : failure.Failure.Reason;
  const std::string_view name = base::PathSyntax::Native().LastComponent(wholes_[done_].To);
  return {failure.Failure.Code, Filled(reason, {base::ForDisplay(name), text})};
}

bool RenameTogether::GoBack() {
  bool isAllBack = true;
  for (std::size_t at = done_; at > 0; --at) {
    TakenStep& taken = taken_[at - 1];
    if (taken.Is != TakenStep::Way::Renamed) continue;
    const PlacedItem& step = steps_[at - 1];
    if (system_.GiveBack(step)) {
      taken.Is = TakenStep::Way::Failed;
      continue;
    }
    isAllBack = false;
    talk_.Remark(OperationRemark::KeptNewName, step.To);
  }
  talk_.SetItemsDone(0);
  return isAllBack;
}

// What went by a name for the time between is told to have come from where it was before.
void RenameTogether::Note() {
  using enum TakenStep::Way;
  for (std::size_t at = 0; at < steps_.size(); ++at) {
    const PlacedItem& step = steps_[at];
    const TakenStep& taken = taken_[at];
    const bool isDetour = step.From != wholes_[at].From;
    if ((taken.Is == Gone || taken.Is == Other) && !isDetour) {
      system_.TellOfOther(step.From, taken.Is == Gone);
    }
    if (taken.Is != Renamed) continue;
    talk_.NoteDone({step.From, step.To, taken.Print});
    if (step.To == wholes_[at].To) talk_.NotePlaced(wholes_[at].From, step.To);
  }
}

}  // namespace tarnwell::platform
