// What operations are called, for people. Pure rules; the texts are valid UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "base/PathSyntax.h"
#include "platform/FileOperation.h"
#include "platform/NumberForms.h"

namespace tarnwell::fileops {

// "Copying 3 items to docs", `Moving "a.txt" to the trash`; never long, whatever the names.
std::string OperationTitle(const platform::OperationOrder& order, const base::PathSyntax& syntax,
                           const platform::NumberForms& forms);

// Why the item, a full path, may not be deleted, moved or renamed: the operation of that title
// works there.
std::string InUseText(platform::FileFunction function, std::string_view item,
                      const std::string& title, const base::PathSyntax& syntax);

}  // namespace tarnwell::fileops
