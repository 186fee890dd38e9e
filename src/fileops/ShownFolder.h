// Whether an operation takes away the folder that a list shows.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "base/ItemList.h"
#include "lister/ListerControl.h"
#include "lists/PlacePath.h"

namespace tarnwell::fileops {

// Whether the folder that the folder list has open is one of the items, a base::ItemList.
inline bool ShowsOneOf(std::string_view items, const lister::ListerControl& folders,
                       const base::PathSyntax& syntax) {
  const std::string shown = lists::OnDisk(folders.DriveFolder(), syntax);
  return !shown.empty() && std::ranges::any_of(base::ItemList(items), [&](std::string_view item) {
    return syntax.Same(item, shown);
  });
}

}  // namespace tarnwell::fileops
