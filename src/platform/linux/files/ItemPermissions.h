// Changing the permissions of an item, and of all that lies below it.
#pragma once

#include <cstdint>
#include <string>

#include "platform/ItemFacts.h"

namespace tarnwell::platform {

// What a change makes of the permissions of an item that lies within the folder to be changed; see
// ItemInspector::SetPermissions.
std::uint32_t ChangedInside(std::uint32_t mode, bool isFolder, const PermissionChange& change);

// As ItemInspector::SetPermissions. Walks by descriptors: items that are moved or swapped for links
// meanwhile lead nowhere else. A folder gets what the change gives it before its items are reached,
// and loses what it takes afterwards, so that a change does not stand in its own way.
void SetItemPermissions(const std::string& path, const PermissionChange& change, bool inside,
                        const ItemInspector::GoOn& goOn, PermissionOutcome& outcome);

}  // namespace tarnwell::platform
