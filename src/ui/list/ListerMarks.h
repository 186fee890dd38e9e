// What a comparison says of an item: as small badges beside its name, and in words.
#pragma once

#include <QColor>
#include <QPainter>
#include <QRect>
#include <QString>

#include "lister/rows/Comparison.h"

namespace tarnwell::ui {

// Pixels that the badges take, the space before them included; 0 for no marks.
int MarksWidth(lister::CompareMarks marks);
// Paints them at the right end of `area`, in these colours: the one of what is more (later, larger,
// only here) and the one of what is less.
void PaintMarks(QPainter& painter, const QRect& area, lister::CompareMarks marks,
                const QColor& more, const QColor& less);
// "Newer and larger than in the other list"; empty for no marks.
QString MarksText(lister::CompareMarks marks);

}  // namespace tarnwell::ui
