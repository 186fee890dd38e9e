// What follows the pointer while items are dragged.
#pragma once

#include <QFont>
#include <QIcon>
#include <QPalette>
#include <QPixmap>
#include <QString>

namespace tarnwell::ui {

// A small card with the icon of the first item and the number of the items, if that is not empty.
QPixmap DragPicture(const QIcon& icon, const QString& count, const QPalette& colours,
                    const QFont& font, double pixelRatio);

// An arrow with a question mark: whoever drops here is asked what to do. Its tip is in the middle.
QPixmap AskPointer(double pixelRatio);

}  // namespace tarnwell::ui
