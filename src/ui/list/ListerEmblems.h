// Emblems in a corner of an item's icon.
#pragma once

#include <QPainter>
#include <QRect>

namespace tarnwell::ui {

// An arrow for a link; a cross for one that leads nowhere. In colours of their own, which can be
// told from any icon and list.
void PaintLinkEmblem(QPainter& painter, const QRect& icon, bool isBroken);

}  // namespace tarnwell::ui
