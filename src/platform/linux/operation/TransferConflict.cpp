#include <algorithm>
#include <limits>

#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/operation/ItemTransfer.h"
#include "platform/linux/posix/NameSpelling.h"
#include "platform/linux/posix/TemporaryName.h"
#include "platform/linux/posix/TwinName.h"

namespace tarnwell::platform {
namespace {

constexpr std::int64_t coarsestTime = 2'000'000'000;  // nanoseconds, of FAT

ConflictSide SideOf(std::string path, const struct statx& item) {
  ConflictSide side;
  side.Path = std::move(path);
  side.IsLink = S_ISLNK(item.stx_mode);
  side.Kind = S_ISDIR(item.stx_mode)   ? ItemKind::Folder
              : S_ISREG(item.stx_mode) ? ItemKind::File
                                       : ItemKind::Other;
  if (side.Kind == ItemKind::File) side.Size = item.stx_size;
  // File systems may hold times beyond what 64 bits of nanoseconds reach.
  constexpr std::int64_t second = 1'000'000'000;
  constexpr std::int64_t limit = std::numeric_limits<std::int64_t>::max() / second - 3;
  side.Modified = std::clamp<std::int64_t>(item.stx_mtime.tv_sec, -limit, limit) * second +
                  item.stx_mtime.tv_nsec;
  return side;
}

}  // namespace

ItemTransfer::Way ItemTransfer::FindWay(Item& item) {
  for (;;) {
    struct statx there;
    ErrorNumber error = LookAt(targets_.Get(), item.Target.c_str(), there);
    if (error == ENOENT) return Way::Free;
    if (error != NoError) {
      if (context_.Retries(OperationStep::Find, ToPath(item.Target), error)) continue;
      return Way::Leave;
    }
    struct statx source;
    error = LookAt(walk_.Folder(), item.Name.c_str(), source);
    if (error != NoError) {
      if (context_.Retries(OperationStep::Find, FromPath(item.Name), error)) continue;
      return Way::Leave;
    }
    bool isSame = IdentityOf(there) == IdentityOf(source);
    // It is where it is to go already.
    if (isSame && moves_ && item.Name == item.Target && walk_.Self() == targets_.Self()) {
      return Way::Leave;
    }
    bool makesTwin = context_.Has(RenameOnCollision);
    const std::string spelled = SpellingThere(targets_.Get(), item.Target);
    Way way = Way::Free;
    if (!makesTwin && !isSame) {
      way = Ask(item, spelled, source, there, makesTwin);
      isSame = (way == Way::Replace || way == Way::Merge) && IsOneFolder();
    }
    if (isSame && !makesTwin) {
      const base::Status reason{EEXIST, "Source and target are the same item"};
      if (context_.Retries(OperationStep::Find, FromPath(item.Name), reason)) continue;
      return Way::Leave;
    }
    const std::string refusal =
        way == Way::Replace
            ? protected_.Refusal(FileFunction::Copy, targets_.Get(), item.Target.c_str())
            : std::string();
    if (!refusal.empty()) {
      if (context_.Retries(OperationStep::Write, ToPath(item.Target), {EPERM, refusal})) continue;
      return Way::Leave;
    }
    const bool giveWay = way == Way::Replace && S_ISDIR(there.stx_mode);
    if (giveWay) {
      const base::Status reason{EISDIR, "A folder stands in the way, and gives way to no file"};
      if (context_.Retries(OperationStep::Write, ToPath(item.Target), reason)) continue;
      return Way::Leave;
    }
    if (way == Way::Merge) item.Target = spelled;
    if (way == Way::Replace) item.Replaced = FingerprintOf(there, walk_.Here().To);
    if (!makesTwin) return way;
    std::string twin = item.Target;
    error = FindFreeTwin(targets_.Get(), twin, S_ISDIR(source.stx_mode));
    if (error == NoError) {
      item.Target = twin;
      return way;
    }
    if (!context_.Retries(OperationStep::Find, ToPath(twin), error)) return Way::Leave;
  }
}

// Two mounts can show one folder under different numbers. Then what a move puts in the place of an
// item would be all that there is of it, and go with the source. A rename does no such harm.
bool ItemTransfer::IsOneFolder() const {
  if (!moves_ || walk_.Here().CanRename) return false;
  // A folder: volumes in user space keep a file for a while that goes while it is open.
  TemporaryName probe;
  if (probe.Renew() != NoError || mkdirat(targets_.Get(), probe.Text(), 0700) != 0) return false;
  struct statx found;
  const bool isThere = LookAt(walk_.Folder(), probe.Text(), found) == NoError;
  unlinkat(targets_.Get(), probe.Text(), AT_REMOVEDIR);
  return isThere;
}

ItemTransfer::Way ItemTransfer::Ask(const Item& item, const std::string& spelled,
                                    const struct statx& source, const struct statx& target,
                                    bool& makesTwin) {
  const bool merges = S_ISDIR(source.stx_mode) && S_ISDIR(target.stx_mode);
  if (merges && !context_.AsksToMerge()) return Way::Merge;
  OperationConflict conflict;
  conflict.Source = SideOf(FromPath(item.Name), source);
  conflict.Target = SideOf(ToPath(spelled), target);
  conflict.IsOtherSpelling = spelled != item.Target;
  const std::int64_t slack = walk_.Here().To.HasFineTimes ? 0 : coarsestTime;
  const bool isOlder = conflict.Target.Modified + slack < conflict.Source.Modified;
  switch (context_.AskConflict(std::move(conflict))) {
    case ConflictChoice::Replace:
      return merges ? Way::Merge : Way::Replace;
    case ConflictChoice::ReplaceOlder:
      if (!isOlder || S_ISDIR(source.stx_mode) || S_ISDIR(target.stx_mode)) break;
      return Way::Replace;
    case ConflictChoice::KeepBoth:
      makesTwin = true;
      return Way::Free;
    case ConflictChoice::Skip:
    case ConflictChoice::Cancel:
      break;
  }
  context_.NoteLeft(EEXIST);
  return Way::Leave;
}

// What has come into its place since, by another operation for one, nobody has given up.
// One that was written to is still the one.
MayGo ItemTransfer::MayGoIf(const ItemFingerprint& replaced) const {
  return [replaced, traits = walk_.Here().To](int folder, const char* name) {
    struct statx found;
    if (LookAt(folder, name, found) != NoError) return true;
    const ItemFingerprint now = FingerprintOf(found, traits);
    return now.Device == replaced.Device && now.Number == replaced.Number &&
           now.Kind == replaced.Kind;
  };
}

MayGo ItemTransfer::MayGoFor(const Item& item) const {
  return item.Decided == Way::Replace ? MayGoIf(item.Replaced) : nullptr;
}

ErrorNumber ItemTransfer::FindFreeTwin(int folder, std::string& name, bool isFolder) {
  const std::string first = name;
  const TwinParts parts = SplitTwinName(first, isFolder);
  unsigned number = parts.Number;
  struct statx found;
  ErrorNumber error;
  while (error == NoError) {
    name = MakeTwinName(parts, ++number);
    error = LookAt(folder, name.c_str(), found);
  }
  return error == ENOENT ? NoError : error;
}

}  // namespace tarnwell::platform
