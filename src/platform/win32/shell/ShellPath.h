// Paths as the shell and other programs take them.
#pragma once

#include <string>
#include <string_view>

#include "base/Status.h"

namespace tarnwell::platform {

// Whether the shell takes each name of the full path for what it is: it leaves out dots and blanks
// at the end of names, and another item may be called so.
bool AreNamesOfTheShell(std::string_view path);

// Why others do not take a path that has other names, or is too long, by the codes of winerror.h.
base::Status NamesFault();
base::Status LengthFault();

// A full path of an item that is there, in less than MAX_PATH characters and of names that nobody
// takes for others. Where it is not so by itself, it is the short path that the volume may keep for
// the item. The reason of a failure tells what is wrong with the path.
base::Status ReadShellPath(const std::string& path, std::wstring& shellPath);

}  // namespace tarnwell::platform
