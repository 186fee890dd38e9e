// Sizes of folders that lie in a trash.
#pragma once

#include <functional>
#include <vector>

#include "platform/linux/trash/ReadTrash.h"
#include "platform/linux/trash/TrashTable.h"

namespace tarnwell::platform {

// Measures the folders one after the other, and hands over the entry of each with its size, some at
// a time; what has been measured whole is kept with the trash for the next time and for other
// programs. `goesOn` is asked many times a second, and ends it.
void MeasureTrash(const TrashPath& path, const std::vector<TrashTable::Unmeasured>& folders,
                  const std::function<bool()>& goesOn,
                  const std::function<void(std::vector<TrashEntry>)>& take);

}  // namespace tarnwell::platform
