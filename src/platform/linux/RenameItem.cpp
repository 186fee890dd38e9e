#include "platform/linux/RenameItem.h"

#include <cerrno>
#include <cstdio>

#include "platform/linux/ItemIdentity.h"
#include "platform/linux/NameSpelling.h"
#include "platform/linux/NamingError.h"
#include "platform/linux/ReachedPath.h"
#include "platform/linux/TemporaryName.h"
#include "platform/linux/VolumeTraits.h"

namespace tarnwell::platform {
namespace {

bool IsMissingCall(int error) {
  return error == EINVAL || error == ENOSYS || error == ENOTSUP;
}

struct ParentAndName {
  Descriptor Folder;
  std::string Name;
};

// Gives an error number.
int FindParent(const std::string& path, ParentAndName& found) {
  const std::size_t slash = path.rfind('/');
  found.Name = path.substr(slash + 1);  // the whole path where there is no separator
  if (found.Name.empty() || found.Name.find('\0') != found.Name.npos) return EINVAL;
  const std::string folder = slash == path.npos ? "." : path.substr(0, slash + 1);
  found.Folder = OpenPath(folder, O_RDONLY | O_DIRECTORY);
  if (!found.Folder) found.Folder = OpenPath(folder, O_PATH | O_DIRECTORY);
  return found.Folder ? 0 : errno;
}

// Whether the name that is taken is taken by the item itself. Two names of one file look the same,
// but are both in the folder. Volumes that make inode numbers up may give each spelling its own.
bool IsOtherSpelling(const ParentAndName& from, const ParentAndName& to) {
  struct statx one;
  struct statx other;
  const auto look = [&](const char* fromName, const char* toName) {
    return LookAt(from.Folder.Get(), fromName, one) == 0 &&
           LookAt(to.Folder.Get(), toName, other) == 0;
  };
  if (!look("", "") || IdentityOf(one) != IdentityOf(other)) return false;
  if (!look(from.Name.c_str(), to.Name.c_str())) return false;
  const bool isItself = IdentityOf(one) == IdentityOf(other) ||
                        (!TraitsOf(from.Folder.Get()).HasLastingNumbers &&
                         IsSameButForCase(from.Name, to.Name) && IsUnchanged(one, other));
  return isItself && !HasExactName(to.Folder.Get(), to.Name);
}

// The system takes a rename to the same item for done already, so that it goes by a third name.
// Gives an error number.
int Respell(const ParentAndName& from, const ParentAndName& to) {
  TemporaryName temporary;
  const int folder = from.Folder.Get();
  int error = temporary.RenewAside();
  if (error == 0) error = RenameNew(folder, from.Name.c_str(), folder, temporary.Text());
  if (error != 0) return error;
  error = RenameNew(folder, temporary.Text(), folder, to.Name.c_str());
  if (error != 0) RenameNew(folder, temporary.Text(), folder, from.Name.c_str());
  return error;
}

// For a folder in the place of a file, where names cannot be exchanged. Gives an error number.
int PushAside(int fromFolder, const char* from, int toFolder, const char* to) {
  struct statx found;
  int error = LookAt(toFolder, to, found);
  if (error == 0 && S_ISDIR(found.stx_mode)) return EISDIR;
  TemporaryName aside;
  if (error == 0) error = aside.RenewAside();
  if (error == 0) error = RenameNew(toFolder, to, toFolder, aside.Text());
  if (error != 0) return error;
  error = RenameNew(fromFolder, from, toFolder, to);
  if (error != 0) {
    RenameNew(toFolder, aside.Text(), toFolder, to);
    return error;
  }
  return unlinkat(toFolder, aside.Text(), 0) == 0 ? 0 : errno;
}

}  // namespace

int RenameNew(int fromFolder, const char* from, int toFolder, const char* to) {
  if (renameat2(fromFolder, from, toFolder, to, RENAME_NOREPLACE) == 0) return 0;
  const int error = errno;
  if (!IsMissingCall(error)) return error;
  struct statx taken;
  if (const int missing = LookAt(toFolder, to, taken); missing != ENOENT) {
    return missing == 0 ? EEXIST : missing;
  }
  return renameat(fromFolder, from, toFolder, to) == 0 ? 0 : errno;
}

int PutInPlaceOf(int fromFolder, const char* from, int toFolder, const char* to) {
  if (renameat2(fromFolder, from, toFolder, to, RENAME_EXCHANGE) == 0) {
    if (unlinkat(fromFolder, from, 0) == 0) return 0;
    const int error = errno;
    renameat2(fromFolder, from, toFolder, to, RENAME_EXCHANGE);
    return error;
  }
  if (errno != ENOENT && !IsMissingCall(errno)) return errno;
  if (renameat(fromFolder, from, toFolder, to) == 0) return 0;
  return errno == ENOTDIR ? PushAside(fromFolder, from, toFolder, to) : errno;
}

base::Status RenameItem(const std::string& from, const std::string& to) {
  ParentAndName source;
  ParentAndName target;
  if (const int error = FindParent(from, source); error != 0) return NamingError(error);
  if (const int error = FindParent(to, target); error != 0) return NamingError(error);
  const int sourceFolder = source.Folder.Get();
  const int targetFolder = target.Folder.Get();
  int error = RenameNew(sourceFolder, source.Name.c_str(), targetFolder, target.Name.c_str());
  if (error == EEXIST && source.Name == target.Name) {
    struct statx one;
    struct statx other;
    // To its own name: nothing is to be done.
    if (LookAt(sourceFolder, "", one) == 0 && LookAt(targetFolder, "", other) == 0 &&
        IdentityOf(one) == IdentityOf(other)) {
      return {};
    }
  }
  if (error == EEXIST && IsOtherSpelling(source, target)) error = Respell(source, target);
  return NamingError(error);
}

}  // namespace tarnwell::platform
