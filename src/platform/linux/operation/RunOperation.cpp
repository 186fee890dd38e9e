#include "platform/linux/operation/RunOperation.h"

#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <optional>
#include <unordered_set>
#include <utility>
#include <vector>

#include "base/ItemList.h"
#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/files/ProtectedItems.h"
#include "platform/linux/files/RenameItem.h"
#include "platform/linux/operation/DeleteTree.h"
#include "platform/linux/operation/ExpectedItem.h"
#include "platform/linux/operation/ItemCounter.h"
#include "platform/linux/operation/ItemTransfer.h"
#include "platform/linux/operation/OperationContext.h"
#include "platform/linux/operation/RenameSteps.h"
#include "platform/linux/operation/TargetFolder.h"
#include "platform/linux/operation/TrashFinder.h"
#include "platform/linux/operation/TrashItem.h"
#include "platform/linux/operation/TrashedItems.h"
#include "platform/linux/posix/ReachedPath.h"

namespace tarnwell::platform {
namespace {

struct ItemPath {
  std::string Folder;  // without a separator at its end; empty for the root
  std::string Name;

  std::string Whole() const { return Folder + "/" + Name; }
};

// Nothing for what is no full path of an item, the root among them.
std::optional<ItemPath> SplitPath(std::string_view path) {
  while (path.size() > 1 && path.ends_with('/')) path.remove_suffix(1);
  const std::size_t slash = path.rfind('/');
  if (slash == path.npos || !path.starts_with('/')) return {};
  const std::string_view name = path.substr(slash + 1);
  if (name.empty() || name == "." || name == "..") return {};
  path = path.substr(0, slash);
  while (path.ends_with('/')) path.remove_suffix(1);
  return ItemPath{std::string(path), std::string(name)};
}

// Nothing if one of the items makes no sense.
std::optional<std::vector<ItemPath>> PathsOf(std::string_view items) {
  std::vector<ItemPath> paths;
  for (const std::string_view item : base::ItemList(items)) {
    std::optional<ItemPath> path = SplitPath(item);
    if (!path) return {};
    paths.push_back(std::move(*path));
  }
  if (paths.empty()) return {};
  return paths;
}

class Operation {
 public:
  Operation(const OperationRequest& request, OperationUser& user, const std::string& programFolder,
            std::size_t copyThreads)
      : request_(request),
        copyThreads_(copyThreads),
        context_(user, request.Function, request.Flags),
        protected_(programFolder),
        record_(programFolder),
        destination_(base::ItemList(request.Destination).First()) {}

  OperationResult Run(std::vector<ItemPath> items) {
    items_ = std::move(items);
    if (!request_.Expected.empty() && request_.Expected.size() != items_.size()) {
      return {EINVAL, false};
    }
    if (context_.Has(FromTrash)) return RunInTrash();
    switch (context_.Function()) {
      case FileFunction::Copy:
      case FileFunction::Move:
        if (!destination_.starts_with('/')) return {EINVAL, false};
        if (!context_.Has(OwnTargets)) {
          Transfer();
        } else if (!TransferEach()) {
          return {EINVAL, false};
        }
        break;
      case FileFunction::Delete:
        Delete();
        break;
      case FileFunction::Rename:
        if (context_.Has(OwnTargets)) {
          if (!RenameEach()) return {EINVAL, false};
          break;
        }
        if (items_.size() != 1 || !destination_.starts_with('/')) return {EINVAL, false};
        Rename();
        break;
      case FileFunction::None:
      default:
        return {EINVAL, false};
    }
    context_.ReportEnd();
    return context_.Result();
  }

 private:
  OperationResult RunInTrash() {
    TrashedItems trashed(context_, protected_, record_);
    std::vector<std::string> paths;
    for (const ItemPath& item : items_) paths.push_back(item.Whole());
    if (context_.Function() == FileFunction::Delete) {
      trashed.Delete(paths, request_.Expected);
    } else if (context_.Function() != FileFunction::Move ||
               !trashed.Restore(paths, request_.Destination, request_.Expected)) {
      return {EINVAL, false};
    }
    context_.ReportEnd();
    return context_.Result();
  }

  const ItemFingerprint* Expected(std::size_t at) const {
    return request_.Expected.empty() ? nullptr : &request_.Expected[at];
  }

  bool IsAsExpected(const OpenPlace& folder, std::size_t at) {
    const ItemPath& item = items_[at];
    return platform::IsAsExpected(context_, folder.Folder.Get(), item.Name, item.Whole(),
                                  Expected(at));
  }

  // The folder of the item, which is most often that of the one before. Null if it was given up.
  std::shared_ptr<const OpenPlace> FolderOf(std::size_t at) {
    const ItemPath& item = items_[at];
    if (folder_ && folder_->Path == item.Folder) return folder_;
    auto opened = std::make_shared<OpenPlace>();
    for (;;) {
      const ErrorNumber error = OpenPlaceAt(item.Folder, *opened);
      if (error == NoError) break;
      if ((error == ENOENT || error == ENOTDIR) && Expected(at) != nullptr) {
        TellOfOther(context_, item.Whole(), ENOENT);
        return nullptr;
      }
      if (!context_.Retries(OperationStep::Find, item.Whole(), error)) return nullptr;
    }
    folder_ = std::move(opened);
    return folder_;
  }

  // The same for an item that is to go from there, which it may not if it is protected.
  std::shared_ptr<const OpenPlace> FolderToTakeFrom(std::size_t at) {
    const ItemPath& item = items_[at];
    const OperationStep step =
        context_.Function() == FileFunction::Delete ? OperationStep::Delete : OperationStep::Move;
    for (;;) {
      std::shared_ptr<const OpenPlace> folder = FolderOf(at);
      if (!folder) return nullptr;
      const std::string refusal =
          protected_.Refusal(context_.Function(), folder->Folder.Get(), item.Name.c_str());
      if (refusal.empty()) return folder;
      if (!context_.Retries(step, item.Whole(), {EPERM, refusal})) return nullptr;
      protected_.Forget();
    }
  }

  // Finds the folder that the items go to; `name` is empty where they keep their own names. False
  // if it was given up.
  bool OpenTarget(OpenPlace& target, std::string& name) {
    const bool isFolder = items_.size() > 1 || destination_.ends_with('/');
    std::string path = destination_;
    while (path.ends_with('/')) path.pop_back();
    for (;;) {
      std::optional<ErrorNumber> opened =
          isFolder ? OpenOrMakePlace(context_, path, target) : OpenPlaceAt(path, target);
      if (!opened) return false;
      ErrorNumber error = *opened;
      if ((error == ENOENT || error == ENOTDIR) && !isFolder) {
        const std::optional<ItemPath> split = SplitPath(path);
        error = split ? OpenPlaceAt(split->Folder, target) : EINVAL;
        if (split) name = split->Name;
      }
      if (error == NoError) return true;
      if (!context_.Retries(OperationStep::Find, path, error)) return false;
    }
  }

  void Transfer() {
    OpenPlace target;
    std::string name;
    if (!OpenTarget(target, name)) return;
    ItemTransfer transfer(context_, target, protected_, record_, copyThreads_);
    context_.SetTotal(items_.size());
    transfer.BeforeCopying([this] { CountAhead(); });
    for (at_ = 0; at_ < items_.size() && context_.GoesOn(); ++at_) {
      TakeTo(transfer, name.empty() ? items_[at_].Name : name);
    }
    transfer.Finish();
  }

  // The totals are those of what is still to be taken.
  void CountAhead() {
    if (context_.Has(Silent) || std::exchange(isCounting_, true)) return;
    std::vector<std::string> paths;
    for (std::size_t at = at_; at < items_.size(); ++at) paths.push_back(items_[at].Whole());
    context_.SetTotal(at_);
    counter_.Start(std::move(paths));
    context_.CountBy([this](OperationProgress& progress) { counter_.AddTo(progress); });
  }

  void TakeTo(ItemTransfer& transfer, const std::string& name) {
    const std::shared_ptr<const OpenPlace> folder =
        context_.Function() == FileFunction::Move ? FolderToTakeFrom(at_) : FolderOf(at_);
    if (folder) transfer.Take(folder, items_[at_].Name, name, Expected(at_));
  }

  // Each item to a path of its own. False where these are not as many as the items, or not full
  // paths.
  bool TransferEach() {
    const std::optional<std::vector<ItemPath>> targets = PathsOf(request_.Destination);
    if (!targets || targets->size() != items_.size()) return false;
    std::unordered_set<std::string> given;
    OpenPlace place;
    std::optional<ItemTransfer> transfer;  // to the folder of the target before
    context_.SetTotal(items_.size());
    for (at_ = 0; at_ < items_.size() && context_.GoesOn(); ++at_) {
      const ItemPath& target = (*targets)[at_];
      if (!transfer || place.Path != target.Folder) {
        if (transfer) transfer->Finish();
        transfer.reset();
      }
      if (!MayGoTo(target, given)) continue;
      if (!transfer) {
        if (!IsThereToTake() || !OpenFolderOf(target, place)) continue;
        transfer.emplace(context_, place, protected_, record_, copyThreads_);
        transfer->BeforeCopying([this] { CountAhead(); });
      }
      TakeTo(*transfer, target.Name);
    }
    if (transfer) transfer->Finish();
    return true;
  }

  // No folder is made for what is to be left.
  bool IsThereToTake() {
    if (Expected(at_) == nullptr) return true;
    const std::shared_ptr<const OpenPlace> folder = FolderOf(at_);
    return folder && IsAsExpected(*folder, at_);
  }

  // Before a folder is made for it.
  bool MayGoTo(const ItemPath& target, std::unordered_set<std::string>& given) {
    const std::string item = items_[at_].Whole();
    if (target.Folder == item || target.Folder.starts_with(item + "/")) {
      context_.Retries(OperationStep::Place, item, {EINVAL, "A folder cannot go into itself"});
      return false;
    }
    if (given.insert(target.Whole()).second) return true;
    context_.Retries(OperationStep::Find, item, {EEXIST, "Another item is to have the same path"});
    return false;
  }

  bool OpenFolderOf(const ItemPath& target, OpenPlace& place) {
    for (;;) {
      const std::optional<ErrorNumber> error = OpenOrMakePlace(context_, target.Folder, place);
      if (!error) return false;
      if (*error == NoError) return true;
      if (!context_.Retries(OperationStep::Find, target.Folder, *error)) return false;
    }
  }

  void Delete() {
    TreeDeletion deletion(context_);
    context_.SetTotal(items_.size());
    for (std::size_t at = 0; at < items_.size() && context_.GoesOn(); ++at) {
      const std::shared_ptr<const OpenPlace> folder = FolderToTakeFrom(at);
      if (!folder || (context_.Has(AllowUndo) && !GoesForGood(*folder, at))) continue;
      if (!IsAsExpected(*folder, at)) continue;
      deletion.Delete(folder->Folder.Get(), items_[at].Name, items_[at].Whole());
    }
  }

  // Puts the item into the trash. True if there is none, and it is to be deleted.
  bool GoesForGood(const OpenPlace& folder, std::size_t at) {
    const std::string path = items_[at].Whole();
    if (context_.IsReportDue()) context_.Report(path, {});
    while (IsAsExpected(folder, at)) {
      struct statx before {};
      static_cast<void>(LookAt(folder.Folder.Get(), items_[at].Name.c_str(), before));
      base::Status status;
      const TrashOutcome outcome = TrashItem(path, status);
      if (outcome == TrashOutcome::Trashed) {
        NoteTrashed(folder, path, before);
        return false;
      }
      if (outcome == TrashOutcome::NoTrash) return GoesWithoutTrash(path, status);
      if (!context_.Retries(OperationStep::Trash, path, status)) return false;
    }
    return false;
  }

  bool GoesWithoutTrash(const std::string& path, const base::Status& reason) {
    if (context_.Has(NeverForGood)) {
      context_.Remark(OperationRemark::HasNoTrash, path);
      context_.NoteLeft(reason.Code);
      return false;
    }
    const NoTrashChoice choice = context_.AskNoTrash(path);
    if (choice != NoTrashChoice::DeleteForGood) context_.NoteLeft(reason.Code);
    return choice == NoTrashChoice::DeleteForGood;
  }

  void NoteTrashed(const OpenPlace& folder, const std::string& path, const struct statx& before) {
    context_.AddItems(1);
    if (std::optional<DoneItem> done = trash_.Find(folder.Folder.Get(), path, before)) {
      context_.NoteDone(std::move(*done));
    } else {
      context_.NoteIrrevocable();
    }
  }

  void Rename() {
    const std::string from = items_.front().Whole();
    context_.SetTotal(1);
    const std::shared_ptr<const OpenPlace> folder = FolderToTakeFrom(0);
    while (folder && IsAsExpected(*folder, 0)) {
      const base::Status status = RenameItem(from, destination_, record_);
      if (status) {
        context_.AddItems(1);
        context_.NoteDone({from, destination_, FingerprintOf(destination_, false)});
        context_.NotePlaced(from, destination_);
        return;
      }
      if (!context_.Retries(OperationStep::Move, from, status)) return;
    }
  }

  // All together. False as above.
  bool RenameEach() {
    const std::optional<std::vector<ItemPath>> targets = PathsOf(request_.Destination);
    if (!targets || targets->size() != items_.size()) return false;
    std::vector<PlacedItem> steps;
    steps.reserve(items_.size());
    for (std::size_t at = 0; at < items_.size(); ++at) {
      steps.push_back({items_[at].Whole(), (*targets)[at].Whole()});
    }
    RenameSteps system(context_, protected_, record_);
    RenameTogether(context_, system).Run(std::move(steps), request_.Expected);
    return true;
  }

  const OperationRequest& request_;
  const std::size_t copyThreads_;
  OperationContext context_;
  ProtectedItems protected_;
  AsideRecord record_;
  std::string destination_;  // the first of them
  std::vector<ItemPath> items_;
  std::size_t at_ = 0;  // which of them is being copied or moved
  std::shared_ptr<const OpenPlace> folder_;
  TrashFinder trash_;
  ItemCounter counter_;
  bool isCounting_ = false;
};

}  // namespace

OperationResult RunOperation(const OperationRequest& request, OperationUser& user,
                             const std::string& programFolder, std::size_t copyThreads) {
  std::optional<std::vector<ItemPath>> items = PathsOf(request.Items);
  if (!items) return {EINVAL, false};
  return Operation(request, user, programFolder, copyThreads).Run(std::move(*items));
}

}  // namespace tarnwell::platform
