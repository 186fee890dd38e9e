#include "lister/list/DropRules.h"

#include <algorithm>

namespace tarnwell::lister {
namespace {

// Calls `work` with each of the items, as long as it gives true.
template <typename Work>
bool AllItems(std::string_view items, Work work) {
  while (!items.empty() && items.front() != '\0') {
    const std::string_view item = items.substr(0, items.find('\0'));
    if (!work(item)) return false;
    items.remove_prefix(std::min(item.size() + 1, items.size()));
  }
  return true;
}

}  // namespace

bool MayDrop(std::string_view items, std::string_view folder, std::string_view action,
             const base::PathSyntax& syntax) {
  if (items.empty() || folder.empty()) return false;
  bool allAreThere = true;
  const bool fits = AllItems(items, [&](std::string_view item) {
    if (allAreThere) {
      allAreThere = !syntax.IsDriveRoot(item) && syntax.Same(syntax.ParentOf(item), folder);
    }
    return !syntax.IsWithin(folder, item);
  });
  return fits && (!allAreThere || action == "copy");
}

std::string TextOfItems(std::string_view items, const base::PathSyntax& syntax) {
  std::string names;
  std::string_view only;
  AllItems(items, [&](std::string_view item) {
    only = names.empty() ? item : std::string_view();
    if (!names.empty()) names += ", ";
    names += syntax.LastComponent(item);
    return true;
  });
  return only.empty() ? names : std::string(only);
}

}  // namespace tarnwell::lister
