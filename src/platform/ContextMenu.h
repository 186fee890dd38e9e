// Port: the platform's own context menu for items of a folder.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/Status.h"
#include "platform/FileOperation.h"

namespace tarnwell::platform {

struct ContextEntry {
  int Id = 0;           // unlike that of any other entry of the menu
  std::string Caption;  // "&" marks the access key, "&&" is an ampersand; empty for a separator
  // Name of one of the program's own pictures or of one in the desktop's icon theme, or the full
  // path of a picture; may be empty.
  std::string Picture;
  bool IsSeparator = false;
  bool Enabled = true;
  bool IsDefault = false;              // what a double click does
  std::vector<ContextEntry> Children;  // of a submenu
  bool IsChecked = false;              // has a tick
};

// The entries for some items of a folder. Lives as long as the menu is up.
class ItemMenu {
 public:
  virtual ~ItemMenu() = default;
  // The entries from the top down, numbered from `firstId` to `lastId` at most. Where there is a
  // `menu`, see PopupMenu::Handle, they are put into that at once, and what opens in their submenus
  // may be left out here.
  virtual base::Status Fill(std::uintptr_t menu, int firstId, int lastId,
                            std::vector<ContextEntry>& entries) = 0;
  // Carries out the entry that is `offset` numbers above `firstId`. Asks and reports failures by
  // itself. Returns when that is done, or when it has been handed over as an operation, which goes
  // on without the menu; gives the number of that, or NoOperation.
  virtual OperationId Invoke(int offset) = 0;
};

class ContextMenu {
 public:
  virtual ~ContextMenu() = default;
  // Whether there is an item at the full path, and why not.
  virtual base::Status Find(const std::string& path) const = 0;
  // The menu for the items of that name in the folder, or below it where names are paths from there
  // on; for the open folder itself, as seen from
  // within, if there are none. Null if the platform has no menu for them.
  virtual std::unique_ptr<ItemMenu> ForItems(const std::string& folder,
                                             const std::vector<std::string>& names) = 0;
};

}  // namespace tarnwell::platform
