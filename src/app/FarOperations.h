// Operations with what other machines have.
#pragma once

#include "platform/afar/FarCalls.h"
#include "ui/operation/OperationSystem.h"

namespace tarnwell::app {

// The same, with calls to other machines kept from the window's thread; the work itself has a
// thread of its own.
ui::OperationSystem WithCareAfar(ui::OperationSystem system, const platform::FarCalls& calls);

}  // namespace tarnwell::app
