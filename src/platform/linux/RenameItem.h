// Renaming that overwrites nothing.
#pragma once

#include <string>

#include "base/Status.h"

namespace tarnwell::platform {

// Gives the item another name, or another folder of its volume; folders are open ones, as in the
// calls of the "at" family. A name that is taken gives EEXIST. Gives an error number.
int RenameNew(int fromFolder, const char* from, int toFolder, const char* to);

// Puts the item under its temporary name in the place of a file or link, which goes then; both
// names are of the same open folder. EISDIR for a folder that stands there, which stays. Gives an
// error number.
int PutInPlaceOf(int folder, const char* temporary, const char* name);

// Renames the item, and overwrites nothing. A change of case alone works too where the file system
// takes both names for the same.
base::Status RenameItem(const std::string& from, const std::string& to);

}  // namespace tarnwell::platform
