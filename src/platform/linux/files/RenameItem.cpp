#include "platform/linux/files/RenameItem.h"

#include <cerrno>
#include <cstdio>
#include <string_view>

#include "platform/linux/files/NamingError.h"
#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/posix/NameSpelling.h"
#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/TemporaryName.h"
#include "platform/linux/posix/TwinName.h"
#include "platform/linux/posix/VolumeTraits.h"

namespace tarnwell::platform {
namespace {

bool IsMissingCall(ErrorNumber error) {
  return error == EINVAL || error == ENOSYS || error == ENOTSUP;
}

struct ParentAndName {
  Descriptor Folder;
  std::string Name;
};

ErrorNumber FindParent(const std::string& path, ParentAndName& found) {
  const std::size_t slash = path.rfind('/');
  found.Name = path.substr(slash + 1);  // the whole path where there is no separator
  if (found.Name.empty() || found.Name.find('\0') != found.Name.npos) return EINVAL;
  const std::string folder = slash == path.npos ? "." : path.substr(0, slash + 1);
  found.Folder = OpenPath(folder, O_RDONLY | O_DIRECTORY);
  if (!found.Folder) found.Folder = OpenPath(folder, O_PATH | O_DIRECTORY);
  return found.Folder ? NoError : errno;
}

// Whether the name that is taken is taken by the item itself. Two names of one file look the same,
// but are both in the folder. Volumes that make inode numbers up may give each spelling its own.
bool IsOtherSpelling(const ParentAndName& from, const ParentAndName& to) {
  struct statx one;
  struct statx other;
  const auto look = [&](const char* fromName, const char* toName) {
    return LookAt(from.Folder.Get(), fromName, one) == NoError &&
           LookAt(to.Folder.Get(), toName, other) == NoError;
  };
  if (!look("", "") || IdentityOf(one) != IdentityOf(other)) return false;
  if (!look(from.Name.c_str(), to.Name.c_str())) return false;
  const bool isItself = IdentityOf(one) == IdentityOf(other) ||
                        (!TraitsOf(from.Folder.Get()).HasLastingNumbers &&
                         IsSameButForCase(from.Name, to.Name) && IsUnchanged(one, other));
  return isItself && !HasExactName(to.Folder.Get(), to.Name);
}

// Gives the item a free name that says by `word` why it has not its own; `folderPath` is the way to
// the open folder.
ErrorNumber SetAside(int folder, const char* name, const std::string& folderPath,
                     std::string_view word, const AsideRecord& record, std::string& aside) {
  const TwinParts parts = SplitTwinName(name, false);
  const std::string prefix = folderPath + "/";
  ErrorNumber error = EEXIST;
  for (unsigned number = 1; error == EEXIST && number <= TemporaryName::Attempts; ++number) {
    aside = MakeAsideName(parts, word, number);
    record.Keep(prefix + name, prefix + aside);
    error = RenameNew(folder, name, folder, aside.c_str());
    if (error != NoError) record.Drop(prefix + aside);
  }
  return error;
}

// Gives the item its name back, and says so by the record only if it has it.
void GiveNameBack(int folder, const std::string& aside, const char* name,
                  const std::string& folderPath, const AsideRecord& record) {
  if (RenameNew(folder, aside.c_str(), folder, name) == NoError) {
    record.Drop(folderPath + "/" + aside);
  }
}

// The system takes a rename to the same item for done already, so that it goes by a third name.
ErrorNumber Respell(const ParentAndName& from, const ParentAndName& to,
                    const std::string& folderPath, const AsideRecord& record) {
  std::string aside;
  const int folder = from.Folder.Get();
  ErrorNumber error =
      SetAside(folder, from.Name.c_str(), folderPath, "being renamed", record, aside);
  if (error != NoError) return error;
  error = RenameNew(folder, aside.c_str(), folder, to.Name.c_str());
  if (error == NoError) {
    record.Drop(folderPath + "/" + aside);
  } else {
    GiveNameBack(folder, aside, from.Name.c_str(), folderPath, record);
  }
  return error;
}

// What belongs to others may come into a folder where it cannot be deleted.
bool MayUnlinkOthers(int fromFolder, int toFolder) {
  struct statx found;
  return fromFolder == toFolder ||
         (LookAt(fromFolder, "", found) == NoError && (found.stx_mode & S_ISVTX) == 0);
}

// For a folder in the place of a file, where names cannot be exchanged.
ErrorNumber PushAside(int fromFolder, const char* from, int toFolder, const char* to,
                      const std::string& toPath, const AsideRecord& record) {
  struct statx found;
  ErrorNumber error = LookAt(toFolder, to, found);
  if (error == NoError && S_ISDIR(found.stx_mode)) return EISDIR;
  std::string aside;
  if (error == NoError) error = SetAside(toFolder, to, toPath, "being replaced", record, aside);
  if (error != NoError) return error;
  error = RenameNew(fromFolder, from, toFolder, to);
  if (error != NoError) {
    GiveNameBack(toFolder, aside, to, toPath, record);
    return error;
  }
  error = ErrorOf(unlinkat(toFolder, aside.c_str(), 0));
  if (error == NoError) record.Drop(toPath + "/" + aside);
  return error;
}

}  // namespace

ErrorNumber RenameNew(int fromFolder, const char* from, int toFolder, const char* to) {
  if (renameat2(fromFolder, from, toFolder, to, RENAME_NOREPLACE) == 0) return NoError;
  const ErrorNumber error = errno;
  if (!IsMissingCall(error)) return error;
  struct statx taken;
  if (const ErrorNumber missing = LookAt(toFolder, to, taken); missing != ENOENT) {
    return missing == NoError ? EEXIST : missing;
  }
  return ErrorOf(renameat(fromFolder, from, toFolder, to));
}

ErrorNumber TakePlaceOf(int fromFolder, const char* from, int toFolder, const char* to,
                        const MayGo& mayGo) {
  if (MayUnlinkOthers(fromFolder, toFolder) &&
      renameat2(fromFolder, from, toFolder, to, RENAME_EXCHANGE) == 0) {
    const ErrorNumber error =
        mayGo(fromFolder, from) ? ErrorOf(unlinkat(fromFolder, from, 0)) : EEXIST;
    const bool isBack = error == NoError ||
                        renameat2(fromFolder, from, toFolder, to, RENAME_EXCHANGE) == 0 ||
                        RenameNew(fromFolder, from, toFolder, to) == NoError;
    return isBack ? error : ErrorNumber(EBUSY);
  }
  if (!mayGo(toFolder, to)) return EEXIST;
  return ErrorOf(renameat(fromFolder, from, toFolder, to));
}

ErrorNumber PutInPlaceOf(int fromFolder, const char* from, int toFolder, const char* to,
                         const MayGo& mayGo, const std::string& toPath, const AsideRecord& record) {
  const ErrorNumber error = TakePlaceOf(fromFolder, from, toFolder, to, mayGo);
  return error == ENOTDIR ? PushAside(fromFolder, from, toFolder, to, toPath, record) : error;
}

base::Status RenameItem(const std::string& from, const std::string& to, const AsideRecord& record) {
  ParentAndName source;
  ParentAndName target;
  if (const ErrorNumber error = FindParent(from, source); error != NoError)
    return NamingError(error);
  if (const ErrorNumber error = FindParent(to, target); error != NoError) return NamingError(error);
  const int sourceFolder = source.Folder.Get();
  const int targetFolder = target.Folder.Get();
  ErrorNumber error =
      RenameNew(sourceFolder, source.Name.c_str(), targetFolder, target.Name.c_str());
  if (error == EEXIST && source.Name == target.Name) {
    struct statx one;
    struct statx other;
    // To its own name: nothing is to be done.
    if (LookAt(sourceFolder, "", one) == NoError && LookAt(targetFolder, "", other) == NoError &&
        IdentityOf(one) == IdentityOf(other)) {
      return {};
    }
  }
  if (error == EEXIST && IsOtherSpelling(source, target)) {
    error = Respell(source, target, from.substr(0, from.size() - source.Name.size() - 1), record);
  }
  return NamingError(error);
}

}  // namespace tarnwell::platform
