#include <sys/xattr.h>

#include <algorithm>
#include <functional>
#include <utility>

#include "platform/linux/files/Fingerprint.h"
#include "platform/linux/files/RenameItem.h"
#include "platform/linux/operation/CopyAttributes.h"
#include "platform/linux/operation/DeleteTree.h"
#include "platform/linux/operation/ItemTransfer.h"
#include "platform/linux/operation/OwnFolder.h"
#include "platform/linux/operation/SweepTemporaries.h"
#include "platform/linux/posix/SystemError.h"
#include "platform/linux/posix/TemporaryName.h"

namespace tarnwell::platform {
namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

// A letter for a kind of item, one of the system's numbers below 16; no kind gives a NUL.
constexpr char LetterOf(unsigned char kind) {
  return static_cast<char>('A' + kind);
}
constexpr unsigned TypeOf(const char* lettered) {
  return static_cast<unsigned>(DTTOIF(*lettered - 'A'));
}

ErrorNumber MakeTemporaryFolder(int folder, std::string& name, Descriptor& opened) {
  TemporaryName temporary;
  for (int attempt = 0; attempt < TemporaryName::Attempts; ++attempt) {
    ErrorNumber error = temporary.Renew();
    if (error == NoError) error = MakeOwnFolder(folder, temporary.Text(), opened);
    if (error == NoError) name = temporary.Text();
    if (error != EEXIST) return error;
  }
  return EBUSY;
}

}  // namespace

// Looks upwards from the target, whatever links the paths go through.
bool ItemTransfer::GoesIntoItself(const ItemIdentity& source) const {
  constexpr int flags = O_PATH | O_DIRECTORY | O_CLOEXEC;
  Descriptor at(openat(target_.Folder.Get(), ".", flags));
  ItemIdentity last;
  struct statx found;
  while (at && LookAt(at.Get(), "", found) == NoError && IdentityOf(found) != last) {
    last = IdentityOf(found);
    if (last == source) return true;
    at = Descriptor(openat(at.Get(), "..", flags));
  }
  return false;
}

ItemTransfer::Failure ItemTransfer::CopyFolder(const Item& item) {
  Descriptor source(openat(walk_.Folder(), item.Name.c_str(), folderFlags));
  Level level;
  ErrorNumber error = source ? LookAt(source.Get(), "", level.Source) : errno;
  if (error != NoError) return {OperationStep::Read, error};
  // The look upwards misses a target that is mounted inside of the source a second time.
  const ItemIdentity self = IdentityOf(level.Source);
  struct statx base;
  error = LookAt(target_.Folder.Get(), "", base);
  if (error != NoError) return {OperationStep::Find, error, nullptr, true};
  if (self == IdentityOf(base) || self == made_) {
    return {OperationStep::Place, EINVAL, "A folder cannot go into itself"};
  }

  const std::size_t mark = walk_.Mark();
  NameList others;
  Descriptor target;
  Failure failure{OperationStep::Read, ReadNames(source.Get(), FromPath(item.Name), others)};
  if (failure.Error == NoError) failure = OpenTargetFolder(item, !others.IsEmpty(), level, target);
  struct statx made;
  if (failure.Error == NoError) {
    failure = {OperationStep::MakeFolder, LookAt(target.Get(), "", made), nullptr, true};
  }
  if (failure.Error != NoError) {
    walk_.ForgetFrom(mark);
    return failure;
  }
  if (walk_.Depth() == 1) made_ = IdentityOf(made);
  to_ += "/" + item.Target;
  level.ToLength = to_.size();
  level.Key = CopiedItems::KeyBelow(walk_.Here().Key, item.Name);
  const Level& above = walk_.Here();
  level.From = IsSameMount(level.Source, above.Source) ? above.From : TraitsOf(source.Get());
  level.To = level.IsNew ? above.To : TraitsOf(target.Get());
  level.Made = FingerprintOf(made, level.To);
  level.Made.Below = NothingBelow;
  level.DoneBefore = CountDone();
  level.Target = item.Target;
  level.IsOwn = level.IsNew || walk_.Here().IsOwn;
  level.CanRename = moves_ && !level.IsOwn;
  targets_.Enter(std::move(target), IdentityOf(made));
  walk_.Enter(std::move(source), self, item.Name, mark, std::move(level));
  TakeOthers(others);
  if (!walk_.Here().ReplacesFile) PutInPlace();
  return {};
}

// A folder with files gets its own name when they are whole, so that small ones need no temporary
// names of their own.
ItemTransfer::Failure ItemTransfer::OpenTargetFolder(const Item& item, bool holdsFiles,
                                                     Level& level, Descriptor& opened) {
  const int folder = targets_.Get();
  level.IsNew = item.Decided != Way::Merge;
  level.ReplacesFile = item.Decided == Way::Replace;
  level.Replaced = item.Replaced;
  const char* const name = item.Target.c_str();
  ErrorNumber error;
  if (!level.IsNew) {
    opened = Descriptor(openat(folder, name, folderFlags));
    if (!opened) error = errno;
  } else if (holdsFiles || level.ReplacesFile) {
    error = MakeTemporaryFolder(folder, level.Temporary, opened);
  } else {
    error = MakeOwnFolder(folder, name, opened);
  }
  if (error != NoError) {
    const char* const reason = error == ESTALE ? "Another folder was put in its place" : nullptr;
    return {OperationStep::MakeFolder, error, reason, true};
  }
  level.HandsDown = HandsDownAccessLists(opened.Get());
  // What it holds must not inherit what its original does not give.
  if (level.IsNew && level.HandsDown &&
      fremovexattr(opened.Get(), "system.posix_acl_default") == 0) {
    level.HandsDown = false;
  }
  return {};
}

ErrorNumber ItemTransfer::ReadNames(int folder, const std::string& path, NameList& others) {
  const std::size_t mark = walk_.Mark();
  FolderNames names;
  ErrorNumber error = ListNames(folder, names);
  // What a killed move held is back in its place then, and goes along.
  if (error == NoError && moves_ && names.HasLeft) {
    SweepTemporaries(folder, [this] { return context_.GoesOn(); });
    walk_.ForgetFrom(mark);
    names = {};
    error = lseek(folder, 0, SEEK_SET) == 0 ? ListNames(folder, names) : errno;
  }
  for (const std::string& name : names.Unfinished)
    LeaveUnfinished(std::string(path).append("/").append(name));
  others = std::move(names.Others);
  return error;
}

// The folders go on the list.
ErrorNumber ItemTransfer::ListNames(int folder, FolderNames& names) {
  const auto take = [&](const dirent64& item) {
    const TemporaryState state = StateOfTemporary(folder, item.d_name);
    if (state == TemporaryState::Left) names.HasLeft = true;
    if (state == TemporaryState::Living) {
      names.Unfinished.emplace_back(item.d_name);
      return true;
    }
    unsigned char kind = item.d_type;
    struct statx found;
    if (kind == DT_UNKNOWN && LookAt(folder, item.d_name, found) == NoError) {
      kind = static_cast<unsigned char>(IFTODT(found.stx_mode));
    }
    if (kind == DT_DIR) {
      walk_.Add(item.d_name);
    } else {
      names.Others.Add(LetterOf(kind), item.d_name);
    }
    return true;
  };
  return buffer_.Read(folder, take, [this] { return context_.GoesOn(); });
}

void ItemTransfer::TakeOthers(const NameList& others) {
  std::vector<const char*> lettered;
  for (const char* const name : others) lettered.push_back(name);
  if (SharesFiles(lettered)) TakeTogether(lettered);
  for (const char* const name : lettered) TakeOther(name);
}

void ItemTransfer::TakeOther(const char* lettered) {
  if (walk_.Here().IsGivenUp || context_.IsCancelled()) return;
  const std::string name = lettered + 1;
  TakeItem({name, TypeOf(lettered), name});
}

// Only where nothing can be in the way, and nothing shows before the folder gets its name.
bool ItemTransfer::SharesFiles(const std::vector<const char*>& lettered) {
  const Level& level = walk_.Here();
  if (!level.IsNew || level.Temporary.empty() || !level.To.TakesAnyName) return false;
  const auto count = static_cast<std::size_t>(std::ranges::count(lettered, S_IFREG, TypeOf));
  struct statx folder;
  return small_.IsWorth(count, walk_.Folder(), targets_.Get()) &&
         LookAt(targets_.Get(), "", folder) == NoError && flushed_.TakeAll(targets_.Get(), folder);
}

void ItemTransfer::TakeTogether(std::vector<const char*>& lettered) {
  std::vector<const char*> left;
  std::vector<SmallFile> files;
  for (const char* const name : lettered) {
    // It may have got its name, or been given up, for the sake of one that was in trouble.
    if (TypeOf(name) != S_IFREG || walk_.Here().Temporary.empty() || walk_.Here().IsGivenUp) {
      left.push_back(name);
      continue;
    }
    files.push_back({.Name = name + 1});
    if (files.size() == SmallFiles::Most) TakeSmall(files, left);
  }
  TakeSmall(files, left);
  std::ranges::sort(left, std::less<>());  // as they lie in memory, which is the folder's order
  lettered = std::move(left);
}

// Those in trouble are taken again one by one, where it can be asked about.
void ItemTransfer::TakeSmall(std::vector<SmallFile>& files, std::vector<const char*>& left) {
  if (context_.IsCancelled()) return;
  const auto goesOn = [this](const SmallFile& file) {
    if (context_.IsReportDue()) context_.Report(FromPath(file.Name), ToPath(file.Name));
    return context_.GoesOn();
  };
  small_.Copy({walk_.Folder(), targets_.Get(), walk_.Here().HandsDown}, files, goesOn,
              [this](std::uint64_t bytes) { context_.AddBytes(bytes); });
  for (const SmallFile& file : files) {
    if (file.Now != SmallFile::State::Copied) continue;
    const Item item{file.Name, S_IFREG, file.Name};
    NoteMade(item, file.Source, FingerprintOf(file.Copy, walk_.Here().To));
    Done(item, file.Source);
  }
  for (const SmallFile& file : files) {
    if (file.Now == SmallFile::State::Left) left.push_back(file.Name - 1);
    if (file.Now == SmallFile::State::Failed) TakeOther(file.Name - 1);
  }
  files.clear();
}

// Gives the folder at hand its own name. What was put there meanwhile stays, and the folder gets
// another name. False if it was given up.
bool ItemTransfer::PutInPlace() {
  Level& level = walk_.Here();
  if (level.Temporary.empty()) return true;
  if (level.IsGivenUp) return false;
  const int above = targets_.Above();
  for (;;) {
    ErrorNumber error = RenameNew(above, level.Temporary.c_str(), above, level.Target.c_str());
    if (error == NoError) {
      level.Temporary.clear();
      return true;
    }
    std::string twin = level.Target;
    if (error == EEXIST && (error = FindFreeTwin(above, twin, true)) == NoError) {
      level.Target = twin;
      to_ = to_.substr(0, walk_.At(walk_.Depth() - 2).ToLength) + "/" + level.Target;
      level.ToLength = to_.size();
      continue;
    }
    if (context_.Retries(OperationStep::MakeFolder, to_, error)) continue;
    ForgetCopied();
    walk_.ForgetNames();
    level.IsGivenUp = true;
    return false;
  }
}

void ItemTransfer::LeaveFolder() {
  const bool isWhole = !walk_.Here().IsNew || FinishNewFolder(walk_.Here());
  const std::string name = walk_.Name();
  const Level left = walk_.Leave();
  targets_.Leave();
  to_.resize(walk_.Here().ToLength);
  if (!left.Temporary.empty() && !FinishReplacing(left)) return;
  NoteFolder(name, left);
  if (!isWhole || context_.IsCancelled()) return;
  const Item item{name, S_IFDIR, left.Target};
  Failure failure;
  do {
    failure = left.IsNew ? FinishItem(item, left.Source) : Done(item, left.Source);
  } while (failure.Error != NoError && Retries(item, failure));
}

// False if the folder was given up.
bool ItemTransfer::FinishReplacing(const Level& left) {
  const char* const temporary = left.Temporary.c_str();
  while (left.ReplacesFile && context_.GoesOn()) {
    const int folder = targets_.Get();
    const ErrorNumber error = PutInPlaceOf(folder, temporary, folder, left.Target.c_str(),
                                           MayGoIf(left.Replaced), to_, record_);
    if (error == NoError) return true;
    const base::Status reason =
        error == EEXIST ? base::Status{EEXIST, "Another item has taken its place meanwhile"}
                        : SystemError(error);
    if (!context_.Retries(OperationStep::Write, ToPath(left.Target), reason)) break;
  }
  ForgetCopied();
  DeleteQuietly(targets_.Get(), left.Temporary);
  return false;
}

bool ItemTransfer::FinishNewFolder(const Level& level) {
  for (;;) {
    struct statx copy;
    ErrorNumber error = targets_.Get() < 0 || walk_.Folder() < 0 ? ErrorNumber(ESTALE) : NoError;
    if (error == NoError) error = LookAt(targets_.Get(), "", copy);
    bool losesSome = false;
    if (error == NoError) {
      error = CopyAttributes(walk_.Folder(), level.Source, targets_.Get(), copy, true, losesSome);
    }
    const ErrorNumber unflushed = error == NoError ? flushed_.Take(targets_.Get(), copy) : NoError;
    if (unflushed != NoError) {
      ForgetCopied();
      return context_.Retries(OperationStep::Flush, to_, unflushed);
    }
    if (error == NoError) return !losesSome || !LeavesForLoss(walk_.Path());
    if (!context_.Retries(OperationStep::MakeFolder, to_, error)) return false;
  }
}

}  // namespace tarnwell::platform
