#include "platform/linux/operation/DeleteTree.h"

#include <cstring>
#include <utility>

#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {

void TreeDeletion::Delete(int folder, const std::string& name, const std::string& path) {
  copied_ = nullptr;
  Run(folder, name, path);
}

void TreeDeletion::DeleteCopied(int folder, const std::string& name, const std::string& path,
                                const CopiedItems& copied) {
  copied_ = &copied;
  Run(folder, name, path);
}

void TreeDeletion::Run(int folder, const std::string& name, const std::string& path) {
  path_ = path.substr(0, path.size() - name.size() - 1);
  Level above{{}, 0, 0, path_.size(), {}};
  Descriptor held(fcntl(folder, F_DUPFD_CLOEXEC, 0));
  if (!held || LookAt(folder, "", above.Found) != 0) {
    context_.Retries(OperationStep::Delete, path, errno);
    return;
  }
  above.Key = CopiedItems::KeyOfFirst(IdentityOf(above.Found));
  folders_.Enter(std::move(held), IdentityOf(above.Found));
  levels_.push_back(std::move(above));
  TakeItem(name.c_str(), true);
  while (!folders_.IsEmpty()) {
    if (names_.size() > levels_.back().FirstName && context_.GoesOn()) {
      const std::size_t start = names_.rfind('\0', names_.size() - 2) + 1;  // 0 for the first
      const std::string next = names_.data() + start;
      names_.resize(start);
      EnterFolder(next);
    } else {
      LeaveFolder();
    }
  }
}

bool TreeDeletion::Retries(std::string_view name, int error) {
  if (context_.Retries(OperationStep::Delete, PathOf(name), error)) return true;
  levels_.back().KeepsSome = true;
  return false;
}

void TreeDeletion::TakeItem(const char* name, bool mayBeFolder) {
  if (mayBeFolder) {
    struct statx found;
    int error = LookAt(folders_.Get(), name, found);
    while (error != 0 && Retries(name, error)) error = LookAt(folders_.Get(), name, found);
    if (error != 0) return;
    if (S_ISDIR(found.stx_mode)) {
      names_.append(name, std::strlen(name) + 1);
      return;
    }
  }
  copied_ != nullptr ? DeleteCopiedFile(name) : DeleteFile(name);
}

bool TreeDeletion::MayDelete(const char* name, const struct statx& found) {
  if (copied_ == nullptr) return true;
  switch (copied_->Find(CopiedItems::KeyBelow(levels_.back().Key, name), found)) {
    case CopiedItems::State::Copied:
      return true;
    case CopiedItems::State::Changed:
      context_.Retries(OperationStep::Delete, PathOf(name),
                       {EBUSY, "The item has changed since it was copied, and stays"});
      break;
    case CopiedItems::State::Unknown:  // skipped, or come since
      context_.NoteLeft(ENOTEMPTY);
      break;
  }
  levels_.back().KeepsSome = true;
  return false;
}

void TreeDeletion::DeleteFile(const char* name) {
  if (!context_.GoesOn()) return;
  while (unlinkat(folders_.Get(), name, 0) != 0) {
    if (errno == ENOENT) break;  // gone by itself
    if (!Retries(name, errno)) return;
  }
  context_.AddItems(1);
  if (context_.IsReportDue()) context_.Report(PathOf(name), {});
}

void TreeDeletion::DeleteCopiedFile(const char* name) {
  struct statx found;
  if (!context_.GoesOn() || LookAt(folders_.Get(), name, found) != 0 || !MayDelete(name, found)) {
    return;
  }
  if (!hold_ || heldIn_ != folders_.Self()) {
    hold_.emplace(folders_.Get());
    heldIn_ = folders_.Self();
  }
  int error = 0;
  do {
    error = DeleteHeld(name);
  } while (error != 0 && error != ENOENT && Retries(name, error));
  if (context_.IsReportDue()) context_.Report(PathOf(name), {});
}

int TreeDeletion::DeleteHeld(const char* name) {
  const int folder = folders_.Get();
  const int held = hold_->Get();
  // Where the item cannot be held, the look before must do.
  if (held < 0 || hold_->Take(name) != 0) return unlinkat(folder, name, 0) == 0 ? 0 : errno;
  struct statx found {};
  const bool isCopied = LookAt(held, name, found) == 0 &&
                        copied_->Find(CopiedItems::KeyBelow(levels_.back().Key, name), found) ==
                            CopiedItems::State::Copied;
  const int error = !isCopied || unlinkat(held, name, 0) == 0 ? 0 : errno;
  if (isCopied && error == 0) return 0;
  // Back before anybody is asked.
  int lost = 0;
  do {
    lost = PutBack(held, name, folder);
  } while (lost != 0 && lost != ENOENT && Retries(name, lost));
  if (!isCopied && lost == 0) MayDelete(name, found);  // tells of it
  return error;
}

void TreeDeletion::EnterFolder(const std::string& name) {
  constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
  const CopiedItems::Key key = CopiedItems::KeyBelow(levels_.back().Key, name);
  Level level{{}, key, names_.size(), path_.size() + 1 + name.size(), name};
  for (;;) {
    const int folder = folders_.Get();
    // The user has heard of one that was not copied, and need not hear that it cannot be opened.
    if (copied_ != nullptr && LookAt(folder, name.c_str(), level.Found) == 0 &&
        !MayDelete(name.c_str(), level.Found)) {
      return;
    }
    Descriptor opened(openat(folder, name.c_str(), flags));
    int error = opened ? LookAt(opened.Get(), "", level.Found) : errno;
    if (error == ENOENT) return;
    // One that may not be read may be empty.
    if (!opened && copied_ == nullptr && unlinkat(folder, name.c_str(), AT_REMOVEDIR) == 0) return;
    if (error == 0 && !IsSameMount(level.Found, levels_.back().Found)) error = EXDEV;
    if (error == 0 && !MayDelete(name.c_str(), level.Found)) return;
    if (error == 0) {
      path_ += "/" + name;
      folders_.Enter(std::move(opened), IdentityOf(level.Found));
      levels_.push_back(std::move(level));
      if (!ReadFolder(folders_.Get())) levels_.back().KeepsSome = true;
      return;
    }
    const base::Status reason =
        error == EXDEV ? base::Status{EBUSY, "Another volume is mounted here"} : SystemError(error);
    if (context_.Retries(OperationStep::Delete, PathOf(name), reason)) continue;
    levels_.back().KeepsSome = true;
    return;
  }
}

// The names come first, since file systems may pass over some when items go during the reading.
bool TreeDeletion::ReadFolder(int folder) {
  hold_.reset();
  files_.clear();
  std::string unclear;
  for (;;) {
    if (const int error = buffer_.Fill(folder); error != 0) {
      context_.Retries(OperationStep::Delete, path_, error);
      return false;
    }
    if (buffer_.IsEmpty()) break;
    std::uint64_t count = 0;
    while (const dirent64* const item = buffer_.Next()) {
      std::string& list = item->d_type == DT_DIR       ? names_
                          : item->d_type == DT_UNKNOWN ? unclear
                                                       : files_;
      list.append(item->d_name, std::strlen(item->d_name) + 1);
      ++count;
    }
    if (copied_ == nullptr) context_.AddToTotal(count);
    if (!context_.GoesOn()) return true;
  }
  for (std::size_t at = 0; at < files_.size(); at += std::strlen(files_.data() + at) + 1) {
    TakeItem(files_.data() + at, false);
    if (context_.IsCancelled()) break;
  }
  for (std::size_t at = 0; at < unclear.size(); at += std::strlen(unclear.data() + at) + 1) {
    TakeItem(unclear.data() + at, true);
  }
  hold_.reset();
  return true;
}

void TreeDeletion::LeaveFolder() {
  const Level left = std::move(levels_.back());
  levels_.pop_back();
  folders_.Leave();
  names_.resize(left.FirstName);
  if (levels_.empty()) return;
  path_.resize(levels_.back().PathLength);
  if (left.KeepsSome || context_.IsCancelled()) {
    levels_.back().KeepsSome = true;
    return;
  }
  const char* const name = left.Name.c_str();
  while (unlinkat(folders_.Get(), name, AT_REMOVEDIR) != 0) {
    if (errno == ENOENT) break;
    if (copied_ != nullptr && (errno == ENOTEMPTY || errno == EEXIST)) {
      context_.NoteLeft(errno);
      levels_.back().KeepsSome = true;
      return;
    }
    // The way back was lost.
    const int error = folders_.Get() < 0 ? ESTALE : errno;
    if (!Retries(left.Name, error)) return;
  }
  if (copied_ == nullptr) context_.AddItems(1);
}

void DeleteQuietly(int folder, const std::string& name) {
  OperationUser nobody;
  OperationContext context(nobody, FileFunction::Delete, Silent | NoErrorWindows);
  TreeDeletion(context).Delete(folder, name, "/" + name);
}

}  // namespace tarnwell::platform
