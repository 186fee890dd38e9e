// Regular expressions by PCRE2. Knows no system.
#pragma once

#include "platform/Regex.h"

namespace tarnwell::platform {

// A CompileRegex.
std::unique_ptr<Regex> CompilePcre(std::string_view expression, const RegexOptions& options,
                                   RegexFault& fault);

// Version of the library that runs.
std::string PcreVersion();

}  // namespace tarnwell::platform
