// All keys of the program: the menus draw theirs beside their entries, the window listens for those
// that have a command here, and the user guide lists them as they stand.
#pragma once

#include <span>
#include <string_view>

#include "commands/Keyboard.h"
#include "fileops/DropItems.h"
#include "fileops/NewFolder.h"
#include "fileops/UndoCommand.h"
#include "lists/ListCommands.h"
#include "lists/Navigation.h"
#include "workspace/FormLayout.h"
#include "workspace/PaneSet.h"

namespace tarnwell::commands {

// What the commands work with.
struct KeyParts {
  workspace::Workspace& Space;
  workspace::PaneSet& Panes;
  workspace::FormLayout& Layout;
  lists::Navigation& Navigation;
  lists::ListCommands& Lists;
  fileops::NewFolder& NewFolder;
  fileops::DropCommand& Drop;
  fileops::UndoCommand& Undo;
  forms::Messenger& Messages;
  KeyActions& Actions;
};

struct KeyRow {
  // As the guide has them. One key alone where there is an entry or a command, "Ctrl+Shift+Left".
  std::string_view Keys;
  std::string_view Where = {};  // empty: the row is the title of those below
  std::string_view What = {};
  // What they are drawn beside: an entry of the menu bar, by its name, or one of the context menu,
  // by its caption without marks.
  std::string_view Entry = {};
  // The command of a key that is for the window as a whole, but for its text fields. It acts once
  // for a held key.
  void (*Run)(const KeyParts& parts) = nullptr;
};

std::span<const KeyRow> KeyTable();

// The keys drawn beside an entry; empty for none.
std::string_view KeysBeside(std::string_view entry);

// Runs the command of the keys, spelled as in the table; those without one do nothing. What fails
// is told by a message.
void RunKeys(std::string_view keys, const KeyParts& parts);

}  // namespace tarnwell::commands
