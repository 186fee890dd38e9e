// The keys beside the entries of menus.
#pragma once

#include <QAction>
#include <QKeySequence>
#include <string_view>

#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {

// Keys as the core spells them.
QKeySequence KeysOf(std::string_view keys);

// Draws the keys that do what the entry does, see commands::KeysBeside. They are shown alone: what
// acts on them stands elsewhere.
void ShowKeys(QAction& action, std::string_view entry);

}  // namespace tarnwell::ui
