// Pasting the files of the clipboard.
#pragma once

#include <string>
#include <vector>

#include "platform/Dialogs.h"
#include "platform/FileClipboard.h"
#include "platform/FileOperation.h"
#include "platform/NumberForms.h"
#include "platform/linux/afar/FarCalls.h"

namespace tarnwell::platform {

// Copies what the clipboard holds to the folder, or moves what was cut, which then leaves the
// clipboard as far as it has left its place. Items that lie in the folder already become twins;
// cut ones stay. Tells of what is no file of this computer. Nothing on the clipboard: nothing
// happens. Gives the items that came through.
std::vector<PlacedItem> PasteFiles(const std::string& folder, FileClipboard& clipboard,
                                   FileOperation& operation, Dialogs& dialogs,
                                   const NumberForms& forms, const FarCalls& calls);

}  // namespace tarnwell::platform
