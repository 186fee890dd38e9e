// Opening items of a folder with applications.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/Status.h"
#include "platform/Dialogs.h"
#include "platform/ItemWindows.h"
#include "platform/Launcher.h"
#include "platform/NumberForms.h"
#include "platform/afar/FarCalls.h"

namespace tarnwell::platform {

// What asks.
struct OpenTools {
  platform::Dialogs& Dialogs;
  ItemWindows& Windows;
  const NumberForms& Forms;
  FarCalls Calls{};
};

// Opens each of the items with its own default application, those of one application together;
// programs start in the folder, after a question. Only one that is opened alone, and is part of the
// system by its place, starts without.
std::vector<LaunchFailure> OpenItems(const std::vector<std::string>& paths,
                                     const std::string& folder, const OpenTools& tools);

// Starts a program in the folder with the items behind what was typed: a program's name, looked for
// in PATH alone, or its path from the folder on, and its arguments.
base::Status OpenWithCommand(const std::string& command, const std::vector<std::string>& paths,
                             const std::string& folder, const FarCalls& calls = {});

}  // namespace tarnwell::platform
