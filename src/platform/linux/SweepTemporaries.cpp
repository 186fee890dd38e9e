#include "platform/linux/SweepTemporaries.h"

#include <unistd.h>

#include <string>
#include <vector>

#include "platform/linux/DeleteTree.h"
#include "platform/linux/Descriptor.h"
#include "platform/linux/FolderBuffer.h"
#include "platform/linux/RenameItem.h"
#include "platform/linux/TemporaryName.h"

namespace tarnwell::platform {
namespace {

struct QuietUser : OperationUser {
  explicit QuietUser(const std::function<bool()>& goesOn) : goesOn_(goesOn) {}
  bool GoesOn() override { return goesOn_(); }

 private:
  const std::function<bool()>& goesOn_;
};

bool IsLeft(int folder, const std::string& name, const TemporaryOwner& owner) {
  struct statx found;
  return LookAt(folder, name.c_str(), found) == 0 && found.stx_uid == geteuid() &&
         owner.IsGone(found.stx_ctime.tv_sec);
}

}  // namespace

void SweepTemporaries(int folder, const std::function<bool()>& goesOn) {
  std::vector<std::string> left;
  const Descriptor fresh(openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  FolderBuffer buffer;
  while (fresh && goesOn() && buffer.Fill(fresh.Get()) == 0 && !buffer.IsEmpty()) {
    while (const dirent64* const item = buffer.Next()) {
      if (item->d_name[0] != '.') continue;
      const auto owner = TemporaryOwner::FromName(item->d_name);
      if (owner && IsLeft(folder, item->d_name, *owner)) left.emplace_back(item->d_name);
    }
  }
  QuietUser user(goesOn);
  TemporaryName taken;
  for (const std::string& name : left) {
    // Should somebody be writing it after all, he finds it gone, and takes nothing for copied.
    if (taken.Renew() != 0 || RenameNew(folder, name.c_str(), folder, taken.Text()) != 0) continue;
    OperationTalk talk(user, FileFunction::Delete, Silent | NoErrorWindows);
    TreeDeletion(talk).Delete(folder, taken.Text(), std::string("/") + taken.Text());
  }
}

}  // namespace tarnwell::platform
