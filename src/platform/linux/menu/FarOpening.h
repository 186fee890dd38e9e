// Finding what opens an item, and starting programs, where either may lie on another machine.
#pragma once

#include <string>
#include <vector>

#include "base/Status.h"
#include "platform/afar/FarCalls.h"
#include "platform/linux/menu/FileOpener.h"
#include "platform/linux/menu/StartProgram.h"

namespace tarnwell::platform {

// As FindOpener and StartProgram, of paths that may be far.
base::Status FindOpenerAt(const FarCalls& calls, const std::string& path, Opener& opener);
base::Status StartProgramAt(const FarCalls& calls, const std::vector<std::string>& words,
                            const std::string& folder, StartIn where,
                            TerminalEnd end = TerminalEnd::Closes);

}  // namespace tarnwell::platform
