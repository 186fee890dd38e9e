#include "platform/linux/operation/LinkedFiles.h"

#include <unistd.h>

#include <cstdio>

#include "platform/linux/posix/ReachedPath.h"
#include "platform/linux/posix/TemporaryName.h"

namespace tarnwell::platform {

ErrorNumber LinkedFiles::Link(const struct statx& original, int base, int to, const char* name,
                              const MayGo& mayGo) const {
  const auto known = copies_.find(IdentityOf(original));
  if (known == copies_.end() || !IsUnchanged(known->second.Original, original)) return ENOENT;
  const Copy& copy = known->second;
  const ErrorNumber error = LinkTo(copy, copy.Path, base, to, name, mayGo);
  if (error != ENOENT || copy.PathNow == copy.Path) return error;
  return LinkTo(copy, copy.PathNow, base, to, name, mayGo);
}

ErrorNumber LinkedFiles::LinkTo(const Copy& known, const std::string& path, int base, int to,
                                const char* name, const MayGo& mayGo) const {
  const ReachedPath copy(path, base);
  if (copy.Error() != NoError) return ENOENT;
  // Another file may stand there by now.
  struct statx found;
  const auto isCopy = [&](int folder, const char* at) {
    return LookAt(folder, at, found) == NoError && IdentityOf(found) == known.Self;
  };
  if (!isCopy(copy.Folder(), copy.Rest())) return ENOENT;

  TemporaryName temporary;
  if (const ErrorNumber error = mayGo ? temporary.Renew() : NoError; error != NoError) return error;
  const char* const first = mayGo ? temporary.Text() : name;
  if (linkat(copy.Folder(), copy.Rest(), to, first, 0) != 0)
    return errno == EEXIST ? EEXIST : ENOENT;
  if (!isCopy(to, first)) {
    unlinkat(to, first, 0);
    return ENOENT;
  }
  if (!mayGo) return NoError;
  const ErrorNumber error = TakePlaceOf(to, first, to, name, mayGo);
  unlinkat(to, first, 0);  // stays where both are names of one file already
  return error;
}

}  // namespace tarnwell::platform
