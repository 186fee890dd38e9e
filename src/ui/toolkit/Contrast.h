// How colours stand out from each other. Pure.
#pragma once

#include <QColor>
#include <initializer_list>

namespace tarnwell::ui {

// Ratios of light as the Web Content Accessibility Guidelines 2.1 have them, from 1 for two equal
// colours to 21 for black on white.
inline constexpr double ReadableContrast = 4.5;  // text is easy to read from here on
inline constexpr double MarkContrast = 3;        // frames, marks, and text that is greyed
inline constexpr double PatchContrast = 1.5;     // a patch can be told from what it lies on

double Contrast(const QColor& left, const QColor& right);

// `percent` of `over` laid upon the rest of `under`.
QColor Blend(const QColor& under, const QColor& over, int percent);

// Black or white, whichever can be read on the colour: one of them always can.
QColor TextOn(const QColor& back);

// The colour itself if it has the contrast to each of `backs`; else the first one that has on its
// way to black or to white. With a single one of `backs` and up to ReadableContrast there is one;
// else it may be the one that comes nearest.
QColor Distinct(const QColor& colour, std::initializer_list<QColor> backs, double contrast);

}  // namespace tarnwell::ui
