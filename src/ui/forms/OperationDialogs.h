// The windows of the small dialogs of file operations.
#pragma once

#include <memory>

#include "fileops/popCopyMove.h"
#include "fileops/popDelete.h"
#include "fileops/popNewFolder.h"
#include "fileops/popRename.h"
#include "ui/toolkit/FormWindow.h"

namespace tarnwell::ui {

std::unique_ptr<FormWindow> WindowOf(fileops::popNewFolder& form);
std::unique_ptr<FormWindow> WindowOf(fileops::popCopyMove& form);
std::unique_ptr<FormWindow> WindowOf(fileops::popDelete& form);
std::unique_ptr<FormWindow> WindowOf(fileops::popRename& form);

}  // namespace tarnwell::ui
