#include "platform/linux/files/LinuxItemInspector.h"

#include <fcntl.h>
#include <gio/gio.h>
#include <gio/gunixmounts.h>
#include <grp.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

#include "base/PathSyntax.h"
#include "base/Text.h"
#include "platform/linux/files/ItemPermissions.h"
#include "platform/linux/posix/GioObject.h"
#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/ItemStat.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

constexpr unsigned Wanted = STATX_BASIC_STATS | STATX_BTIME;
constexpr unsigned PathFlags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
constexpr std::uint64_t BlockSize = 512;  // of stx_blocks, whatever the file system

// With a separator at its end a link would be followed.
std::string WithoutSlash(const std::string& path) {
  std::string_view rest = path;
  while (rest.size() > 1 && rest.ends_with('/')) rest.remove_suffix(1);
  return std::string(rest);
}

std::string Shown(const char* name) {
  return base::ForDisplay(name);
}

// The name that the system's register has for the number; the number where it has none.
template <typename Entry, typename Look>
std::string NameOf(unsigned number, Look look, char* Entry::*name) {
  constexpr std::size_t most = std::size_t{1} << 20;
  Entry entry;
  Entry* found = nullptr;
  int error = ERANGE;
  std::vector<char> room(1024);
  for (; error == ERANGE && room.size() <= most; room.resize(room.size() * 4)) {
    error = look(number, &entry, room.data(), room.size(), &found);
    if (error == 0) break;
  }
  return error == 0 && found != nullptr ? Shown(found->*name) : std::to_string(number);
}

// What the content is; by the name alone where it cannot be looked at.
void ReadType(const std::string& path, ItemFacts& facts) {
  GioText type;
  const GioObject<GFile> file(g_file_new_for_path(path.c_str()));
  const GioObject<GFileInfo> info(g_file_query_info(file.get(),
                                                    G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE,
                                                    G_FILE_QUERY_INFO_NONE, nullptr, nullptr));
  const char* const found = info ? g_file_info_get_content_type(info.get()) : nullptr;
  if (found != nullptr) {
    type.reset(g_strdup(found));
  } else if (facts.Kind == ItemKind::Folder) {
    type.reset(g_strdup("inode/directory"));
  } else {
    type.reset(g_content_type_guess(path.c_str(), nullptr, 0, nullptr));
  }
  const GioText description(g_content_type_get_description(type.get()));
  const GioText name(g_content_type_get_mime_type(type.get()));
  facts.Type = Shown(description.get());
  if (name) facts.TypeName = Shown(name.get());
}

std::string WhyFixed(const struct statx& found, const std::string& owner) {
  if (S_ISLNK(found.stx_mode)) {
    return "A link has no permissions of its own. Those of what it leads to count.";
  }
  const uid_t user = geteuid();
  if (user == 0 || user == found.stx_uid) return {};
  return "Only the owner, " + owner + ", and the administrator can change the permissions.";
}

std::string ReadLocation(const std::string& path) {
  struct FreeMemory {
    void operator()(char* memory) const { std::free(memory); }  // NOLINT: as realpath wants it
  };
  const base::PathSyntax& syntax = base::PathSyntax::Posix();
  const std::string parent = syntax.ParentOf(path);
  const std::unique_ptr<char, FreeMemory> real(realpath(parent.c_str(), nullptr));
  return path == "/" ? path : syntax.Join(real ? real.get() : parent, syntax.LastComponent(path));
}

}  // namespace

base::Status LinuxItemInspector::ReadFacts(const std::string& path, ItemFacts& facts) const {
  const std::string plain = WithoutSlash(path);
  const ReachedPath reached(plain);
  if (reached.Error() != NoError) return SystemError(reached.Error());
  struct statx found;
  if (statx(reached.Folder(), reached.Rest(), PathFlags, Wanted, &found) != 0) {
    return SystemError(errno);
  }
  facts = {};
  facts.Kind = KindOfMode(found.stx_mode);
  facts.IsLink = S_ISLNK(found.stx_mode);
  if (facts.IsLink) {
    facts.LinkTarget = ReadLinkTarget(reached.Folder(), reached.Rest());
    struct statx target;
    facts.IsBroken =
        statx(reached.Folder(), reached.Rest(), AT_NO_AUTOMOUNT, STATX_TYPE, &target) != 0;
    if (!facts.IsBroken) facts.Kind = KindOfMode(target.stx_mode);
  }
  facts.Size = S_ISDIR(found.stx_mode) ? 0 : found.stx_size;
  facts.SizeOnDisk = found.stx_blocks * BlockSize;
  facts.Modified = Nanoseconds(found.stx_mtime);
  facts.Accessed = Nanoseconds(found.stx_atime);
  facts.Created = (found.stx_mask & STATX_BTIME) != 0 ? Nanoseconds(found.stx_btime) : UnknownTime;
  facts.Owner = NameOf<passwd>(found.stx_uid, getpwuid_r, &passwd::pw_name);
  facts.Group = NameOf<group>(found.stx_gid, getgrgid_r, &group::gr_name);
  facts.Mode = found.stx_mode & 07777U;
  facts.HardLinks = found.stx_nlink;
  facts.Identity = FileIdentityOf(found);
  facts.WhyFixed = WhyFixed(found, facts.Owner);
  if (!facts.IsBroken) ReadType(plain, facts);
  if (!facts.WhyFixed.empty()) return {};
  const Descriptor opened(openat(reached.Folder(), reached.Rest(), O_PATH | O_CLOEXEC));
  struct statvfs volume {};
  if (opened && fstatvfs(opened.Get(), &volume) == 0 && (volume.f_flag & ST_RDONLY) != 0) {
    facts.WhyFixed = "The volume can only be read.";
  }
  return {};
}

base::Status LinuxItemInspector::ReadVolume(const std::string& path, VolumeFacts& volume) const {
  volume = {};
  const std::string location = ReadLocation(WithoutSlash(path));
  GList* const mounts = g_unix_mounts_get(nullptr);
  for (const GList* item = mounts; item != nullptr; item = item->next) {
    auto* const entry = static_cast<GUnixMountEntry*>(item->data);
    const std::string_view point = g_unix_mount_get_mount_path(entry);
    // Of several at one place the one mounted last is on top.
    if (point.size() < volume.MountPoint.size()) continue;
    if (!base::PathSyntax::Posix().IsWithin(location, point)) continue;
    volume.MountPoint = point;
    volume.FileSystem = Shown(g_unix_mount_get_fs_type(entry));
  }
  g_list_free_full(mounts,
                   [](gpointer entry) { g_unix_mount_free(static_cast<GUnixMountEntry*>(entry)); });
  const Descriptor opened = OpenPath(WithoutSlash(path), O_PATH | O_NOFOLLOW);
  struct statvfs found {};
  if (!opened || fstatvfs(opened.Get(), &found) != 0) return SystemError(errno);
  volume.Space.Free = std::uint64_t{found.f_bavail} * found.f_frsize;
  volume.Space.Total = std::uint64_t{found.f_blocks} * found.f_frsize;
  return {};
}

void LinuxItemInspector::SetPermissions(const std::string& path, const PermissionChange& change,
                                        bool inside, const GoOn& goOn,
                                        PermissionOutcome& outcome) const {
  SetItemPermissions(WithoutSlash(path), change, inside, goOn, outcome);
}

}  // namespace tarnwell::platform
