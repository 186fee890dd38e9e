// Files with several names, as an operation meets one name after the other.
#pragma once

#include <string>
#include <unordered_map>

#include "platform/linux/files/RenameItem.h"
#include "platform/linux/posix/ErrorNumber.h"
#include "platform/linux/posix/ItemIdentity.h"

namespace tarnwell::platform {

// Remembers where the first name was copied to, so that the next becomes another name of the copy.
class LinkedFiles {
 public:
  // `path` leads to the copy from the folder that the operation's targets lie in, once all is in
  // its place; `pathNow` does until then.
  void Add(const struct statx& original, const struct statx& copy, std::string path,
           std::string pathNow) {
    copies_[IdentityOf(original)] = {original, IdentityOf(copy), std::move(path),
                                     std::move(pathNow)};
  }
  // Gives the copy another name in the open folder `to`; `base` is the folder that paths start
  // from. ENOENT where there is no copy of the file as it is now, EEXIST where the name is taken
  // by what may not go, which without `mayGo` is anything.
  ErrorNumber Link(const struct statx& original, int base, int to, const char* name,
                   const MayGo& mayGo) const;

 private:
  struct Copy {
    struct statx Original {};
    ItemIdentity Self;
    std::string Path;
    std::string PathNow;
  };

  ErrorNumber LinkTo(const Copy& known, const std::string& path, int base, int to, const char* name,
                     const MayGo& mayGo) const;

  std::unordered_map<ItemIdentity, Copy, HashItemIdentity> copies_;
};

}  // namespace tarnwell::platform
