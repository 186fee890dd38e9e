#include "lister/list/DropRules.h"

#include "base/ItemList.h"
#include "platform/FileOperation.h"

namespace tarnwell::lister {

bool MayDrop(std::string_view items, std::string_view folder, std::string_view action,
             const base::PathSyntax& syntax) {
  if (items.empty() || folder.empty()) return false;
  bool allAreThere = true;
  for (const std::string_view item : base::ItemList(items)) {
    if (allAreThere) {
      allAreThere = !syntax.IsDriveRoot(item) && syntax.Same(syntax.ParentOf(item), folder);
    }
    if (syntax.IsWithin(folder, item)) return false;
  }
  return !allAreThere || action == platform::CopyWord;
}

std::string TextOfItems(std::string_view items, const base::PathSyntax& syntax) {
  std::string names;
  std::string_view only;
  for (const std::string_view item : base::ItemList(items)) {
    only = names.empty() ? item : std::string_view();
    if (!names.empty()) names += ", ";
    names += syntax.LastComponent(item);
  }
  return only.empty() ? names : std::string(only);
}

}  // namespace tarnwell::lister
