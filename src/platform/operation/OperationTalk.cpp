#include "platform/operation/OperationTalk.h"

#include <algorithm>
#include <system_error>

namespace tarnwell::platform {
namespace {

constexpr std::chrono::milliseconds reportInterval(40);

// Answers for all hold for conflicts of the same sort.
std::size_t SortOf(const OperationConflict& conflict) {
  if (conflict.IsOtherSpelling) return 3;
  const bool fromFolder = conflict.Source.Kind == ItemKind::Folder;
  const bool toFolder = conflict.Target.Kind == ItemKind::Folder;
  if (fromFolder != toFolder) return 2;
  return fromFolder ? 1 : 0;
}

}  // namespace

bool OperationTalk::GoesOn() {
  if (!result_.Aborted && !user_.GoesOn()) Cancel();
  return !result_.Aborted;
}

void OperationTalk::Cancel() {
  result_.Aborted = true;
  NoteLeft(static_cast<int>(std::errc::operation_canceled));
}

void OperationTalk::NoteLeft(int code) {
  if (result_.Code == 0) result_.Code = code;
}

void OperationTalk::Remark(OperationRemark remark, const std::string& path) {
  if (!Has(NoErrorWindows)) user_.OnRemark(remark, path);
}

bool OperationTalk::Retries(OperationStep step, const std::string& path,
                            const base::Status& reason) {
  if (result_.Aborted) return false;
  if (!skipsAll_ && !Has(NoErrorWindows)) {
    switch (user_.OnTrouble({step, path, reason})) {
      case TroubleChoice::Retry:
        // The system tells but once of what it could not write: the next try would find all well.
        if (step != OperationStep::Flush) return true;
        break;
      case TroubleChoice::Skip:
        break;
      case TroubleChoice::SkipAll:
        skipsAll_ = true;
        break;
      case TroubleChoice::Cancel:
        NoteLeft(reason.Code);
        Cancel();
        return false;
    }
  }
  NoteLeft(reason.Code);
  return false;
}

ConflictChoice OperationTalk::AskConflict(OperationConflict conflict) {
  if (Has(NoConfirmation)) return ConflictChoice::Replace;
  std::optional<ConflictChoice>& forAll = conflictForAll_.at(SortOf(conflict));
  if (forAll) return *forAll;
  conflict.Function = function_;
  const ConflictAnswer answer = user_.OnConflict(conflict);
  if (answer.Choice == ConflictChoice::Cancel) {
    Cancel();
  } else if (answer.ForAll) {
    forAll = answer.Choice;
  }
  return answer.Choice;
}

NoTrashChoice OperationTalk::AskNoTrash(const std::string& path) {
  if (noTrashForAll_) return *noTrashForAll_;
  if (Has(NoErrorWindows)) return NoTrashChoice::Skip;
  const NoTrashAnswer answer = user_.OnNoTrash(path);
  if (answer.Choice == NoTrashChoice::Cancel) {
    Cancel();
  } else if (answer.ForAll) {
    noTrashForAll_ = answer.Choice;
  }
  return answer.Choice;
}

LossChoice OperationTalk::AskLoss(const std::string& path) {
  if (Has(NoConfirmation)) return LossChoice::MoveAnyway;
  LossAnswer answer;
  if (lossForAll_) {
    answer.Choice = *lossForAll_;
  } else if (!Has(NoErrorWindows)) {
    answer = user_.OnLoss(path);
  }
  if (answer.Choice == LossChoice::Cancel) {
    Cancel();
  } else if (answer.ForAll) {
    lossForAll_ = answer.Choice;
  }
  if (answer.Choice == LossChoice::Skip) NoteLeft(static_cast<int>(std::errc::not_supported));
  return answer.Choice;
}

bool OperationTalk::MakesFolder(const std::string& path) {
  if (makesFolders_ || Has(NoConfirmNewFolder) || Has(NoConfirmation)) return true;
  if (user_.OnMissingFolder(path) == MissingFolderChoice::Make) {
    makesFolders_ = Has(OwnTargets);
    return true;
  }
  Cancel();
  return false;
}

bool OperationTalk::IsReportDue() const {
  return !Has(Silent) && std::chrono::steady_clock::now() - lastReport_ >= reportInterval;
}

void OperationTalk::Report(std::string_view from, std::string_view to) {
  OperationProgress progress = progress_;
  progress.From = from;
  progress.To = to;
  Send(progress);
}

void OperationTalk::HandOver(std::string_view from, std::string_view to) {
  progress_.IsBySystem = true;
  if (!Has(Silent)) Report(from, to);
}

void OperationTalk::TakeBack() {
  progress_.IsBySystem = false;
  if (!Has(Silent)) Report({}, {});
}

void OperationTalk::ReportEnd() {
  if (!Has(Silent)) Send(progress_);
}

void OperationTalk::Send(OperationProgress progress) {
  progress.Function = function_;
  if (totals_) totals_(progress);
  progress.BytesTotal = std::max(progress.BytesTotal, progress.BytesDone);
  progress.ItemsTotal = std::max(progress.ItemsTotal, progress.ItemsDone);
  user_.OnProgress(progress);
  lastReport_ = std::chrono::steady_clock::now();
}

}  // namespace tarnwell::platform
