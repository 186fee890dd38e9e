#include "platform/linux/operation/ItemTransfer.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "platform/linux/files/NameProbe.h"
#include "platform/linux/operation/CopyAttributes.h"
#include "platform/linux/operation/DeleteTree.h"
#include "platform/linux/operation/ExpectedItem.h"
#include "platform/linux/operation/SweepTemporaries.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

// How much a move copies before it flushes and deletes.
constexpr std::uint64_t batchBytes = 256 << 20;
constexpr std::size_t batchItems = 10'000;

// Others that keep making and removing the item in the way must not keep this going.
constexpr int mostConflicts = 20;

}  // namespace

ItemTransfer::ItemTransfer(OperationContext& context, const OpenPlace& target,
                           ProtectedItems& protectedItems, const AsideRecord& record,
                           std::size_t copyThreads)
    : context_(context),
      target_(target),
      protected_(protectedItems),
      record_(record),
      moves_(context.Function() == FileFunction::Move),
      copier_(moves_),
      small_(moves_, copyThreads),
      flushed_(moves_) {}

void ItemTransfer::Take(const std::shared_ptr<const OpenPlace>& source, const std::string& name,
                        const std::string& targetName, const ItemFingerprint* expected) {
  if (source != source_ || walk_.Folder() < 0 || targets_.Get() < 0) {
    const ErrorNumber error = EnterBase(source);
    if (error != NoError) {
      context_.Retries(OperationStep::Find, source->Path + "/" + name, error);
      return;
    }
  }
  made_ = {};
  expected_ = expected;
  if (!IsAsExpected(context_, walk_.Folder(), name, FromPath(name), expected_)) return;
  const std::size_t copiedBefore = copied_.Count();
  const std::size_t arrivedBefore = arrived_.size();

  struct statx found;
  ErrorNumber error;
  while ((error = LookAt(walk_.Folder(), name.c_str(), found)) != NoError &&
         context_.Retries(OperationStep::Find, FromPath(name), error)) {
  }
  if (error == NoError &&
      StateOfTemporary(walk_.Folder(), name.c_str()) == TemporaryState::Living) {
    LeaveUnfinished(FromPath(name));
  } else if (error == NoError) {
    TakeItem({name, found.stx_mode & static_cast<unsigned>(S_IFMT), targetName});
    Walk();
  }
  if (copied_.Count() == copiedBefore) {
    SettleArrived(arrivedBefore, 0);
    return;
  }
  batch_.push_back({source, name, std::min(arrivedBefore, arrived_.size())});
  const bool isMuch = context_.BytesDone() - batchStart_ >= batchBytes;
  if (isMuch || copied_.Count() >= batchItems) FinishBatch();
}

ErrorNumber ItemTransfer::EnterBase(const std::shared_ptr<const OpenPlace>& source) {
  source_ = nullptr;
  Level base;
  base.IsSwept = !walk_.IsEmpty() && walk_.At(0).IsSwept;
  walk_ = {};
  targets_ = {};
  Descriptor from(fcntl(source->Folder.Get(), F_DUPFD_CLOEXEC, 0));
  if (!from) return errno;
  Descriptor to(fcntl(target_.Folder.Get(), F_DUPFD_CLOEXEC, 0));
  if (!to) return errno;
  struct statx target;
  ErrorNumber error = LookAt(from.Get(), "", base.Source);
  if (error == NoError) error = LookAt(to.Get(), "", target);
  if (error != NoError) return error;
  to_ = target_.Path;
  base.ToLength = to_.size();
  base.CanRename = moves_;
  base.HandsDown = HandsDownAccessLists(to.Get());
  base.Key = CopiedItems::KeyOfFirst(IdentityOf(base.Source));
  base.From = TraitsOf(from.Get());
  base.To = TraitsOf(to.Get());
  targets_.Enter(std::move(to), IdentityOf(target));
  const ItemIdentity self = IdentityOf(base.Source);
  walk_.Enter(std::move(from), self, source->Path, walk_.Mark(), std::move(base));
  source_ = source;
  return NoError;
}

void ItemTransfer::Finish() {
  FinishBatch();
}

void ItemTransfer::Walk() {
  walk_.Run(
      1, [this] { return !context_.IsCancelled(); },
      [this](const std::string& name) {
        TakeItem({name, S_IFDIR, name});
      },
      [this] { LeaveFolder(); });
}

void ItemTransfer::TakeItem(Item item) {
  const bool isAsked = walk_.Depth() == 1;
  int conflicts = 0;
  while (context_.GoesOn()) {
    const Failure failure = Attempt(item);
    if (context_.IsCancelled()) return;
    if (failure.Error == NoError) {
      if (!isAsked) return;
      context_.NotePlaced(source_->Path + "/" + item.Name, target_.Path + "/" + item.Target);
      return;
    }
    // By what nobody has given up.
    if (failure.Error == EEXIST && conflicts < mostConflicts) {
      ++conflicts;
      item.Decided = FindWay(item);
      if (item.Decided != Way::Leave && MayGoOn(item)) continue;
      PassOver(item);
      return;
    }
    if (!Retries(item, failure) || !MayGoOn(item)) {
      PassOver(item);
      return;
    }
  }
}

// The user may have taken time for the answer.
bool ItemTransfer::MayGoOn(const Item& item) {
  return walk_.Depth() > 1 ||
         IsAsExpected(context_, walk_.Folder(), item.Name, FromPath(item.Name), expected_);
}

bool ItemTransfer::Retries(const Item& item, const Failure& failure) {
  if (failure.IsSettled) return false;
  const std::string path = failure.IsTarget ? ToPath(item.Target) : FromPath(item.Name);
  if (failure.Reason == nullptr) return context_.Retries(failure.Step, path, failure.Error);
  return context_.Retries(failure.Step, path, {failure.Error.Value(), failure.Reason});
}

// What was left counts as done, so that the progress comes to its end.
void ItemTransfer::PassOver(const Item& item) {
  struct statx found;
  if (LookAt(walk_.Folder(), item.Name.c_str(), found) != NoError) return;
  context_.AddItems(1);
  if (S_ISREG(found.stx_mode)) context_.AddBytes(found.stx_size);
}

void ItemTransfer::LeaveUnfinished(const std::string& path) {
  context_.Remark(OperationRemark::Unfinished, path);
  context_.NoteLeft(EBUSY);
}

void ItemTransfer::ReportIfDue(const Item& item) {
  if (context_.IsReportDue()) context_.Report(FromPath(item.Name), ToPath(item.Target));
}

ItemTransfer::Failure ItemTransfer::Attempt(Item& item) {
  const bool isFolder = item.Type == S_IFDIR;
  if (isFolder && walk_.Depth() == 1) {
    struct statx found;
    if (const ErrorNumber error = LookAt(walk_.Folder(), item.Name.c_str(), found);
        error != NoError) {
      return {OperationStep::Find, error};
    }
    if (GoesIntoItself(IdentityOf(found))) {
      return {OperationStep::Place, EINVAL, "A folder cannot go into itself"};
    }
  }
  if (walk_.Here().CanRename && item.Decided != Way::Merge) {
    const Failure failure = Rename(item);
    if (failure.Error != EXDEV) return failure;
    walk_.Here().CanRename = false;
  }
  if (beforeCopying_) std::exchange(beforeCopying_, nullptr)();
  const auto goesOn = [this] { return context_.GoesOn(); };
  if (Level& level = walk_.Here(); !level.IsOwn && !std::exchange(level.IsSwept, true)) {
    SweepTemporaries(targets_.Get(), goesOn);
    if (moves_ && walk_.Depth() == 1) SweepTemporaries(walk_.Folder(), goesOn);
  }
  if (const Failure failure = LookAhead(item); failure.Error != NoError) return failure;
  ReportIfDue(item);
  switch (item.Type) {
    case S_IFDIR:
      return CopyFolder(item);
    case S_IFREG:
      return CopyFile(item);
    case S_IFLNK:
      return CopyLink(item);
    default:
      return {OperationStep::Read, EOPNOTSUPP, "Devices, sockets and FIFOs cannot be copied"};
  }
}

// Before anything is copied in vain.
ItemTransfer::Failure ItemTransfer::LookAhead(const Item& item) {
  const Level& level = walk_.Here();
  if (item.Decided != Way::Free) return {};
  if (!level.To.TakesAnyName && IsUnusualName(item.Target)) {
    const ErrorNumber error = TryName(targets_.Get(), item.Target);
    const bool isLong = error == ENAMETOOLONG;
    const char* const reason = isLong ? nullptr : "The drive there takes no such name";
    if (error != NoError) return {OperationStep::Write, error, reason, true};
  }
  // In a new folder there can be nothing but what was copied under another spelling. Files find
  // that soon enough.
  if (level.IsNew && item.Type != S_IFDIR) return {};
  struct statx there;
  const ErrorNumber error = LookAt(targets_.Get(), item.Target.c_str(), there);
  if (error == ENOENT) return {};
  return {OperationStep::Find, error == NoError ? EEXIST : error, nullptr, true};
}

ItemTransfer::Failure ItemTransfer::Rename(const Item& item) {
  const char* const name = item.Name.c_str();
  const char* const target = item.Target.c_str();
  const int from = walk_.Folder();
  const int to = targets_.Get();
  const ErrorNumber error = item.Decided == Way::Replace
                                ? PutInPlaceOf(from, name, to, target, MayGoFor(item), to_, record_)
                                : RenameNew(from, name, to, target);
  const bool isTargetShut = error == EACCES && faccessat(to, ".", W_OK | X_OK, AT_EACCESS) != 0;
  if (isTargetShut) return {OperationStep::Write, error, nullptr, true};
  if (error != NoError) return {OperationStep::Move, error};
  if (item.Decided == Way::Replace) {
    context_.NoteIrrevocable();
  } else {
    context_.NoteDone({FromPath(item.Name), ToPath(item.Target), PrintThere(item.Target)});
  }
  context_.AddItems(1);
  ReportIfDue(item);
  return {};
}

ItemTransfer::Failure ItemTransfer::Done(const Item& item, const struct statx& source) {
  const Level& level = walk_.Here();
  if (moves_) {
    copied_.Add(CopiedItems::KeyBelow(level.Key, item.Name), source, level.From);
  }
  context_.AddItems(1);
  return {};
}

// Nothing of what was copied so far is deleted at the source any more.
void ItemTransfer::ForgetCopied() {
  copied_.Clear();
  batch_.clear();
  SettleArrived(0, 0);
}

void ItemTransfer::FinishBatch() {
  batchStart_ = context_.BytesDone();
  const std::vector<Taken> batch = std::exchange(batch_, {});
  std::size_t deleted = 0;  // of those that have arrived
  if (!copied_.IsEmpty() && !context_.IsCancelled()) {
    const ErrorNumber error = flushed_.Flush();
    if (error != NoError) context_.Retries(OperationStep::Flush, target_.Path, error);
    TreeDeletion deletion(context_);
    for (std::size_t at = 0; at < batch.size() && error == NoError; ++at) {
      if (!context_.GoesOn()) break;
      const Taken& item = batch[at];
      deletion.DeleteCopied(item.Source->Folder.Get(), item.Name,
                            item.Source->Path + "/" + item.Name, copied_);
      deleted = at + 1 < batch.size() ? batch[at + 1].FirstArrived : arrived_.size();
    }
  }
  SettleArrived(0, deleted);
  copied_.Clear();
}

}  // namespace tarnwell::platform
