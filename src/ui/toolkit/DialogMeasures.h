// Distances that dialogs and pages have in common, in logical pixels.
#pragma once

namespace tarnwell::ui {

inline constexpr int DialogMargin = 14;
inline constexpr int DialogSpacing = 10;
inline constexpr int DialogButtonWidth = 88;  // at least
inline constexpr int PageSpacing = 12;        // between a page's columns

}  // namespace tarnwell::ui
