// Port: the platform's own context menu for items of a folder.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace tarnwell::platform {

struct ContextEntry {
  int Id = 0;           // number within the range asked for; 0 for a separator
  std::string Caption;  // "&" marks the access key
  bool Enabled = true;
  std::vector<ContextEntry> Children;
};

// The entries for one folder and some of its items. Lives as long as the menu is up.
class ItemMenu {
 public:
  virtual ~ItemMenu() = default;
  // The entries, numbered from `firstId` to `lastId` at most.
  virtual std::vector<ContextEntry> Fill(int firstId, int lastId) = 0;
  // Carries out the entry that is `offset` numbers above `firstId`. Reports failures by itself.
  virtual void Invoke(int offset) = 0;
};

class ContextMenu {
 public:
  virtual ~ContextMenu() = default;
  // The menu for the items of that name in the folder, or for the folder itself if there are none.
  // Null, with the reason in `reason`, if the folder cannot be reached.
  virtual std::unique_ptr<ItemMenu> ForItems(const std::string& folder,
                                             const std::vector<std::string>& names,
                                             std::string& reason) = 0;
};

}  // namespace tarnwell::platform
