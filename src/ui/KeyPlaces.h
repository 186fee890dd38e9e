// Keys by their places on the keyboard, and which of them are down, whoever has heard of it.
#pragma once

#include <QKeyEvent>
#include <memory>

namespace tarnwell::ui {

// A command key of a layout without Latin letters as the Latin letter at its place, so that
// commands are there for people who have no other layout; null for every other key.
std::unique_ptr<QKeyEvent> LatinTwin(const QKeyEvent& event);

struct KeysDown {
  bool Space = false;
  bool Any = false;  // but Ctrl, Alt and the like, by which nothing is ever held up
};
// Asks the display. Where it does not tell (Wayland), only Shift is known of.
KeysDown QueryKeysDown();

}  // namespace tarnwell::ui
