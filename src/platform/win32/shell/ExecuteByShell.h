// The call by which the shell opens and starts everything.
#pragma once

#include <string>

#include "base/Status.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// By the words of SHELLEXECUTEINFO. Empty texts are left out of the call, but for the file.
struct ShellVerb {
  std::wstring Verb{};  // the usual one of the item if empty
  std::wstring File{};
  std::wstring Parameters{};  // as they stand: each program takes its command line apart itself
  std::wstring Folder{};      // working folder
  HWND Owner = nullptr;
};

// Returns when the program has been started, or the item handed over to one. Shows no message of
// its own for what fails, but asks the user what has to be asked: whether a program from elsewhere
// may start, or may change the system. ERROR_CANCELLED when that is declined.
base::Status ExecuteByShell(const ShellVerb& call);

// Lets the user choose what opens the file, for which nothing is registered, and opens it with
// that. A choice that is taken back is no failure.
base::Status AskWhatOpens(const std::wstring& file, HWND owner);

}  // namespace tarnwell::platform
