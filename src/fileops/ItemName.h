// What a name that was typed has to be, before the platform is asked.
#pragma once

#include <string>
#include <string_view>

#include "base/PathSyntax.h"

namespace tarnwell::fileops {

// Why the item cannot be called so, as a sentence; empty if nothing speaks against it.
inline std::string FaultOfName(std::string_view name, const base::PathSyntax& syntax) {
  if (syntax.IsName(name)) return "";
  // It would be made in, or move to, another folder.
  if (name.find(syntax.Separator) != std::string_view::npos) {
    return std::string("A name cannot hold the character ") + syntax.Separator + ".";
  }
  if (name == "." || name == "..") {
    return "\".\" and \"..\" mean a folder itself and the one above it. Type another name.";
  }
  return "No item can be called so here. Type another name.";
}

}  // namespace tarnwell::fileops
