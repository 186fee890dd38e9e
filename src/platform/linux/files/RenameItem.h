// Renaming that overwrites nothing.
#pragma once

#include <string>

#include "base/Status.h"
#include "platform/linux/files/AsideRecord.h"
#include "platform/linux/posix/ErrorNumber.h"

namespace tarnwell::platform {

// Gives the item another name, or another folder of its volume; folders are open ones, as in the
// calls of the "at" family. A name that is taken gives EEXIST.
ErrorNumber RenameNew(int fromFolder, const char* from, int toFolder, const char* to);

// Puts the item in the place of a file or link of its volume, which goes then; the folders are open
// ones. One step where the file system can exchange names, so that whoever ends the program in
// between finds both items whole; elsewhere what goes has a name meanwhile that says so, and is
// kept in the record. `toPath` is the way to the folder that it stands in. EISDIR for a folder that
// stands there, which stays.
ErrorNumber PutInPlaceOf(int fromFolder, const char* from, int toFolder, const char* to,
                         const std::string& toPath, const AsideRecord& record);

// Renames the item, and overwrites nothing. A change of case alone works too where the file system
// takes both names for the same.
base::Status RenameItem(const std::string& from, const std::string& to,
                        const AsideRecord& record = AsideRecord());

}  // namespace tarnwell::platform
