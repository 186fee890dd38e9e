#include "platform/linux/files/ReplaceFile.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <climits>
#include <string_view>

#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"
#include "platform/linux/posix/TemporaryName.h"

namespace tarnwell::platform {
namespace {

constexpr int linkLimit = 40;  // the kernel's own

// Where the file is to stand once every link is followed.
struct Target {
  Descriptor Folder;
  std::string Name;
};

ErrorNumber FindTarget(std::string path, Target& target) {
  if (path.empty()) return ENOENT;
  for (int links = 0; links <= linkLimit; ++links) {
    const std::size_t nameStart = path.rfind('/') + 1;  // 0 where there is no separator
    const std::string name = path.substr(nameStart);
    if (name.empty() || name == "." || name == "..") return EISDIR;
    if (name.find('\0') != std::string::npos) return EINVAL;
    const std::string folder = nameStart == 0 ? "." : path.substr(0, nameStart);
    const int start = target.Folder ? target.Folder.Get() : AT_FDCWD;
    Descriptor opened = OpenPath(folder, O_PATH | O_DIRECTORY, start);
    if (!opened) return errno;
    target.Folder = std::move(opened);
    target.Name = name;

    std::array<char, PATH_MAX> link;
    const ssize_t length = readlinkat(target.Folder.Get(), name.c_str(), link.data(), link.size());
    if (length < 0) return errno == EINVAL || errno == ENOENT ? NoError : errno;
    path.assign(link.data(), static_cast<std::size_t>(length));
  }
  return ELOOP;
}

// The file under its temporary name, removed unless it was renamed.
class TemporaryFile {
 public:
  explicit TemporaryFile(int folder) : folder_(folder) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (file_ || closed_) unlinkat(folder_, name_.Text(), 0);
  }

  ErrorNumber Create(mode_t mode) {
    for (int attempt = 0; attempt < TemporaryName::Attempts; ++attempt) {
      if (const ErrorNumber error = name_.Renew(); error != NoError) return error;
      const int flags = O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC;
      file_ = Descriptor(openat(folder_, name_.Text(), flags, mode));
      if (file_) return NoError;
      if (errno != EEXIST) return errno;
    }
    return EEXIST;
  }

  // Changes only what differs: file systems without owners and permissions refuse any change.
  ErrorNumber TakeOwnerAndMode(const struct stat& old) {
    struct stat fresh {};
    if (fstat(file_.Get(), &fresh) != 0) return errno;
    mode_t mode = old.st_mode & 0777;
    const bool owned = fresh.st_uid == old.st_uid && fresh.st_gid == old.st_gid;
    if (!owned && fchown(file_.Get(), old.st_uid, old.st_gid) != 0 &&
        fchown(file_.Get(), static_cast<uid_t>(-1), old.st_gid) != 0) {
      // The members of another group must get no more than everybody had.
      mode = (mode & 0707) | (mode & ((mode & 7) << 3));
    }
    if ((fresh.st_mode & 07777) == mode) return NoError;
    return ErrorOf(fchmod(file_.Get(), mode));
  }

  ErrorNumber Write(std::string_view content) {
    while (!content.empty()) {
      const ssize_t written = write(file_.Get(), content.data(), content.size());
      if (written < 0 && errno != EINTR) return errno;
      if (written > 0) content.remove_prefix(static_cast<std::size_t>(written));
    }
    return NoError;
  }

  // Network file systems may tell of a full disk only here.
  ErrorNumber FlushAndClose() {
    while (fsync(file_.Get()) != 0) {
      if (errno != EINTR) return errno;
    }
    closed_ = true;
    return close(file_.Release()) == 0 || errno == EINTR ? NoError : errno;
  }

  ErrorNumber RenameTo(const std::string& name) {
    if (renameat(folder_, name_.Text(), folder_, name.c_str()) != 0) return errno;
    closed_ = false;
    return NoError;
  }

 private:
  int folder_;
  TemporaryName name_;
  Descriptor file_;
  bool closed_ = false;  // whole, and still under its temporary name
};

// Without this a crash may bring back the folder as it was, which the rename made an old one. A
// folder that may not be read, or a file system that flushes no folders, has to do without.
ErrorNumber FlushFolder(int folder) {
  const Descriptor readable(openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!readable || fsync(readable.Get()) == 0) return NoError;
  return errno == EINVAL || errno == ENOTSUP ? NoError : errno;
}

}  // namespace

base::Status ReplaceFile(const std::string& path, const std::string& content) {
  Target target;
  if (const ErrorNumber error = FindTarget(path, target); error != NoError)
    return SystemError(error);
  const int folder = target.Folder.Get();

  struct stat old {};
  const bool exists = fstatat(folder, target.Name.c_str(), &old, AT_SYMLINK_NOFOLLOW) == 0;
  if (!exists && errno != ENOENT) return SystemError(errno);
  if (exists) {
    if (S_ISDIR(old.st_mode)) return SystemError(EISDIR);
    if (!S_ISREG(old.st_mode)) return NoRegularFile();
    // A rename asks only for rights on the folder; a file set read-only has to stay all the same.
    if (faccessat(folder, target.Name.c_str(), W_OK, AT_EACCESS) != 0) return SystemError(errno);
  }

  TemporaryFile temporary(folder);
  ErrorNumber error = temporary.Create(exists ? 0600 : 0666);
  if (error == NoError && exists) error = temporary.TakeOwnerAndMode(old);
  if (error == NoError) error = temporary.Write(content);
  if (error == NoError) error = temporary.FlushAndClose();
  if (error == NoError) error = temporary.RenameTo(target.Name);
  if (error == NoError) error = FlushFolder(folder);
  return SystemError(error);
}

}  // namespace tarnwell::platform
