// The file operations of the program, without any window.
#pragma once

#include "platform/OperationUser.h"

namespace tarnwell::platform {

// Does what is requested and asks the user where it has to; callable from any one thread, which it
// keeps until the end. The code of the result is 0 when everything was done, else the system's
// error number for the first thing that was not; ECANCELED and aborted after a cancel, EINVAL for a
// request that makes no sense, of which nothing is done.
//
// A copy keeps permissions, times, extended attributes, access lists, links, holes and, where it
// may, the owner; several names of one file become several names of one copy. Files, folders and
// links are whole, or are not there under their names. A target that exists as a folder takes the
// items; for one item it may also be the path to be, in a folder that exists. Several items, and a
// separator at the end, ask for a folder, which is made where it is missing.
//
// What ProtectedItems tells, for the folder of the program's own files, is never taken away: that
// is trouble, with EPERM, and the other items are done. AsideRecordName tells what is kept there.
//
// Small files may be copied by threads of the operation's own: by `copyThreads`, or by as many as
// volumes and machine suit where that is 0. The user is called by the caller's thread alone.
OperationResult RunOperation(const OperationRequest& request, OperationUser& user,
                             const std::string& programFolder = {}, std::size_t copyThreads = 0);

}  // namespace tarnwell::platform
