// The end of a program whose main window has gone, but not all that it has to tell.
#pragma once

namespace tarnwell::ui {

// Leaves the event loop when no window is on the screen any more; at once where none is.
void EndWithLastWindow();

}  // namespace tarnwell::ui
