// The window that dialogs and menus of the system belong to.
#pragma once

#include <cstdint>
#include <functional>

namespace tarnwell::platform {

// The main window as the system knows it, an HWND on Windows; 0 while there is none, and where the
// system shows nothing for the program. May be called on any thread.
using OwnerWindow = std::function<std::uintptr_t()>;

}  // namespace tarnwell::platform
