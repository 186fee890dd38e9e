// Folders that nobody else has a hand in.
#pragma once

#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/ErrorNumber.h"

namespace tarnwell::platform {

// Makes a folder that is for its user alone, and opens it. Whoever may write to the folder above
// can put one of his own under the name before it is opened: what was opened must be this user's
// and private, as far as the volume keeps owners and permissions. ESTALE where it is not, EEXIST
// where the name is taken.
ErrorNumber MakeOwnFolder(int above, const char* name, Descriptor& opened);

}  // namespace tarnwell::platform
