// Pasting the files of the clipboard.
#pragma once

#include <string>

#include "platform/Dialogs.h"
#include "platform/FileClipboard.h"
#include "platform/FileOperation.h"
#include "platform/NumberForms.h"
#include "platform/afar/FarCalls.h"

namespace tarnwell::platform {

// Starts to copy what the clipboard holds to the folder, or to move what was cut; at the end of the
// move that leaves the clipboard, which must be there still, as far as it has left its place. Items
// that lie in the folder already become twins; cut ones stay. Tells at once of what is no file of
// this computer. Gives the operation, or NoOperation where there was nothing to start.
OperationId PasteFiles(const std::string& folder, FileClipboard& clipboard,
                       FileOperation& operation, Dialogs& dialogs, const NumberForms& forms,
                       const FarCalls& calls);

}  // namespace tarnwell::platform
