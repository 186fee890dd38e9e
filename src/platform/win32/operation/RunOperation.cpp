#include "platform/win32/operation/RunOperation.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "base/ItemList.h"
#include "base/PathSyntax.h"
#include "platform/operation/RenameTogether.h"
#include "platform/win32/files/Fingerprint.h"
#include "platform/win32/files/ItemHandle.h"
#include "platform/win32/operation/BinnedItems.h"
#include "platform/win32/operation/ItemCheck.h"
#include "platform/win32/operation/ItemSort.h"
#include "platform/win32/operation/LeftReason.h"
#include "platform/win32/operation/TargetFolder.h"
#include "platform/win32/operation/TransferPlan.h"
#include "platform/win32/operation/WindowsRenames.h"
#include "platform/win32/shell/Com.h"

namespace tarnwell::platform {
namespace {

const base::PathSyntax& RunSyntax() {
  return base::PathSyntax::Windows();
}

// Places in the bin need be no paths.
std::vector<std::string> ListOf(std::string_view list) {
  std::vector<std::string> items;
  for (const std::string_view item : base::ItemList(list)) items.emplace_back(item);
  return items;
}

// Full paths without a separator at their ends. Empty where one makes no sense.
std::vector<std::string> WholePaths(std::string_view list) {
  std::vector<std::string> paths;
  for (const std::string_view item : base::ItemList(list)) {
    const std::string_view name = RunSyntax().LastComponent(item);
    if (!RunSyntax().IsWhole(item) || name == "." || name == "..") return {};
    const bool isRoot = RunSyntax().IsDriveRoot(item);
    paths.push_back(isRoot ? std::string(item) : RunSyntax().RemoveRightSlash(item));
  }
  return paths;
}

class ShellRun {
 public:
  ShellRun(const OperationRequest& request, OperationUser& user, const std::string& programFolder,
           const ShellCall& shell)
      : request_(request),
        programFolder_(programFolder),
        shell_(shell),
        talk_(user, request.Function, request.Flags),
        check_(talk_, programFolder),
        from_((request.Flags & FromTrash) != 0 ? ListOf(request.Items) : WholePaths(request.Items)),
        destination_(base::ItemList(request.Destination).First()) {}

  OperationResult Run() {
    const bool isSense =
        !from_.empty() && (request_.Expected.empty() || request_.Expected.size() == from_.size());
    if (!isSense || !Dispatch()) return {ERROR_INVALID_PARAMETER, false};
    talk_.ReportEnd();
    return talk_.Result();
  }

 private:
  // False for what makes no sense.
  bool Dispatch() {
    const bool isTransfer =
        request_.Function == FileFunction::Copy || request_.Function == FileFunction::Move;
    const bool hasTargets = talk_.Has(OwnTargets) || talk_.Has(FromTrash);
    if (isTransfer || request_.Function == FileFunction::Rename) {
      to_ = WholePaths(request_.Destination);
      if (to_.size() != (hasTargets ? from_.size() : 1)) return false;
    }
    switch (request_.Function) {
      case FileFunction::Copy:
        if (talk_.Has(FromTrash)) return false;
        [[fallthrough]];
      case FileFunction::Move:
        if (talk_.Has(FromTrash)) {
          Restore();
        } else if (talk_.Has(OwnTargets)) {
          TransferEach();
        } else {
          Transfer();
        }
        return true;
      case FileFunction::Delete:
        if (talk_.Has(FromTrash)) return false;
        Delete();
        return true;
      case FileFunction::Rename:
        if (!hasTargets && from_.size() != 1) return false;
        Rename();
        return true;
      case FileFunction::None:
      default:
        // The shell refuses it.
        return false;
    }
  }

  const ItemFingerprint* Expected(std::size_t at) const {
    return request_.Expected.empty() ? nullptr : &request_.Expected[at];
  }

  std::vector<std::size_t> All() const {
    std::vector<std::size_t> items(from_.size());
    for (std::size_t at = 0; at < items.size(); ++at) items[at] = at;
    return items;
  }

  // --- Copies and moves

  void Transfer() {
    const bool isFolder = from_.size() > 1 || destination_.ends_with(RunSyntax().Separator);
    const bool takesItems = isFolder || FolderExists(to_[0]);
    if (isFolder && !HasTarget(talk_, to_[0])) return;
    for (const std::string& item : from_) {
      const std::string_view name = RunSyntax().LastComponent(item);
      targets_.push_back(takesItems ? RunSyntax().Join(to_[0], name) : to_[0]);
    }
    CarryOver(All(), takesItems ? RunSyntax().AddSeparator(to_[0]) : to_[0], request_.Flags);
  }

  // Those that keep their names go to their folder together, and are merged there with what has the
  // same name. The shell is given whole paths for all others alone: a folder that stands at such a
  // one would take the item in.
  void TransferEach() {
    targets_ = to_;
    std::unordered_set<std::string> given;
    for (std::size_t at = 0; at < from_.size();) {
      const std::string folder = RunSyntax().ParentOf(to_[at]);
      const bool keepsName = KeepsName(at);
      std::vector<std::size_t> group;
      for (; at < from_.size() && KeepsName(at) == keepsName &&
             (!keepsName || RunSyntax().ParentOf(to_[at]) == folder);
           ++at) {
        if (IsOnlyOne(at, given) && (keepsName || IsNoFolder(at))) group.push_back(at);
      }
      // No folder is made for what is to be left.
      std::erase_if(group, [&](std::size_t item) {
        return !MayGo(item) || !HasTarget(talk_, RunSyntax().ParentOf(to_[item]));
      });
      if (talk_.IsCancelled()) return;
      if (keepsName) {
        CarryOver(group, RunSyntax().AddSeparator(folder), request_.Flags & ~OwnTargets);
      } else {
        CarryOver(group, {}, request_.Flags);
      }
      if (talk_.IsCancelled()) return;
    }
  }

  bool IsOnlyOne(std::size_t at, std::unordered_set<std::string>& given) {
    if (given.insert(RunSyntax().Key(to_[at])).second) return true;
    talk_.Retries(OperationStep::Find, from_[at],
                  {ERROR_ALREADY_EXISTS, "Another item is to have the same path"});
    return false;
  }

  bool KeepsName(std::size_t at) const {
    return RunSyntax().LastComponent(from_[at]) == RunSyntax().LastComponent(to_[at]);
  }

  bool IsNoFolder(std::size_t at) {
    while (FolderExists(to_[at])) {
      const base::Status taken{ERROR_ALREADY_EXISTS,
                               "There is a folder of the name that it is to have"};
      if (!talk_.Retries(OperationStep::Find, from_[at], taken)) return false;
    }
    return true;
  }

  // Until all is done, or nobody wants more of it. `folder` is that of all items; empty where each
  // has a path of its own.
  void CarryOver(std::vector<std::size_t> items, const std::string& folder, int flags) {
    while (!items.empty()) {
      std::vector<std::size_t> fit;
      std::vector<std::string> paths;
      TransferPlan plan(request_.Function);
      for (const std::size_t item : items) {
        if (!talk_.GoesOn()) return;
        if (!MayGo(item)) continue;
        fit.push_back(item);
        plan.Add(item, from_[item], targets_[item]);
        paths.push_back(targets_[item]);
      }
      // Some shells move several files to one folder only if each has its path there.
      const bool isMoveOfMany = request_.Function == FileFunction::Move && fit.size() > 1;
      const bool byPaths = folder.empty() || (isMoveOfMany && plan.IsOfFiles());
      if (!byPaths) paths = {folder};
      const ShellOutcome outcome =
          CallShell(fit, std::move(paths), byPaths ? flags | OwnTargets : flags);
      const std::vector<TransferPlan::Left> left = plan.Settle(talk_);
      // Somebody has pressed "Skip" in a question about it.
      const bool wasAsked = !left.empty() && !talk_.Has(NoConfirmation) && outcome.Code == 0 &&
                            std::ranges::all_of(left, &TransferPlan::Left::IsConflict);
      if (!WantsAgain(outcome, left.empty() ? nullptr : left.data(), wasAsked)) return;
      items.clear();
      for (const TransferPlan::Left& each : left) items.push_back(each.Item);
    }
  }

  bool MayGo(std::size_t at) {
    if (!check_.IsThere(from_[at], Expected(at))) return false;
    if (request_.Function == FileFunction::Move && !check_.MayTake(from_[at])) return false;
    return check_.IsAsExpected(from_[at], Expected(at)) &&
           check_.MayBecome(from_[at], targets_[at]) &&
           (StaysWhole(at) || check_.IsFitBelow(from_[at], targets_[at]));
  }

  // It gets another path in one step, whatever lies in it.
  bool StaysWhole(std::size_t at) const {
    if (request_.Function != FileFunction::Move || FolderExists(targets_[at])) return false;
    const auto volumeOf = [](const std::string& path) {
      const Handle item = OpenItem(path, true);
      return item ? IdentityOf(item.Get()).Volume : 0;
    };
    const std::uint64_t volume = volumeOf(from_[at]);
    return volume != 0 && volume == volumeOf(RunSyntax().ParentOf(targets_[at]));
  }

  ShellOutcome CallShell(const std::vector<std::size_t>& items, std::vector<std::string> to,
                         int flags) {
    ShellWork work{.Function = request_.Function,
                   .From = {},
                   .To = std::move(to),
                   .Flags = static_cast<std::uint16_t>(flags)};
    for (const std::size_t item : items) work.From.push_back(from_[item]);
    if (work.From.empty()) return {};
    talk_.HandOver(work.From.front(), work.To.empty() ? std::string() : work.To.front());
    const ShellOutcome outcome = shell_(work);
    talk_.TakeBack();
    return outcome;
  }

  // Whether what was left is to be tried again; `left` is the first of it, null for none.
  bool WantsAgain(const ShellOutcome& outcome, const TransferPlan::Left* left, bool wasAsked) {
    if (outcome.IsCancelled()) {
      talk_.Cancel();
      return false;
    }
    if (outcome.IsAborted || wasAsked) {
      talk_.NoteLeft(ERROR_CANCELLED);
      return false;
    }
    if (outcome.Code == 0 && left == nullptr) return false;
    const std::string& about = left == nullptr ? from_.front() : left->Path;
    base::Status failure = outcome.Code != 0 ? ShellFailure(outcome.Code) : ReasonOf(*left);
    return talk_.Retries(StepOf(), about, failure) && left != nullptr;
  }

  base::Status ReasonOf(const TransferPlan::Left& left) const {
    if (left.IsHalf) {
      return {ERROR_HANDLE_EOF,
              "The copy is not as large as the original. Look whether the drive is full"};
    }
    return ReasonOfLeft(left.Path, request_.Function != FileFunction::Copy, left.Target);
  }

  OperationStep StepOf() const {
    switch (request_.Function) {
      case FileFunction::Delete:
        return talk_.Has(AllowUndo) ? OperationStep::Trash : OperationStep::Delete;
      case FileFunction::Copy:
        return OperationStep::Write;
      default:
        return OperationStep::Move;
    }
  }

  // --- Deletes

  void Delete() {
    std::vector<std::size_t> items = All();
    while (!items.empty()) {
      std::vector<std::size_t> fit;
      std::vector<BinnedItem> gone;
      for (const std::size_t item : items) {
        if (!talk_.GoesOn()) return;
        if (!MayBeDeleted(item)) continue;
        fit.push_back(item);
        if (talk_.Has(AllowUndo)) gone.push_back({from_[item], FingerprintOf(from_[item], false)});
      }
      // Whoever asked for that is not asked whether he is sure.
      const int sure = talk_.Has(NeverForGood) ? NoConfirmation : 0;
      const ShellOutcome outcome = CallShell(fit, {}, request_.Flags | sure);
      std::vector<std::size_t> left;
      for (const std::size_t item : fit) {
        if (SortOf(from_[item]) != ItemSort::None) left.push_back(item);
      }
      NoteDeleted(fit.size() - left.size(), std::move(gone));
      const TransferPlan::Left first{.Path = left.empty() ? std::string() : from_[left.front()],
                                     .Target = {}};
      if (!WantsAgain(outcome, left.empty() ? nullptr : &first, false)) return;
      items = std::move(left);
    }
  }

  bool MayBeDeleted(std::size_t at) {
    const std::string& item = from_[at];
    if (!check_.IsThere(item, Expected(at)) || !check_.MayTake(item)) return false;
    if (talk_.Has(AllowUndo) && talk_.Has(NeverForGood) && !HasBin(item)) {
      talk_.Remark(OperationRemark::HasNoTrash, item);
      talk_.NoteLeft(ERROR_NOT_SUPPORTED);
      return false;
    }
    return check_.IsAsExpected(item, Expected(at)) && check_.IsFitBelow(item, {});
  }

  void NoteDeleted(std::size_t count, std::vector<BinnedItem> gone) {
    std::erase_if(gone, [](const BinnedItem& item) { return SortOf(item.Path) != ItemSort::None; });
    for (DoneItem& item : FindInBin(gone)) {
      talk_.NoteDone(std::move(item));
      --count;
    }
    for (; count > 0; --count) talk_.NoteIrrevocable();
  }

  void Restore() {
    talk_.SetTotal(from_.size());
    for (std::size_t at = 0; at < from_.size() && talk_.GoesOn(); ++at) {
      if (talk_.IsReportDue()) talk_.Report(from_[at], to_[at]);
      const ItemFingerprint* const expected = Expected(at);
      while (IsAsTold(from_[at], expected)) {
        const base::Status status = RestoreFromBin(from_[at], to_[at]);
        if (status) {
          talk_.AddItems(1);
          talk_.NoteDone({from_[at], to_[at], FingerprintOf(to_[at], false)});
          talk_.NotePlaced(from_[at], to_[at]);
          break;
        }
        if (!talk_.Retries(OperationStep::Move, to_[at], status)) break;
      }
    }
  }

  // What the shell gives no path for cannot be looked at.
  bool IsAsTold(const std::string& place, const ItemFingerprint* expected) {
    return !RunSyntax().IsWhole(place) || check_.IsAsExpected(place, expected);
  }

  // --- Renames

  void Rename() {
    WindowsRenames renames(check_, programFolder_);
    std::vector<PlacedItem> steps;
    for (std::size_t at = 0; at < from_.size(); ++at) steps.push_back({from_[at], to_[at]});
    if (talk_.Has(OwnTargets)) {
      RenameTogether(talk_, renames).Run(std::move(steps), request_.Expected);
      return;
    }
    talk_.SetTotal(1);
    while (check_.IsAsExpected(from_[0], Expected(0))) {
      const TakenStep taken = renames.Take(steps[0], nullptr);
      if (taken.Is == TakenStep::Way::Renamed) {
        talk_.AddItems(1);
        talk_.NoteDone({from_[0], to_[0], taken.Print});
        talk_.NotePlaced(from_[0], to_[0]);
        return;
      }
      if (!talk_.Retries(OperationStep::Move, from_[0], taken.Failure)) return;
    }
  }

  const OperationRequest& request_;
  const std::string& programFolder_;
  const ShellCall& shell_;
  OperationTalk talk_;
  ItemCheck check_;
  const std::vector<std::string> from_;
  std::vector<std::string> to_;  // as the request has them
  const std::string destination_;
  std::vector<std::string> targets_;  // the path to be of each item
};

}  // namespace

OperationResult RunOperation(const OperationRequest& request, OperationUser& user,
                             const std::string& programFolder, const ShellCall& shell) {
  const ComThread com;
  return ShellRun(request, user, programFolder, shell).Run();
}

}  // namespace tarnwell::platform
