#include "platform/linux/files/LinuxFileSystem.h"

#include <sys/stat.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <new>
#include <stdexcept>

#include "base/ItemList.h"
#include "platform/linux/files/CheckTarget.h"
#include "platform/linux/files/ExtendedAttributes.h"
#include "platform/linux/files/LinuxFolder.h"
#include "platform/linux/files/MeasureFolder.h"
#include "platform/linux/files/NamingError.h"
#include "platform/linux/files/ProtectedItems.h"
#include "platform/linux/files/RenameItem.h"
#include "platform/linux/files/ReplaceFile.h"
#include "platform/linux/posix/ItemStat.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/SystemError.h"

namespace tarnwell::platform {
namespace {

// Reads to the end, whatever size the system states: files of /proc state none.
ErrorNumber ReadAll(int descriptor, std::size_t expected, std::string& content) {
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
  return NoError;
}

}  // namespace

const base::PathSyntax& LinuxFileSystem::Syntax() const {
  return base::PathSyntax::Posix();
}

std::unique_ptr<OpenedFolder> LinuxFileSystem::OpenFolder(const std::string& folder,
                                                          base::Status& status) const {
  Descriptor descriptor = OpenPath(folder, O_RDONLY | O_DIRECTORY);
  status = SystemError(descriptor ? NoError : errno);
  return descriptor ? std::make_unique<LinuxFolder>(std::move(descriptor)) : nullptr;
}

base::Status LinuxFileSystem::ReadAttributes(const std::string& folder, const std::string& name,
                                             ItemAttributes& attributes) const {
  const ReachedPath path(name.empty() ? folder : Syntax().Join(folder, name));
  if (path.Error() != NoError) return SystemError(path.Error());
  attributes.IsHidden = (name.empty() ? Syntax().LastComponent(folder) : name).starts_with('.');
  return ReadItemStat(path.Folder(), path.Rest(), attributes);
}

bool LinuxFileSystem::FolderExists(const std::string& path) const {
  return static_cast<bool>(OpenPath(path, O_RDONLY | O_DIRECTORY));
}

bool LinuxFileSystem::Exists(const std::string& path) const {
  const ReachedPath reached(path);
  struct stat found {};
  const int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
  return reached.Error() == NoError &&
         fstatat(reached.Folder(), reached.Rest(), &found, flags) == 0;
}

std::string LinuxFileSystem::ReadLink(const std::string& path) const {
  const ReachedPath reached(path);
  return reached.Error() == NoError ? ReadLinkTarget(reached.Folder(), reached.Rest()) : "";
}

base::Status LinuxFileSystem::MeasureFolder(const std::string& folder, const GoOn& goOn,
                                            FolderTotal& total) const {
  return platform::MeasureFolder(folder, goOn, total);
}

base::Status LinuxFileSystem::ReadSpace(const std::string& folder, Space& space) const {
  const Descriptor opened = OpenPath(folder, O_PATH);
  struct statvfs found {};
  if (!opened || fstatvfs(opened.Get(), &found) != 0) return SystemError(errno);
  space.Free = std::uint64_t{found.f_bavail} * found.f_frsize;
  space.Total = std::uint64_t{found.f_blocks} * found.f_frsize;
  return {};
}

base::Status LinuxFileSystem::WriteExtendedAttribute(const std::string& path,
                                                     ExtendedAttribute attribute,
                                                     const std::string& text) {
  return platform::WriteExtendedAttribute(path, attribute, text);
}

base::Status LinuxFileSystem::CheckTarget(const std::string& path) const {
  return platform::CheckTarget(path);
}

base::Status LinuxFileSystem::MakeFolder(const std::string& path) {
  const ReachedPath reached(path);
  if (reached.Error() != NoError) return NamingError(reached.Error());
  return NamingError(ErrorOf(mkdirat(reached.Folder(), reached.Rest(), 0777)));
}

base::Status LinuxFileSystem::Rename(const std::string& from, const std::string& to) {
  const std::string refusal =
      ProtectedItems(programFolder_).Refusal(FileFunction::Rename, base::ItemList::TextOf({from}));
  return refusal.empty() ? RenameItem(from, to, AsideRecord(programFolder_))
                         : base::Status{EPERM, refusal};
}

base::Status LinuxFileSystem::ReadFile(const std::string& path, std::string& content) const {
  const ReachedPath reached(path);
  if (reached.Error() != NoError) return SystemError(reached.Error());
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
    const ErrorNumber error = ReadAll(file.Get(), static_cast<std::size_t>(found.st_size), text);
    if (error == NoError) content = std::move(text);
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
  if (reached.Error() != NoError) return SystemError(reached.Error());
  return SystemError(ErrorOf(unlinkat(reached.Folder(), reached.Rest(), 0)));
}

}  // namespace tarnwell::platform
