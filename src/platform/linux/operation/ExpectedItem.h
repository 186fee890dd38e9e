// Items that a request expects to be as they were.
#pragma once

#include <string>

#include "platform/linux/operation/OperationContext.h"

namespace tarnwell::platform {

// Looks at the item of the open folder; `path` is its full one. False where it is to be left, of
// which the user hears: it is gone, or another one, or has changed. All is well with an item of
// which nothing is expected: null.
bool IsAsExpected(OperationContext& context, int folder, const std::string& name,
                  const std::string& path, const ItemFingerprint* expected);

// Tells that the item is gone, with ENOENT, or another one.
void TellOfOther(OperationContext& context, const std::string& path, ErrorNumber error);

}  // namespace tarnwell::platform
