#include "platform/linux/files/LinuxFolderStamps.h"

#include <glib.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/GuardedCall.h"
#include "platform/linux/posix/ItemStat.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/VolumeKind.h"

namespace tarnwell::platform {
namespace {

constexpr unsigned wanted = STATX_TYPE | STATX_INO | STATX_MTIME | STATX_CTIME;

// `flags`: more of them for statx(2).
FolderStamp StampOf(int folder, const char* path, int flags) {
  struct statx found;
  if (statx(folder, path, AT_NO_AUTOMOUNT | flags, wanted, &found) != 0) return {};
  if (!S_ISDIR(found.stx_mode)) return {};
  return {.IsThere = true,
          .Device = makedev(found.stx_dev_major, found.stx_dev_minor),
          .Inode = found.stx_ino,
          .Modified = Nanoseconds(found.stx_mtime),
          .Changed = Nanoseconds(found.stx_ctime)};
}

FolderStamp StampOf(const std::string& folder, int flags) {
  const ReachedPath path(folder);
  return path.Error() == NoError ? StampOf(path.Folder(), path.Rest(), flags) : FolderStamp();
}

// The system knows an open folder by the path that no link stands in. One that is too long for it
// to tell may hold any.
bool DiffersFromOwnPath(const Descriptor& opened, const std::string& folder) {
  const std::string link = "/proc/self/fd/" + std::to_string(opened.Get());
  std::array<char, PATH_MAX> own;
  const ssize_t length = readlink(link.c_str(), own.data(), own.size());
  if (length < 0) return errno == ENAMETOOLONG;
  return std::string_view(own.data(), static_cast<std::size_t>(length)) != folder;
}

// Of a folder that is not there: where it would be. A path that fails in another way may do so
// because of a share.
bool WouldBeLocal(std::string folder, ErrorNumber error) {
  while (error == ENOENT || error == ENOTDIR) {
    const std::size_t cut = folder.rfind('/');
    if (cut == folder.npos || folder.size() == 1) return true;
    folder.resize(cut == 0 ? 1 : cut);
    const Descriptor above = OpenPath(folder, O_PATH);
    if (above) return IsLocalVolume(above, folder);
    error = errno;
  }
  return false;
}

// Shared by the request, its thread and the answer. The thread touches Folders and Stamps alone,
// before the answer is posted.
struct Inquiry {
  std::vector<std::string> Folders;
  std::vector<FolderStamp> Stamps;
  FolderStamps::Told Told;
  bool IsWanted = true;
};

class Request : public StampRequest {
 public:
  explicit Request(std::shared_ptr<Inquiry> inquiry) : inquiry_(std::move(inquiry)) {}
  Request(const Request&) = delete;
  Request& operator=(const Request&) = delete;
  ~Request() override { inquiry_->IsWanted = false; }

 private:
  std::shared_ptr<Inquiry> inquiry_;
};

using Holder = std::shared_ptr<Inquiry>;

gboolean Answer(gpointer data) noexcept {
  const Holder inquiry = *static_cast<Holder*>(data);  // held while it tells
  GuardedCall([&] {
    if (inquiry->IsWanted) inquiry->Told(inquiry->Stamps);
  });
  return G_SOURCE_REMOVE;
}

void LookAndPost(const Holder& inquiry) {
  GuardedCall([&] {
    for (const std::string& folder : inquiry->Folders) {
      inquiry->Stamps.push_back(StampOf(folder, AT_STATX_FORCE_SYNC));
    }
    g_idle_add_full(G_PRIORITY_DEFAULT, &Answer, new Holder(inquiry),
                    [](gpointer data) { delete static_cast<Holder*>(data); });
  });
}

}  // namespace

FolderFacts LinuxFolderStamps::ReadFacts(const std::string& folder) const {
  const Descriptor opened = OpenPath(folder, O_PATH | O_DIRECTORY);
  if (!opened) return {.Stamp = {}, .IsLocal = WouldBeLocal(folder, errno)};
  return {.Stamp = StampOf(opened.Get(), "", AT_EMPTY_PATH),
          .IsLocal = IsLocalVolume(opened, folder),
          .IsByLink = DiffersFromOwnPath(opened, folder)};
}

FolderStamp LinuxFolderStamps::Read(const std::string& folder) const {
  return StampOf(folder, 0);
}

std::unique_ptr<StampRequest> LinuxFolderStamps::Ask(std::vector<std::string> folders, Told told) {
  auto inquiry = std::make_shared<Inquiry>();
  inquiry->Folders = std::move(folders);
  inquiry->Told = std::move(told);
  try {
    std::thread(LookAndPost, inquiry).detach();
  } catch (const std::system_error&) {
    return nullptr;
  }
  return std::make_unique<Request>(std::move(inquiry));
}

}  // namespace tarnwell::platform
