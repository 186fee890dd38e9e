// The question ahead of opening very many items.
#pragma once

#include <cstddef>

#include "platform/Dialogs.h"
#include "platform/NumberForms.h"

namespace tarnwell::platform {

// More than thirty items may mean as many programs at once: whether the user wants that.
bool AskAboutMany(std::size_t count, Dialogs& dialogs, const NumberForms& forms);

}  // namespace tarnwell::platform
