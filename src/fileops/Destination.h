// The folder that a destination means as it was typed.
#pragma once

#include <string>
#include <string_view>

#include "base/PathSyntax.h"

namespace tarnwell::fileops {

// A full path stands for itself; "~" is the home folder, if there is one, alone or ahead of a
// separator; anything else lies in `folder`, where ".." is the folder above as the text has it.
std::string WholeDestination(std::string_view typed, const std::string& folder,
                             const std::string& home, const base::PathSyntax& syntax);

}  // namespace tarnwell::fileops
