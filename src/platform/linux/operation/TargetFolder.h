// The folder that items go to.
#pragma once

#include <optional>
#include <string>

#include "platform/linux/operation/OpenPlace.h"
#include "platform/linux/operation/OperationContext.h"

namespace tarnwell::platform {

// Opens the folder; one that is missing is made, with those above it, if the user agrees. Nothing
// where the user does not, and the operation is cancelled.
std::optional<ErrorNumber> OpenOrMakePlace(OperationContext& context, const std::string& path,
                                           OpenPlace& place);

}  // namespace tarnwell::platform
