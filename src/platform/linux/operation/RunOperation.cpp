#include "platform/linux/operation/RunOperation.h"

#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "base/ItemList.h"
#include "platform/linux/files/ProtectedItems.h"
#include "platform/linux/files/RenameItem.h"
#include "platform/linux/operation/DeleteTree.h"
#include "platform/linux/operation/ItemCounter.h"
#include "platform/linux/operation/ItemTransfer.h"
#include "platform/linux/operation/OperationContext.h"
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
  Operation(const OperationRequest& request, OperationUser& user, const std::string& programFolder)
      : context_(user, request.Function, request.Flags),
        protected_(programFolder),
        record_(programFolder),
        targets_(request.Destination),
        destination_(base::ItemList(request.Destination).First()) {}

  OperationResult Run(std::vector<ItemPath> items) {
    items_ = std::move(items);
    if (context_.Has(FromTrash)) return RunInTrash();
    switch (context_.Function()) {
      case FileFunction::Copy:
      case FileFunction::Move:
        if (!destination_.starts_with('/')) return {EINVAL, false};
        Transfer();
        break;
      case FileFunction::Delete:
        Delete();
        break;
      case FileFunction::Rename:
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
      trashed.Delete(paths);
    } else if (context_.Function() != FileFunction::Move || !trashed.Restore(paths, targets_)) {
      return {EINVAL, false};
    }
    context_.ReportEnd();
    return context_.Result();
  }

  // The folder of the item, which is most often that of the one before. Null if it was given up.
  std::shared_ptr<const OpenPlace> FolderOf(const ItemPath& item) {
    if (folder_ && folder_->Path == item.Folder) return folder_;
    auto opened = std::make_shared<OpenPlace>();
    for (;;) {
      const ErrorNumber error = OpenPlaceAt(item.Folder, *opened);
      if (error == NoError) break;
      if (!context_.Retries(OperationStep::Find, item.Whole(), error)) return nullptr;
    }
    folder_ = std::move(opened);
    return folder_;
  }

  // The same for an item that is to go from there, which it may not if it is protected.
  std::shared_ptr<const OpenPlace> FolderToTakeFrom(const ItemPath& item) {
    const OperationStep step =
        context_.Function() == FileFunction::Delete ? OperationStep::Delete : OperationStep::Move;
    for (;;) {
      std::shared_ptr<const OpenPlace> folder = FolderOf(item);
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
      ErrorNumber error = OpenPlaceAt(path, target);
      if (error == ENOENT && isFolder) {
        if (!context_.MakesFolder(path)) return false;
        error = MakeFolders(path);
        if (error == NoError) error = OpenPlaceAt(path, target);
      } else if ((error == ENOENT || error == ENOTDIR) && !isFolder) {
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
    ItemTransfer transfer(context_, target, protected_, record_);
    std::size_t taken = 0;
    context_.SetTotal(items_.size());
    if (!context_.Has(Silent)) {
      transfer.BeforeCopying([&] {
        std::vector<std::string> paths;
        for (std::size_t at = taken; at < items_.size(); ++at) paths.push_back(items_[at].Whole());
        context_.SetTotal(taken);
        counter_.Start(std::move(paths));
        context_.CountBy([this](OperationProgress& progress) { counter_.AddTo(progress); });
      });
    }
    for (const ItemPath& item : items_) {
      if (!context_.GoesOn()) break;
      const std::shared_ptr<const OpenPlace> folder =
          context_.Function() == FileFunction::Move ? FolderToTakeFrom(item) : FolderOf(item);
      if (folder) transfer.Take(folder, item.Name, name.empty() ? item.Name : name);
      ++taken;
    }
    transfer.Finish();
  }

  void Delete() {
    TreeDeletion deletion(context_);
    context_.SetTotal(items_.size());
    for (const ItemPath& item : items_) {
      if (!context_.GoesOn()) return;
      const std::shared_ptr<const OpenPlace> folder = FolderToTakeFrom(item);
      if (!folder || (context_.Has(AllowUndo) && !GoesForGood(item))) continue;
      deletion.Delete(folder->Folder.Get(), item.Name, item.Whole());
    }
  }

  // Puts the item into the trash. True if there is none, and it is to be deleted.
  bool GoesForGood(const ItemPath& item) {
    const std::string path = item.Whole();
    if (context_.IsReportDue()) context_.Report(path, {});
    for (;;) {
      base::Status status;
      const TrashOutcome outcome = TrashItem(path, status);
      if (outcome == TrashOutcome::Trashed) {
        context_.AddItems(1);
        return false;
      }
      if (outcome == TrashOutcome::NoTrash) {
        const NoTrashChoice choice = context_.AskNoTrash(path);
        if (choice != NoTrashChoice::DeleteForGood) context_.NoteLeft(status.Code);
        return choice == NoTrashChoice::DeleteForGood;
      }
      if (!context_.Retries(OperationStep::Trash, path, status)) return false;
    }
  }

  void Rename() {
    const std::string from = items_.front().Whole();
    context_.SetTotal(1);
    if (!FolderToTakeFrom(items_.front())) return;
    for (;;) {
      const base::Status status = RenameItem(from, destination_, record_);
      if (status) break;
      if (!context_.Retries(OperationStep::Move, from, status)) return;
    }
    context_.AddItems(1);
    context_.NotePlaced(from, destination_);
  }

  OperationContext context_;
  ProtectedItems protected_;
  AsideRecord record_;
  std::string targets_;
  std::string destination_;  // the first of them
  std::vector<ItemPath> items_;
  std::shared_ptr<const OpenPlace> folder_;
  ItemCounter counter_;
};

}  // namespace

OperationResult RunOperation(const OperationRequest& request, OperationUser& user,
                             const std::string& programFolder) {
  std::optional<std::vector<ItemPath>> items = PathsOf(request.Items);
  if (!items) return {EINVAL, false};
  return Operation(request, user, programFolder).Run(std::move(*items));
}

}  // namespace tarnwell::platform
