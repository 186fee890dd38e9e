#include "platform/linux/posix/FolderChain.h"

#include <utility>

namespace tarnwell::platform {
namespace {

constexpr std::size_t openAtOnce = 32;

Descriptor OpenAbove(int folder) {
  constexpr int flags = O_DIRECTORY | O_CLOEXEC;
  Descriptor above(openat(folder, "..", flags | O_RDONLY));
  return above ? std::move(above) : Descriptor(openat(folder, "..", flags | O_PATH));
}

}  // namespace

void FolderChain::Enter(Descriptor folder, const ItemIdentity& self) {
  links_.push_back({std::move(folder), self});
  if (links_.size() > openAtOnce) links_[links_.size() - openAtOnce - 1].Folder = Descriptor();
}

void FolderChain::Leave() {
  const Link left = std::move(links_.back());
  links_.pop_back();
  if (links_.empty() || links_.back().Folder || !left.Folder) return;
  Descriptor above = OpenAbove(left.Folder.Get());
  struct statx found;
  if (above && LookAt(above.Get(), "", found) == NoError &&
      IdentityOf(found) == links_.back().Self) {
    links_.back().Folder = std::move(above);
  }
}

}  // namespace tarnwell::platform
