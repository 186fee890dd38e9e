// Keys by their places on the keyboard.
#pragma once

#include <QKeyEvent>
#include <memory>

namespace tarnwell::ui {

// A command key of a layout without Latin letters as the Latin letter at its place, so that
// commands are there for people who have no other layout; null for every other key.
std::unique_ptr<QKeyEvent> LatinKeyEvent(const QKeyEvent& event);

}  // namespace tarnwell::ui
