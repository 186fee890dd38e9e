// The trash of the desktop.
#pragma once

#include <string>

#include "base/Status.h"

namespace tarnwell::platform {

enum class TrashOutcome { Trashed, NoTrash, Failed };

// Puts the item into the trash of its own volume; a link goes itself. The status tells why it
// failed.
TrashOutcome TrashItem(const std::string& path, base::Status& status);

}  // namespace tarnwell::platform
