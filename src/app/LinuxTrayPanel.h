// The panel that holds the notification area.
#pragma once

namespace tarnwell::app {

// Whether a panel is there and does not answer: whoever asks it by D-Bus without a limit would hold
// up all windows.
bool IsTrayPanelSilent();

}  // namespace tarnwell::app
