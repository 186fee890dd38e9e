// What a copy has from its original besides the content.
#pragma once

#include <sys/stat.h>

#include "platform/linux/posix/ErrorNumber.h"

namespace tarnwell::platform {

// Gives the open copy the owner, permissions, extended attributes (access lists among them) and
// times of the open original, of which `original` tells; `copy` tells of the copy as it is. What
// the user may not pass on or the file system cannot keep is left out, and rights are cut rather
// than given to somebody else: set-user-id goes with another owner, and another group, or the group
// where an access list was lost, gets no more than everybody has. `mayInherit` tells that the copy
// may have access lists from its folder, which it is not to keep. `losesSome` becomes true when an
// access list or an attribute of the user's own (colour, comment) could not be kept.
ErrorNumber CopyAttributes(int from, const struct statx& original, int to, const struct statx& copy,
                           bool mayInherit, bool& losesSome);

// Whether the open folder hands access lists down to what is made in it.
bool HandsDownAccessLists(int folder);

// Owner and times of a symbolic link.
void CopyLinkAttributes(const struct statx& original, int folder, const char* name);

}  // namespace tarnwell::platform
