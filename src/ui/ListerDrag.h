// What follows the pointer while items are dragged.
#pragma once

#include <QFont>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <cstddef>

namespace tarnwell::ui {

// A small card with the icon of the first item and, for more than one, their number.
QPixmap DragPicture(const QIcon& icon, std::size_t count, const QPalette& colours,
                    const QFont& font, double pixelRatio);

// An arrow with a question mark: whoever drops here is asked what to do. Its tip is in the middle.
QPixmap AskPointer(double pixelRatio);

}  // namespace tarnwell::ui
