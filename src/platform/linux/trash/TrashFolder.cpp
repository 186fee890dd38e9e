#include "platform/linux/trash/TrashFolder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

Descriptor OpenOwn(int folder, const char* name, int access) {
  return Descriptor(openat(folder, name, access | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

// Of a folder that could not be opened, by errno. What is no folder is no trash either.
base::Status ReasonOfMissing(int folder, const char* name) {
  const ErrorNumber error = errno;
  if (error != ENOTDIR && error != ELOOP) return SystemError(error);
  struct stat found {};
  const bool isLink =
      fstatat(folder, name, &found, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(found.st_mode);
  return isLink ? base::Status{ELOOP, "It is a link, which no trash may be"} : SystemError(ENOENT);
}

std::string_view LastPart(std::string_view path) {
  return path.substr(path.rfind('/') + 1);
}

std::string Above(std::string_view path) {
  const std::size_t slash = path.rfind('/');
  return slash == path.npos || slash == 0 ? "/" : std::string(path.substr(0, slash));
}

std::string Below(std::string_view folder, std::string_view name) {
  std::string path(folder);
  if (!path.ends_with('/')) path += '/';
  return path.append(name);
}

}  // namespace

TrashPath::TrashPath(std::string path, uid_t user) : path_(std::move(path)), user_(user) {
  const std::string number = std::to_string(user_);
  const std::string above = Above(path_);
  base_ = above;
  if (LastPart(path_) == ".Trash-" + number) {
    kind_ = Kind::Own;
  } else if (LastPart(path_) == number && LastPart(above) == ".Trash") {
    kind_ = Kind::Shared;
    base_ = Above(above);
  }
}

TrashPath TrashPath::SharedOn(const std::string& top, uid_t user) {
  return {Below(top, ".Trash/" + std::to_string(user)), user};
}

TrashPath TrashPath::OwnOn(const std::string& top, uid_t user) {
  return {Below(top, ".Trash-" + std::to_string(user)), user};
}

std::string TrashPath::PlaceOf(std::string_view name) const {
  return Below(FilesFolder(), name);
}

std::string TrashPath::NotePlaceOf(std::string_view name) const {
  return Below(NotesFolder(), name).append(NoteEnding);
}

Descriptor TrashPath::Open(base::Status& status) const {
  const auto fail = [&](const base::Status& why) {
    status = why;
    return Descriptor();
  };
  if (IsHome()) {
    Descriptor home = OpenPath(path_, O_RDONLY | O_DIRECTORY);
    return home ? std::move(home) : fail(SystemError(errno));
  }
  Descriptor above = OpenPath(base_, O_PATH | O_DIRECTORY);
  if (!above) {
    // A volume that this user may not even enter has none of his.
    const bool isShut = errno == EACCES || errno == EPERM || errno == ENOTDIR;
    return fail(SystemError(isShut ? ErrorNumber(ENOENT) : ErrorNumber(errno)));
  }
  if (kind_ == Kind::Shared) {
    Descriptor shared = OpenOwn(above.Get(), ".Trash", O_PATH);
    if (!shared) return fail(ReasonOfMissing(above.Get(), ".Trash"));
    above = std::move(shared);
  }
  const std::string name(LastPart(path_));
  Descriptor opened = OpenOwn(above.Get(), name.c_str(), O_RDONLY);
  if (!opened) return fail(ReasonOfMissing(above.Get(), name.c_str()));
  struct stat holding {};
  struct stat own {};
  if (fstat(above.Get(), &holding) != 0 || fstat(opened.Get(), &own) != 0) {
    return fail(SystemError(errno));
  }
  if (own.st_uid != user_) return fail({EPERM, "It belongs to somebody else"});
  if (kind_ == Kind::Shared && (holding.st_mode & S_ISVTX) == 0) {
    return fail({EPERM, "Others may change what it holds: its folder lacks the sticky bit"});
  }
  return opened;
}

OpenTrash OpenTrash::Of(const TrashPath& path, base::Status& status) {
  OpenTrash trash;
  trash.Top = path.Open(status);
  if (!trash.Top) return trash;
  struct statx found;
  if (const ErrorNumber error = LookAt(trash.Top.Get(), "", found); error != NoError) {
    status = SystemError(error);
    return {};
  }
  trash.Self = IdentityOf(found);
  const auto open = [&](const char* name) {
    Descriptor opened = OpenOwn(trash.Top.Get(), name, O_RDONLY);
    const bool isMissing = errno == ENOENT || errno == ENOTDIR || errno == ELOOP;
    if (!opened && !isMissing) status = SystemError(errno);
    return opened;
  };
  trash.Files = open("files");
  if (status) trash.Notes = open("info");
  if (!status) return {};
  return trash;
}

TrashPlace SplitTrashPlace(std::string_view path) {
  TrashPlace place;
  std::string_view name = LastPart(path);
  const std::string folder = Above(path);
  const std::string_view part = LastPart(folder);
  place.IsNote = part == "info";
  if (!path.starts_with('/') || (part != "files" && !place.IsNote)) return {};
  if (place.IsNote) {
    if (!name.ends_with(NoteEnding)) return {};
    name.remove_suffix(NoteEnding.size());
  }
  place.Trash = Above(folder);
  const bool isName = !name.empty() && name != "." && name != "..";
  if (isName) place.Name = name;
  return place;
}

}  // namespace tarnwell::platform
