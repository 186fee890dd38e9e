// Opening items of a folder with applications.
#pragma once

#include <string>
#include <vector>

#include "base/Status.h"
#include "platform/linux/FailureList.h"

namespace tarnwell::platform {

// Opens each of the items with its own default application, those of one application together;
// programs start in the folder.
void OpenItems(const std::vector<std::string>& paths, const std::string& folder,
               FailureList& failures);

// Starts a program in the folder with the items behind what was typed: a program's name or path,
// and its arguments.
base::Status OpenWithCommand(const std::string& command, const std::vector<std::string>& paths,
                             const std::string& folder);

}  // namespace tarnwell::platform
