// The question before programs start.
#pragma once

#include "platform/ItemWindows.h"
#include "ui/operation/OperationTools.h"

namespace tarnwell::ui {

// Returns once it is answered; see ItemWindows::AskRun.
platform::RunChoice AskRun(const platform::RunQuestion& question, const OperationTools& tools);

}  // namespace tarnwell::ui
