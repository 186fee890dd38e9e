// The menu tree of the main window, and the pictures of its entries.
#pragma once

#include <span>
#include <string_view>

#include "forms/Menu.h"

namespace tarnwell::commands {

std::span<const forms::MenuRow> MenuTable();

// Gives the entry with that caption the picture of that key.
struct MenuImageRow {
  std::string_view ImageKey;
  std::string_view Caption;
};
std::span<const MenuImageRow> MenuImageTable();

}  // namespace tarnwell::commands
