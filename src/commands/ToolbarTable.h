// The toolbar of the main window and the pictures of all commands.
#pragma once

#include <span>
#include <string_view>

#include "forms/Toolbar.h"
#include "workspace/MainForm.h"

namespace tarnwell::commands {

std::span<const forms::ToolbarRow> ToolbarTable();

// The keys of the pictures, in the order of the image list.
std::span<const std::string_view> ImageKeys();

// Gives each button of the toolbar the picture of its row. Throws std::out_of_range for a row whose
// button or picture does not exist.
void SetToolbarIcons(workspace::MainForm& form);

}  // namespace tarnwell::commands
