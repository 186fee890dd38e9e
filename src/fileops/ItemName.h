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
  if (name.find_first_of(syntax.ForbiddenInNames) != std::string_view::npos) {
    std::string text = "A name cannot hold any of these characters:";
    for (const char each : syntax.ForbiddenInNames) text.append(1, ' ').append(1, each);
    return text;
  }
  if (!syntax.ForbiddenInNames.empty() && (name.ends_with('.') || name.ends_with(' '))) {
    return "A name cannot end in a dot or a blank here. Type another one.";
  }
  if (syntax.IsNameOfDevice(name)) {
    return "This name is kept for a device of the computer. Type another one.";
  }
  return "No item can be called so here. Type another name.";
}

}  // namespace tarnwell::fileops
