// One call of the shell's own file operation.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/Status.h"
#include "platform/FileOperation.h"

namespace tarnwell::platform {

struct ShellWork {
  FileFunction Function = FileFunction::None;
  std::vector<std::string> From;  // full paths
  // A folder with a separator at its end, or the path to be of one item; as many paths to be as
  // there are items where OwnTargets is among the flags; none for a delete.
  std::vector<std::string> To;
  std::uint16_t Flags = 0;  // those of OperationFlags that are the shell's, and OwnTargets
};

struct ShellOutcome {
  // Of SHFileOperationW: a number of its own, or one of winerror.h; 0 also where the user has kept
  // it from something.
  int Code = 0;
  // The user, or the shell for him, has given something up. Without it nobody has heard of a
  // failure.
  bool IsAborted = false;

  // All of it was given up, and what may come behind it.
  bool IsCancelled() const;
};

// Whether the shell has a question where a move would replace something.
bool AsksToReplace();

using ShellCall = std::function<ShellOutcome(const ShellWork& work)>;

// By SHFileOperationW, which shows how far it is and asks what it has to ask by windows of its own,
// that belong to none. Returns when all is over. For a thread with a ComThread. Where the shell
// would not ask, what would be replaced is left: ERROR_ALREADY_EXISTS.
ShellOutcome RunShellOperation(const ShellWork& work);

// The status for a code that is not 0; the reason is a sentence for people.
base::Status ShellFailure(int code);

// Why the shell cannot be asked for an item at the path: it would take another one for it, or
// write behind the end of what it keeps paths in. Success where it can.
base::Status FitForShell(const std::string& path);
// The status for a path that is too long for it.
base::Status TooLongForShell();

}  // namespace tarnwell::platform
