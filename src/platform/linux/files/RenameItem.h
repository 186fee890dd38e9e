// Renaming that overwrites nothing.
#pragma once

#include <functional>
#include <string>

#include "base/Status.h"
#include "platform/linux/files/AsideRecord.h"
#include "platform/linux/posix/ErrorNumber.h"

namespace tarnwell::platform {

// Gives the item another name, or another folder of its volume; folders are open ones, as in the
// calls of the "at" family. A name that is taken gives EEXIST.
ErrorNumber RenameNew(int fromFolder, const char* from, int toFolder, const char* to);

// Whether what is under the name in the open folder is what is to go; also where nothing is.
using MayGo = std::function<bool(int folder, const char* name)>;

// Puts the item in the place of a file or link of its volume, which goes then; the folders are open
// ones. Where the file system can exchange names that is looked at once it has the other name, so
// that nobody can put another in its place meanwhile; what may not go stays, which gives EEXIST.
// EISDIR for a folder that stands there, which stays too.
ErrorNumber TakePlaceOf(int fromFolder, const char* from, int toFolder, const char* to,
                        const MayGo& mayGo);

// The same for a folder as well. Whoever ends the program in between finds both items whole: where
// names cannot be exchanged, what goes has a name meanwhile that says so, and is kept in the
// record. `toPath` is the way to the folder that it stands in.
ErrorNumber PutInPlaceOf(int fromFolder, const char* from, int toFolder, const char* to,
                         const MayGo& mayGo, const std::string& toPath, const AsideRecord& record);

// Renames the item, and overwrites nothing. A change of case alone works too where the file system
// takes both names for the same.
base::Status RenameItem(const std::string& from, const std::string& to,
                        const AsideRecord& record = AsideRecord());

}  // namespace tarnwell::platform
