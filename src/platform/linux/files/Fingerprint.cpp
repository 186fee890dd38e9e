#include "platform/linux/files/Fingerprint.h"

#include <fcntl.h>

#include <utility>

#include "platform/linux/posix/FolderBuffer.h"
#include "platform/linux/posix/ItemStat.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/TreeWalk.h"

namespace tarnwell::platform {
namespace {

class BelowWalk {
 public:
  explicit BelowWalk(const std::function<bool()>& goesOn) : goesOn_(goesOn) {}

  std::uint64_t Run(int folder, const char* name) {
    Enter(folder, name);
    std::uint64_t below = 0;
    walk_.Run(
        0, [this] { return isWhole_; },
        [this](const std::string& next) { Enter(walk_.Folder(), next.c_str()); },
        [&] {
          const std::string left = walk_.Name();
          below = walk_.Leave().Below;
          if (walk_.IsEmpty()) return;
          walk_.Here().Below += ShareOf(left, {.Kind = S_IFDIR, .Below = below});
        });
    return isWhole_ ? below : 0;
  }

 private:
  struct Level {
    struct statx Found {};
    VolumeTraits Traits;
    std::uint64_t Below = NothingBelow;
  };

  void Enter(int above, const char* name) {
    constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
    Descriptor folder(openat(above, name, flags));
    Level level;
    isWhole_ = folder && LookAt(folder.Get(), "", level.Found) == NoError &&
               (walk_.IsEmpty() || IsSameMount(level.Found, walk_.At(0).Found));
    if (!isWhole_) return;
    level.Traits = walk_.IsEmpty() ? TraitsOf(folder.Get()) : walk_.At(0).Traits;
    const int number = folder.Get();
    const ItemIdentity self = IdentityOf(level.Found);
    walk_.Enter(std::move(folder), self, name, walk_.Mark(), level);
    const ErrorNumber error = buffer_.Read(
        number, [&](const dirent64& item) { return Take(number, item); }, goesOn_);
    if (error != NoError || !goesOn_()) isWhole_ = false;
  }

  bool Take(int folder, const dirent64& item) {
    struct statx found;
    isWhole_ = LookAt(folder, item.d_name, found) == NoError;
    if (isWhole_ && S_ISDIR(found.stx_mode)) {
      walk_.Add(item.d_name);
    } else if (isWhole_) {
      Level& here = walk_.Here();
      here.Below += ShareOf(item.d_name, FingerprintOf(found, here.Traits));
    }
    return isWhole_;
  }

  const std::function<bool()>& goesOn_;
  TreeWalk<Level> walk_;
  FolderBuffer buffer_;
  bool isWhole_ = true;
};

}  // namespace

ItemFingerprint FingerprintOf(const struct statx& found, const VolumeTraits& traits) {
  ItemFingerprint print{.Kind = found.stx_mode & static_cast<unsigned>(S_IFMT)};
  if (traits.HasLastingNumbers) {
    print.Device = FileIdentityOf(found).Device;
    print.Number = found.stx_ino;
    const bool hasBirth = traits.HasLastingBirth && (found.stx_mask & STATX_BTIME) != 0;
    if (hasBirth) print.Born = Nanoseconds(found.stx_btime);
  }
  if (S_ISREG(found.stx_mode)) print.Size = found.stx_size;
  if (S_ISDIR(found.stx_mode)) return print;
  print.Modified = Nanoseconds(found.stx_mtime);
  if (!traits.HasFineTimes) print.Modified = CoarseTime(print.Modified);
  return print;
}

std::uint64_t FindBelow(int folder, const char* name, const std::function<bool()>& goesOn) {
  return BelowWalk(goesOn).Run(folder, name);
}

ItemFingerprint FingerprintOf(const std::string& path, bool isWhole) {
  const Descriptor item = OpenPath(path, O_PATH | O_NOFOLLOW);
  struct statx found;
  if (!item || LookAt(item.Get(), "", found) != NoError) return {};
  ItemFingerprint print = FingerprintOf(found, TraitsOf(item.Get()));
  if (isWhole && S_ISDIR(found.stx_mode)) {
    print.Below = FindBelow(item.Get(), ".", [] { return true; });
  }
  return print;
}

}  // namespace tarnwell::platform
