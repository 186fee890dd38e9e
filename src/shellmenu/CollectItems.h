// Which items a context menu is for.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "forms/Messenger.h"
#include "lister/ListerControl.h"
#include "platform/FileSystem.h"
#include "shellmenu/MenuWords.h"

namespace tarnwell::shellmenu {

inline constexpr std::size_t MostItems = 30000;

struct MenuItems {
  std::vector<std::string> Paths;  // full; empty for none
  bool IsDriveRoot = false;        // the one item is a drive's root
  bool AreFound = false;           // they may be of many folders
};

class ItemCollector {
 public:
  ItemCollector(const base::PathSyntax& syntax, const platform::Drives& drives,
                forms::Messenger& messenger)
      : syntax_(syntax), drives_(drives), messenger_(messenger) {}

  // The item of `path`, or if that is empty the clicked item and what is selected in the list: a
  // drive's root that is clicked stands alone. A selection of MostItems and more is told to the
  // user and gives none.
  MenuItems Collect(lister::ListerControl& list, const std::string& path,
                    const std::string& clicked, MenuMode mode) const;

 private:
  using Paths = std::vector<std::string>;

  Paths ClickedAndSelected(lister::ListerControl& list, const std::string& clicked) const;
  // False if there are too many.
  static bool AddSelected(lister::ListerControl& list, Paths& paths);
  bool IsDriveRoot(const std::string& path) const;

  const base::PathSyntax& syntax_;
  const platform::Drives& drives_;
  forms::Messenger& messenger_;
};

}  // namespace tarnwell::shellmenu
