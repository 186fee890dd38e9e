// The file operations of the program, without any window of its own.
#pragma once

#include <string>

#include "platform/OperationUser.h"
#include "platform/win32/operation/ShellOperation.h"

namespace tarnwell::platform {

// Does what is requested and returns when it is done; callable from any one thread, which it keeps
// until the end. The code of the result is 0 when everything was done, else that of the first thing
// that was not, by winerror.h or by SHFileOperationW; ERROR_INVALID_PARAMETER for a request that
// makes no sense, of which nothing is done.
//
// Copies, moves and deletes are the shell's, which asks its own questions, shows how far it is and
// cannot be stopped from here: the user hears so by OperationProgress::IsBySystem. What it would
// take for something else, and what is not there, not as expected or protected, is left out
// beforehand, and told of; what it has left without having asked anybody is told of afterwards.
// Renames replace nothing, and go by the file system.
//
// What ProtectedItems tells, for the folder of the program's own files, is never taken away.
// AsideRecordName tells what is kept there.
OperationResult RunOperation(const OperationRequest& request, OperationUser& user,
                             const std::string& programFolder = {},
                             const ShellCall& shell = RunShellOperation);

}  // namespace tarnwell::platform
