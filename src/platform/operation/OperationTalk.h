// One operation's side of the talk with its user.
#pragma once

#include <array>
#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/OperationUser.h"

namespace tarnwell::platform {

// Keeps count of the progress, remembers the answers given for all, obeys the flags by which
// questions are not to be asked, and forms the result. Touches no file.
class OperationTalk {
 public:
  OperationTalk(OperationUser& user, FileFunction function, std::uint16_t flags)
      : user_(user), function_(function), flags_(flags) {}

  FileFunction Function() const { return function_; }
  bool Has(OperationFlags flag) const { return (flags_ & flag) != 0; }

  // False once the operation was cancelled.
  bool GoesOn();
  bool IsCancelled() const { return result_.Aborted; }
  // As if the user had done so here.
  void Cancel();

  // True to try again; otherwise the item is to be left.
  bool Retries(OperationStep step, const std::string& path, const base::Status& reason);
  // Something was left as it was without a word; the number is the system's.
  void NoteLeft(int code);
  // Something that the user is told at the end.
  void Remark(OperationRemark remark, const std::string& path);

  bool AsksToMerge() const { return user_.AsksToMerge(); }
  ConflictChoice AskConflict(OperationConflict conflict);
  NoTrashChoice AskNoTrash(const std::string& path);
  LossChoice AskLoss(const std::string& path);
  // Whether to make the missing target folder. Items with targets of their own ask but once.
  bool MakesFolder(const std::string& path);

  // An item of the request has its place.
  void NotePlaced(std::string from, std::string to) {
    result_.Placed.push_back({std::move(from), std::move(to)});
  }

  // Something was done that can be taken back, or cannot: see OperationResult.
  void NoteRenumbered(const RenumberedItem& item) { result_.Renumbered.push_back(item); }
  void NoteDone(DoneItem item) { result_.Done.push_back(std::move(item)); }
  void NoteIrrevocable() { ++result_.Irrevocable; }

  // The counting ahead, if there is one, gives the totals with every report.
  using Totals = std::function<void(OperationProgress&)>;
  void CountBy(Totals totals) { totals_ = std::move(totals); }
  void AddBytes(std::uint64_t count) { progress_.BytesDone += count; }
  std::uint64_t BytesDone() const { return progress_.BytesDone; }
  void SetBytesDone(std::uint64_t count) { progress_.BytesDone = count; }
  void AddItems(std::uint64_t count) { progress_.ItemsDone += count; }
  void SetItemsDone(std::uint64_t count) { progress_.ItemsDone = count; }
  std::uint64_t ItemsDone() const { return progress_.ItemsDone; }
  void SetTotal(std::uint64_t items) { progress_.ItemsTotal = items; }
  void AddToTotal(std::uint64_t items) { progress_.ItemsTotal += items; }
  // Whether the user would hear of progress by now.
  bool IsReportDue() const;
  void Report(std::string_view from, std::string_view to);
  // The system takes the work over, as OperationProgress::IsBySystem tells, and gives it back.
  void HandOver(std::string_view from, std::string_view to);
  void TakeBack();
  // The last word, sent whatever the time.
  void ReportEnd();

  const OperationResult& Result() const { return result_; }

 private:
  void Send(OperationProgress progress);

  OperationUser& user_;
  FileFunction function_;
  std::uint16_t flags_;
  OperationResult result_;
  OperationProgress progress_;
  Totals totals_;
  std::chrono::steady_clock::time_point lastReport_{};
  bool skipsAll_ = false;
  bool makesFolders_ = false;
  std::array<std::optional<ConflictChoice>, 4> conflictForAll_;
  std::optional<NoTrashChoice> noTrashForAll_;
  std::optional<LossChoice> lossForAll_;
};

}  // namespace tarnwell::platform
