// The folder that items go to.
#pragma once

#include <string>

#include "platform/operation/OperationTalk.h"

namespace tarnwell::platform {

// Makes it, and those above it, where it is missing and the user wants it. False where there is
// none, of which the user has heard.
bool HasTarget(OperationTalk& talk, const std::string& folder);

}  // namespace tarnwell::platform
