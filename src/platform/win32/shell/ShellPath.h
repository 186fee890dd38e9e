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

// What lies below the folder, by its full path, that the shell cannot be asked to work on, as its
// way from there with a separator ahead: it keeps paths in MAX_PATH characters and does not look
// whether they fit, so that it may go astray, and delete elsewhere. `target` is the path that the
// folder is to have; empty for none. Nothing where all is well; "\" for the folder itself. Links
// are not followed.
std::string UnfitBelow(const std::string& folder, const std::string& target);

// A full path of an item that is there, in less than MAX_PATH characters and of names that nobody
// takes for others. Where it is not so by itself, it is the short path that the volume may keep for
// the item. The reason of a failure tells what is wrong with the path.
base::Status ReadShellPath(const std::string& path, std::wstring& shellPath);

}  // namespace tarnwell::platform
