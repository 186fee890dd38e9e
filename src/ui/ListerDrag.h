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

}  // namespace tarnwell::ui
