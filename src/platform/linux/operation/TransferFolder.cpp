#include <sys/xattr.h>

#include <cstring>
#include <utility>

#include "platform/linux/files/RenameItem.h"
#include "platform/linux/operation/CopyAttributes.h"
#include "platform/linux/operation/DeleteTree.h"
#include "platform/linux/operation/ItemTransfer.h"
#include "platform/linux/operation/OwnFolder.h"
#include "platform/linux/operation/SweepTemporaries.h"
#include "platform/linux/posix/TemporaryName.h"

namespace tarnwell::platform {
namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

// Gives an error number.
int MakeTemporaryFolder(int folder, std::string& name, Descriptor& opened) {
  TemporaryName temporary;
  for (int attempt = 0; attempt < TemporaryName::Attempts; ++attempt) {
    int error = temporary.Renew();
    if (error == 0) error = MakeOwnFolder(folder, temporary.Text(), opened);
    if (error == 0) name = temporary.Text();
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
  while (at && LookAt(at.Get(), "", found) == 0 && IdentityOf(found) != last) {
    last = IdentityOf(found);
    if (last == source) return true;
    at = Descriptor(openat(at.Get(), "..", flags));
  }
  return false;
}

ItemTransfer::Failure ItemTransfer::CopyFolder(const Item& item) {
  Descriptor source(openat(sources_.Get(), item.Name.c_str(), folderFlags));
  Level level;
  int error = source ? LookAt(source.Get(), "", level.Source) : errno;
  if (error != 0) return {OperationStep::Read, error};
  // The look upwards misses a target that is mounted inside of the source a second time.
  const ItemIdentity self = IdentityOf(level.Source);
  struct statx base;
  error = LookAt(target_.Folder.Get(), "", base);
  if (error != 0) return {OperationStep::Find, error, nullptr, true};
  if (self == IdentityOf(base) || self == made_) {
    return {OperationStep::Place, EINVAL, "A folder cannot go into itself"};
  }

  level.FirstName = names_.size();
  std::string others;
  Descriptor target;
  Failure failure{OperationStep::Read, ReadNames(source.Get(), FromPath(item.Name), others)};
  if (failure.Error == 0) failure = OpenTargetFolder(item, others.size() > 1, level, target);
  struct statx made;
  if (failure.Error == 0) {
    failure = {OperationStep::MakeFolder, LookAt(target.Get(), "", made), nullptr, true};
  }
  if (failure.Error != 0) {
    names_.resize(level.FirstName);
    return failure;
  }
  if (levels_.size() == 1) made_ = IdentityOf(made);
  from_ += "/" + item.Name;
  to_ += "/" + item.Target;
  level.FromLength = from_.size();
  level.ToLength = to_.size();
  level.Key = CopiedItems::KeyBelow(levels_.back().Key, item.Name);
  const Level& above = levels_.back();
  level.From = IsSameMount(level.Source, above.Source) ? above.From : TraitsOf(source.Get());
  level.To = level.IsNew ? above.To : TraitsOf(target.Get());
  level.Name = item.Name;
  level.Target = item.Target;
  level.IsOwn = level.IsNew || levels_.back().IsOwn;
  level.CanRename = moves_ && !level.IsOwn;
  sources_.Enter(std::move(source), self);
  targets_.Enter(std::move(target), IdentityOf(made));
  levels_.push_back(std::move(level));
  TakeOthers(others);
  if (!levels_.back().ReplacesFile) PutInPlace();
  return {};
}

// A folder with files gets its own name when they are whole, so that small ones need no temporary
// names of their own.
ItemTransfer::Failure ItemTransfer::OpenTargetFolder(const Item& item, bool holdsFiles,
                                                     Level& level, Descriptor& opened) {
  const int folder = targets_.Get();
  level.IsNew = item.Decided != Way::Merge;
  level.ReplacesFile = item.Decided == Way::Replace;
  const char* const name = item.Target.c_str();
  int error = 0;
  if (!level.IsNew) {
    opened = Descriptor(openat(folder, name, folderFlags));
    if (!opened) error = errno;
  } else if (holdsFiles || level.ReplacesFile) {
    error = MakeTemporaryFolder(folder, level.Temporary, opened);
  } else {
    error = MakeOwnFolder(folder, name, opened);
  }
  if (error != 0) {
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

// Gives an error number.
int ItemTransfer::ReadNames(int folder, const std::string& path, std::string& others) {
  const std::size_t firstName = names_.size();
  FolderNames names;
  int error = ListNames(folder, names);
  // What a killed move held is back in its place then, and goes along.
  if (error == 0 && moves_ && names.HasLeft) {
    SweepTemporaries(folder, [this] { return context_.GoesOn(); });
    names_.resize(firstName);
    names = {};
    error = lseek(folder, 0, SEEK_SET) == 0 ? ListNames(folder, names) : errno;
  }
  for (const std::string& name : names.Unfinished)
    LeaveUnfinished(std::string(path).append("/").append(name));
  others = std::move(names.Others);
  return error;
}

// The folders go on the list. Gives an error number.
int ItemTransfer::ListNames(int folder, FolderNames& names) {
  for (;;) {
    if (const int error = buffer_.Fill(folder); error != 0) return error;
    if (buffer_.IsEmpty() || !context_.GoesOn()) return 0;
    while (const dirent64* const item = buffer_.Next()) {
      const TemporaryState state = StateOfTemporary(folder, item->d_name);
      if (state == TemporaryState::Left) names.HasLeft = true;
      if (state == TemporaryState::Living) {
        names.Unfinished.emplace_back(item->d_name);
        continue;
      }
      unsigned char type = item->d_type;
      struct statx found;
      if (type == DT_UNKNOWN && LookAt(folder, item->d_name, found) == 0) {
        type = static_cast<unsigned char>(IFTODT(found.stx_mode));
      }
      if (type != DT_DIR) names.Others += static_cast<char>(type);
      std::string& list = type == DT_DIR ? names_ : names.Others;
      list.append(item->d_name, std::strlen(item->d_name) + 1);
    }
  }
}

void ItemTransfer::TakeOthers(const std::string& others) {
  for (std::size_t at = 0;
       at < others.size() && !levels_.back().IsGivenUp && !context_.IsCancelled();) {
    const auto type = static_cast<unsigned char>(others[at]);
    const std::string name = others.data() + at + 1;
    at += name.size() + 2;
    TakeItem({name, static_cast<unsigned>(DTTOIF(type)), name});
  }
}

// Gives the folder at hand its own name. What was put there meanwhile stays, and the folder gets
// another name. False if it was given up.
bool ItemTransfer::PutInPlace() {
  Level& level = levels_.back();
  if (level.Temporary.empty()) return true;
  if (level.IsGivenUp) return false;
  const int above = targets_.Above();
  for (;;) {
    int error = RenameNew(above, level.Temporary.c_str(), above, level.Target.c_str());
    if (error == 0) {
      level.Temporary.clear();
      return true;
    }
    std::string twin = level.Target;
    if (error == EEXIST && (error = FindFreeTwin(above, twin, true)) == 0) {
      level.Target = twin;
      to_ = to_.substr(0, levels_[levels_.size() - 2].ToLength) + "/" + level.Target;
      level.ToLength = to_.size();
      continue;
    }
    if (context_.Retries(OperationStep::MakeFolder, to_, error)) continue;
    ForgetCopied();
    names_.resize(level.FirstName);
    level.IsGivenUp = true;
    return false;
  }
}

void ItemTransfer::LeaveFolder() {
  bool isWhole = !levels_.back().IsNew || FinishNewFolder(levels_.back());
  const Level left = std::move(levels_.back());
  levels_.pop_back();
  sources_.Leave();
  targets_.Leave();
  names_.resize(left.FirstName);
  from_.resize(levels_.back().FromLength);
  to_.resize(levels_.back().ToLength);
  if (!left.Temporary.empty() && !FinishReplacing(left)) isWhole = false;
  if (!isWhole || context_.IsCancelled()) return;
  const Item item{left.Name, S_IFDIR, left.Target};
  Failure failure;
  do {
    failure = left.IsNew ? FinishItem(item, left.Source) : Done(item, left.Source);
  } while (failure.Error != 0 && Retries(item, failure));
}

// False if the folder was given up.
bool ItemTransfer::FinishReplacing(const Level& left) {
  const char* const temporary = left.Temporary.c_str();
  while (left.ReplacesFile && context_.GoesOn()) {
    const int error =
        PutInPlaceOf(targets_.Get(), temporary, targets_.Get(), left.Target.c_str(), to_, record_);
    if (error == 0) return true;
    if (!context_.Retries(OperationStep::Write, ToPath(left.Target), error)) break;
  }
  ForgetCopied();
  DeleteQuietly(targets_.Get(), left.Temporary);
  return false;
}

bool ItemTransfer::FinishNewFolder(const Level& level) {
  for (;;) {
    struct statx copy;
    int error = targets_.Get() < 0 || sources_.Get() < 0 ? ESTALE : 0;
    if (error == 0) error = LookAt(targets_.Get(), "", copy);
    bool losesSome = false;
    if (error == 0) {
      error = CopyAttributes(sources_.Get(), level.Source, targets_.Get(), copy, true, losesSome);
    }
    if (error == 0) error = flushed_.Take(targets_.Get(), copy);
    if (error == 0) return !losesSome || !LeavesForLoss(from_);
    if (!context_.Retries(OperationStep::MakeFolder, to_, error)) return false;
  }
}

}  // namespace tarnwell::platform
