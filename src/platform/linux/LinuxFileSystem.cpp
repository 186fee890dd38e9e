#include "platform/linux/LinuxFileSystem.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>

#include "platform/linux/ReachedPath.h"
#include "platform/linux/ReplaceFile.h"
#include "platform/linux/SystemError.h"

namespace tarnwell::platform {
namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

void SetKind(FolderEntry& entry, unsigned char type) {
  entry.IsLink = type == DT_LNK;
  switch (type) {
    case DT_REG:
      entry.Kind = ItemKind::File;
      break;
    case DT_DIR:
      entry.Kind = ItemKind::Folder;
      break;
    case DT_LNK:
    case DT_UNKNOWN:
      entry.Kind = ItemKind::Unknown;
      break;
    default:
      entry.Kind = ItemKind::Other;
  }
}

ItemKind KindOf(mode_t mode) {
  if (S_ISREG(mode)) return ItemKind::File;
  if (S_ISDIR(mode)) return ItemKind::Folder;
  return ItemKind::Other;
}

// File systems may hold times beyond what 64 bits of nanoseconds reach (years 1677 to 2262).
std::int64_t Nanoseconds(const statx_timestamp& time) {
  constexpr std::int64_t second = 1'000'000'000;
  constexpr std::int64_t limit = std::numeric_limits<std::int64_t>::max() / second - 1;
  return std::clamp<std::int64_t>(time.tv_sec, -limit, limit) * second + time.tv_nsec;
}

int ReadStatx(const ReachedPath& path, int flags, struct statx& result) {
  const unsigned mask = STATX_BASIC_STATS | STATX_BTIME;
  return statx(path.Folder(), path.Rest(), flags | AT_NO_AUTOMOUNT, mask, &result) == 0 ? 0 : errno;
}

// Reads to the end, whatever size the system states: files of /proc state none.
int ReadAll(int descriptor, std::size_t expected, std::string& content) {
  constexpr std::size_t step = 65536;
  std::size_t length = 0;
  content.resize(expected + 1);  // one more, so that the end shows without growing
  for (;;) {
    const ssize_t got = read(descriptor, content.data() + length, content.size() - length);
    if (got < 0) {
      if (errno == EINTR) continue;
      return errno;
    }
    if (got == 0) break;
    length += static_cast<std::size_t>(got);
    if (length == content.size()) content.resize(length + std::max(step, length / 2));
  }
  content.resize(length);
  return 0;
}

}  // namespace

const base::PathSyntax& LinuxFileSystem::Syntax() const {
  return base::PathSyntax::Posix();
}

namespace {

class LinuxFolder : public OpenedFolder {
 public:
  LinuxFolder(DIR* stream, std::string path) : stream_(stream), path_(std::move(path)) {}

  base::Status Read(const TakeEntry& take) override {
    FolderEntry entry;
    for (;;) {
      errno = 0;
      const dirent* const item = readdir(stream_.get());
      if (item == nullptr) return SystemError(errno);
      entry.Name = item->d_name;
      if (entry.Name == "." || entry.Name == "..") continue;
      entry.IsHidden = entry.Name.front() == '.';
      SetKind(entry, item->d_type);
      if (!take(entry)) return {};
    }
  }
  base::Status ReadAttributes(std::string_view name, ItemAttributes& attributes) const override {
    return LinuxFileSystem().ReadAttributes(path_, std::string(name), attributes);
  }
  base::Status ReadNote(std::string_view, ItemNote, std::string& text) const override {
    text.clear();
    return {};
  }

 private:
  std::unique_ptr<DIR, CloseFolder> stream_;
  std::string path_;
};

}  // namespace

std::unique_ptr<OpenedFolder> LinuxFileSystem::OpenFolder(const std::string& folder,
                                                          base::Status& status) const {
  Descriptor descriptor = OpenPath(folder, O_RDONLY | O_DIRECTORY);
  DIR* const stream = descriptor ? fdopendir(descriptor.Get()) : nullptr;
  if (stream == nullptr) {
    status = SystemError(errno);
    return nullptr;
  }
  descriptor.Release();
  status = {};
  return std::make_unique<LinuxFolder>(stream, folder);
}

base::Status LinuxFileSystem::MeasureFolder(const std::string&, const GoOn&, FolderTotal&) const {
  return SystemError(ENOSYS);
}
base::Status LinuxFileSystem::ReadSpace(const std::string&, Space&) const {
  return SystemError(ENOSYS);
}
base::Status LinuxFileSystem::WriteNote(const std::string&, ItemNote, const std::string&) {
  return SystemError(ENOSYS);
}
base::Status LinuxFileSystem::MakeFolder(const std::string&) {
  return SystemError(ENOSYS);
}

base::Status LinuxFileSystem::ReadAttributes(const std::string& folder, const std::string& name,
                                             ItemAttributes& attributes) const {
  const ReachedPath path(name.empty() ? folder : Syntax().Join(folder, name));
  if (path.Error() != 0) return SystemError(path.Error());
  struct statx found {};
  const int error = ReadStatx(path, AT_SYMLINK_NOFOLLOW, found);
  if (error != 0) return SystemError(error);

  const bool isLink = S_ISLNK(found.stx_mode);
  if (isLink) {
    struct statx target {};
    if (ReadStatx(path, 0, target) == 0) found = target;
  }
  attributes.Kind = KindOf(found.stx_mode);
  attributes.IsLink = isLink;
  attributes.Size = attributes.Kind == ItemKind::Folder ? 0 : found.stx_size;
  attributes.Modified = Nanoseconds(found.stx_mtime);
  attributes.Created = (found.stx_mask & STATX_BTIME) != 0 ? Nanoseconds(found.stx_btime) : 0;
  attributes.Accessed = Nanoseconds(found.stx_atime);
  attributes.Mode = found.stx_mode & 07777U;
  return {};
}

bool LinuxFileSystem::FolderExists(const std::string& path) const {
  return static_cast<bool>(OpenPath(path, O_RDONLY | O_DIRECTORY));
}

bool LinuxFileSystem::Exists(const std::string& path) const {
  const ReachedPath reached(path);
  struct statx found {};
  return reached.Error() == 0 && ReadStatx(reached, AT_SYMLINK_NOFOLLOW, found) == 0;
}

base::Status LinuxFileSystem::ReadFile(const std::string& path, std::string& content) const {
  const ReachedPath reached(path);
  if (reached.Error() != 0) return SystemError(reached.Error());
  // Looked at before it is opened, since opening some devices already does something.
  struct stat found {};
  if (fstatat(reached.Folder(), reached.Rest(), &found, 0) != 0) return SystemError(errno);
  if (S_ISDIR(found.st_mode)) return SystemError(EISDIR);
  if (!S_ISREG(found.st_mode)) return NoRegularFile();
  // And again after, since another item may have taken its place: hence no waiting either.
  const int flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
  const Descriptor file(openat(reached.Folder(), reached.Rest(), flags));
  if (!file || fstat(file.Get(), &found) != 0) return SystemError(errno);
  if (!S_ISREG(found.st_mode)) return NoRegularFile();

  try {
    std::string text;
    const int error = ReadAll(file.Get(), static_cast<std::size_t>(found.st_size), text);
    if (error == 0) content = std::move(text);
    return SystemError(error);
  } catch (const std::bad_alloc&) {
    return SystemError(ENOMEM);
  } catch (const std::length_error&) {
    return SystemError(EFBIG);
  }
}

base::Status LinuxFileSystem::WriteFile(const std::string& path, const std::string& content) {
  return ReplaceFile(path, content);
}

base::Status LinuxFileSystem::RemoveFile(const std::string& path) {
  const ReachedPath reached(path);
  if (reached.Error() != 0) return SystemError(reached.Error());
  return SystemError(unlinkat(reached.Folder(), reached.Rest(), 0) == 0 ? 0 : errno);
}

}  // namespace tarnwell::platform
