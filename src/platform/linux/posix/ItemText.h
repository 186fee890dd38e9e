// Names of items as messages show them.
#pragma once

#include <string>
#include <string_view>

#include "base/PathSyntax.h"
#include "base/Text.h"

namespace tarnwell::platform {

// The last part of the path, in double quotes; a root is shown whole.
inline std::string QuotedName(std::string_view path) {
  const std::string_view name = base::PathSyntax::Posix().LastComponent(path);
  return '"' + base::ForDisplay(name.empty() ? path : name) + '"';
}

}  // namespace tarnwell::platform
