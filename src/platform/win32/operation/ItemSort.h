// What stands at a path, as far as operations go by it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/Status.h"

namespace tarnwell::platform {

enum class ItemSort : std::uint8_t {
  None,  // nothing is there
  File,  // or a link, also one to a folder
  Folder,
};

// Fails where that cannot be told; what is not there is a success.
base::Status FindSort(const std::string& path, ItemSort& sort);
// What cannot be told counts as none.
ItemSort SortOf(const std::string& path);

// Why nothing is there: the item has gone, or the drive or share that it is on. Never a success.
base::Status ReasonOfMissing(const std::string& path);

// Also by a link.
bool FolderExists(const std::string& path);

// Calls `take` with each item of the folder; what cannot be read ends it early.
void ReadNames(const std::string& folder,
               const std::function<void(const std::string& name, ItemSort sort)>& take);

// The way from the folder `from` to the first item below that its copy `to` does not have, or not
// whole, beginning with a separator; empty if there is none. Links are not followed.
std::string FirstMissing(const std::string& from, const std::string& to);

}  // namespace tarnwell::platform
