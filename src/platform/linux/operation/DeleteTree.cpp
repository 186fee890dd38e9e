#include "platform/linux/operation/DeleteTree.h"

#include <utility>

#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {

void TreeDeletion::Delete(int folder, const std::string& name, const std::string& path) {
  copied_ = nullptr;
  const std::uint64_t before = context_.ItemsDone();
  Run(folder, name, path);
  if (context_.ItemsDone() != before) context_.NoteIrrevocable();
}

void TreeDeletion::DeleteCopied(int folder, const std::string& name, const std::string& path,
                                const CopiedItems& copied) {
  copied_ = &copied;
  Run(folder, name, path);
}

void TreeDeletion::Run(int folder, const std::string& name, const std::string& path) {
  Level above;
  Descriptor held(fcntl(folder, F_DUPFD_CLOEXEC, 0));
  if (!held || LookAt(folder, "", above.Found) != NoError) {
    context_.Retries(OperationStep::Delete, path, errno);
    return;
  }
  const ItemIdentity self = IdentityOf(above.Found);
  above.Key = CopiedItems::KeyOfFirst(self);
  walk_.Enter(std::move(held), self, path.substr(0, path.size() - name.size() - 1), walk_.Mark(),
              above);
  TakeItem(name.c_str(), true);
  walk_.Run(
      0, [this] { return context_.GoesOn(); },
      [this](const std::string& next) { EnterFolder(next); }, [this] { LeaveFolder(); });
}

bool TreeDeletion::Retries(std::string_view name, ErrorNumber error) {
  if (context_.Retries(OperationStep::Delete, walk_.PathOf(name), error)) return true;
  walk_.Here().KeepsSome = true;
  return false;
}

void TreeDeletion::TakeItem(const char* name, bool mayBeFolder) {
  if (mayBeFolder) {
    struct statx found;
    ErrorNumber error = LookAt(walk_.Folder(), name, found);
    while (error != NoError && Retries(name, error)) error = LookAt(walk_.Folder(), name, found);
    if (error != NoError) return;
    if (S_ISDIR(found.stx_mode)) {
      walk_.Add(name);
      return;
    }
  }
  copied_ != nullptr ? DeleteCopiedFile(name) : DeleteFile(name);
}

bool TreeDeletion::MayDelete(const char* name, const struct statx& found) {
  if (copied_ == nullptr) return true;
  switch (copied_->Find(CopiedItems::KeyBelow(walk_.Here().Key, name), found)) {
    case CopiedItems::State::Copied:
      return true;
    case CopiedItems::State::Changed:
      context_.Retries(OperationStep::Delete, walk_.PathOf(name),
                       {EBUSY, "The item has changed since it was copied, and stays"});
      break;
    case CopiedItems::State::Unknown:  // skipped, or come since
      context_.NoteLeft(ENOTEMPTY);
      break;
  }
  walk_.Here().KeepsSome = true;
  return false;
}

void TreeDeletion::DeleteFile(const char* name) {
  if (!context_.GoesOn()) return;
  while (unlinkat(walk_.Folder(), name, 0) != 0) {
    if (errno == ENOENT) break;  // gone by itself
    if (!Retries(name, errno)) return;
  }
  context_.AddItems(1);
  if (context_.IsReportDue()) context_.Report(walk_.PathOf(name), {});
}

void TreeDeletion::DeleteCopiedFile(const char* name) {
  struct statx found;
  if (!context_.GoesOn() || LookAt(walk_.Folder(), name, found) != NoError ||
      !MayDelete(name, found)) {
    return;
  }
  if (!hold_ || heldIn_ != walk_.Self()) {
    hold_.emplace(walk_.Folder());
    heldIn_ = walk_.Self();
  }
  ErrorNumber error;
  do {
    error = DeleteHeld(name);
  } while (error != NoError && error != ENOENT && Retries(name, error));
  if (context_.IsReportDue()) context_.Report(walk_.PathOf(name), {});
}

ErrorNumber TreeDeletion::DeleteHeld(const char* name) {
  const int folder = walk_.Folder();
  const int held = hold_->Get();
  // Where the item cannot be held, the look before must do.
  if (held < 0 || hold_->Take(name) != NoError) return ErrorOf(unlinkat(folder, name, 0));
  struct statx found {};
  const bool isCopied = LookAt(held, name, found) == NoError &&
                        copied_->Find(CopiedItems::KeyBelow(walk_.Here().Key, name), found) ==
                            CopiedItems::State::Copied;
  const ErrorNumber error = isCopied ? ErrorOf(unlinkat(held, name, 0)) : NoError;
  if (isCopied && error == NoError) return NoError;
  // Back before anybody is asked.
  ErrorNumber lost;
  do {
    lost = PutBack(held, name, folder);
  } while (lost != NoError && lost != ENOENT && Retries(name, lost));
  if (!isCopied && lost == NoError) MayDelete(name, found);  // tells of it
  return error;
}

void TreeDeletion::EnterFolder(const std::string& name) {
  constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
  const CopiedItems::Key key = CopiedItems::KeyBelow(walk_.Here().Key, name);
  Level level{{}, key};
  for (;;) {
    const int folder = walk_.Folder();
    // The user has heard of one that was not copied, and need not hear that it cannot be opened.
    if (copied_ != nullptr && LookAt(folder, name.c_str(), level.Found) == NoError &&
        !MayDelete(name.c_str(), level.Found)) {
      return;
    }
    Descriptor opened(openat(folder, name.c_str(), flags));
    ErrorNumber error = opened ? LookAt(opened.Get(), "", level.Found) : errno;
    if (error == ENOENT) return;
    // One that may not be read may be empty.
    if (!opened && copied_ == nullptr && unlinkat(folder, name.c_str(), AT_REMOVEDIR) == 0) return;
    if (error == NoError && !IsSameMount(level.Found, walk_.Here().Found)) error = EXDEV;
    if (error == NoError && !MayDelete(name.c_str(), level.Found)) return;
    if (error == NoError) {
      walk_.Enter(std::move(opened), IdentityOf(level.Found), name, walk_.Mark(), level);
      if (!ReadFolder(walk_.Folder())) walk_.Here().KeepsSome = true;
      return;
    }
    const base::Status reason =
        error == EXDEV ? base::Status{EBUSY, "Another volume is mounted here"} : SystemError(error);
    if (context_.Retries(OperationStep::Delete, walk_.PathOf(name), reason)) continue;
    walk_.Here().KeepsSome = true;
    return;
  }
}

// The names come first, since file systems may pass over some when items go during the reading.
bool TreeDeletion::ReadFolder(int folder) {
  hold_.reset();
  files_.Clear();
  NameList unclear;
  const auto take = [&](const dirent64& item) {
    if (copied_ == nullptr) context_.AddToTotal(1);
    if (item.d_type == DT_DIR) {
      walk_.Add(item.d_name);
    } else {
      (item.d_type == DT_UNKNOWN ? unclear : files_).Add(item.d_name);
    }
    return true;
  };
  if (const ErrorNumber error = buffer_.Read(folder, take, [this] { return context_.GoesOn(); });
      error != NoError) {
    context_.Retries(OperationStep::Delete, walk_.Path(), error);
    return false;
  }
  for (const char* const name : files_) {
    if (context_.IsCancelled()) break;
    TakeItem(name, false);
  }
  for (const char* const name : unclear) {
    if (context_.IsCancelled()) break;
    TakeItem(name, true);
  }
  hold_.reset();
  return true;
}

void TreeDeletion::LeaveFolder() {
  const std::string leftName = walk_.Name();
  const Level left = walk_.Leave();
  if (walk_.IsEmpty()) return;
  if (left.KeepsSome || context_.IsCancelled()) {
    walk_.Here().KeepsSome = true;
    return;
  }
  const char* const name = leftName.c_str();
  while (unlinkat(walk_.Folder(), name, AT_REMOVEDIR) != 0) {
    if (errno == ENOENT) break;
    if (copied_ != nullptr && (errno == ENOTEMPTY || errno == EEXIST)) {
      context_.NoteLeft(errno);
      walk_.Here().KeepsSome = true;
      return;
    }
    // The way back was lost.
    const ErrorNumber error = walk_.Folder() < 0 ? ESTALE : errno;
    if (!Retries(name, error)) return;
  }
  if (copied_ == nullptr) context_.AddItems(1);
}

void DeleteQuietly(int folder, const std::string& name) {
  OperationUser nobody;
  OperationContext context(nobody, FileFunction::Delete, Silent | NoErrorWindows);
  TreeDeletion(context).Delete(folder, name, "/" + name);
}

}  // namespace tarnwell::platform
