// What a list hands over when the user drags items out of it.
#pragma once

#include <QFont>
#include <QIcon>
#include <QMimeData>
#include <QPalette>
#include <QPixmap>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwell::ui {

// The paths of a list in the form of ListerControl::ActiveItemName.
std::vector<std::string_view> SplitItems(const std::string& items);
// text/uri-list, every byte of a path that is no plain letter in percent form, so that names that
// are no UTF-8 come through whole.
std::unique_ptr<QMimeData> MimeDataOf(const std::vector<std::string_view>& paths);
// A small card with the icon of the first item and, for more than one, their number.
QPixmap DragPicture(const QIcon& icon, std::size_t count, const QPalette& colours,
                    const QFont& font, double pixelRatio);

}  // namespace tarnwell::ui
