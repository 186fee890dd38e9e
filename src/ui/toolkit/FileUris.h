// Files as other programs hand them over, by the clipboard or by a drag: lists of addresses.
#pragma once

#include <QMimeData>
#include <memory>
#include <string_view>

#include "platform/FileClipboard.h"

namespace tarnwell::ui {

// What a drag of the items, a base::ItemList, offers: text/uri-list, of which Qt makes CF_HDROP on
// Windows.
std::unique_ptr<QMimeData> MimeDataOf(std::string_view items);
// What the clipboard offers: the addresses, whether they are cut by the marks of the system's file
// managers, and the paths as text.
std::unique_ptr<QMimeData> ClipboardDataOf(const platform::ClipboardFiles& files);

// Whether there is a list of addresses. Looks at the names of the formats alone.
bool HasFiles(const QMimeData& data);
// The files of a drag or of the clipboard.
platform::ClipboardFiles FilesOf(const QMimeData& data);

}  // namespace tarnwell::ui
