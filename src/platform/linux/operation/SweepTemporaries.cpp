#include "platform/linux/operation/SweepTemporaries.h"

#include <unistd.h>

#include <string>
#include <vector>

#include "platform/linux/files/RenameItem.h"
#include "platform/linux/operation/DeleteTree.h"
#include "platform/linux/operation/HoldFolder.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/FolderBuffer.h"
#include "platform/linux/posix/TemporaryName.h"

namespace tarnwell::platform {
namespace {

struct QuietUser : OperationUser {
  explicit QuietUser(const std::function<bool()>& goesOn) : goesOn_(goesOn) {}
  bool GoesOn() override { return goesOn_(); }

 private:
  const std::function<bool()>& goesOn_;
};

// What cannot be read is left for another time.
template <typename Take>
void ForEachName(int folder, const std::function<bool()>& goesOn, Take take) {
  if (!goesOn()) return;
  const auto takeName = [&](const dirent64& item) {
    take(item.d_name);
    return true;
  };
  static_cast<void>(FolderBuffer().Read(folder, takeName, goesOn));
}

void Delete(int folder, const std::string& name, QuietUser& user) {
  // Should somebody be writing it after all, he finds it gone, and takes nothing for copied.
  TemporaryName taken;
  if (taken.Renew() != NoError || RenameNew(folder, name.c_str(), folder, taken.Text()) != NoError)
    return;
  OperationContext context(user, FileFunction::Delete, Silent | NoErrorWindows);
  TreeDeletion(context).Delete(folder, taken.Text(), std::string("/") + taken.Text());
}

// What it holds goes back to its place.
void Empty(int folder, const std::string& hold, const std::function<bool()>& goesOn) {
  constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
  const Descriptor opened(openat(folder, hold.c_str(), flags));
  if (!opened) return;
  std::vector<std::string> names;
  ForEachName(opened.Get(), goesOn, [&](const char* name) { names.emplace_back(name); });
  for (const std::string& name : names) {
    static_cast<void>(
        PutBack(opened.Get(), name.c_str(), folder));  // or it stays, and the hold too
  }
  unlinkat(folder, hold.c_str(), AT_REMOVEDIR);
}

}  // namespace

TemporaryState StateOfTemporary(int folder, const char* name) {
  if (*name != '.') return TemporaryState::None;
  auto owner = TemporaryOwner::FromName(name);
  if (!owner) owner = TemporaryOwner::FromName(name, TemporaryOwner::HoldEnding);
  if (!owner) return TemporaryState::None;
  struct statx found;
  const bool isLeft = LookAt(folder, name, found) == NoError && found.stx_uid == geteuid() &&
                      owner->IsGone(found.stx_ctime.tv_sec);
  return isLeft ? TemporaryState::Left : TemporaryState::Living;
}

void SweepTemporaries(int folder, const std::function<bool()>& goesOn) {
  const Descriptor fresh(openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!fresh) return;
  std::vector<std::string> left;
  ForEachName(fresh.Get(), goesOn, [&](const char* name) {
    if (StateOfTemporary(folder, name) == TemporaryState::Left) left.emplace_back(name);
  });
  QuietUser user(goesOn);
  for (const std::string& name : left) {
    if (name.ends_with(TemporaryOwner::HoldEnding)) {
      Empty(folder, name, goesOn);
    } else {
      Delete(folder, name, user);
    }
  }
}

}  // namespace tarnwell::platform
