#include "fileops/OperationUse.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "base/ItemList.h"

namespace tarnwell::fileops {

std::string WithoutNested(std::string_view items, const base::PathSyntax& syntax) {
  const base::ItemList list(items);
  const std::string folder = syntax.GetFolderPath(list.First());
  const bool isOneFolder = std::ranges::all_of(
      list, [&](std::string_view item) { return syntax.GetFolderPath(item) == folder; });
  if (isOneFolder) return std::string(items);
  std::unordered_set<std::string> keys;
  for (const std::string_view item : list) keys.insert(syntax.Key(item));
  std::string kept;
  for (const std::string_view item : list) {
    std::string above = syntax.ParentOf(item), below(item);
    while (above != below && !keys.contains(syntax.Key(above))) {
      below = std::exchange(above, syntax.ParentOf(above));
    }
    if (above == below) base::ItemList::Add(kept, item);
  }
  return kept;
}

ItemsToTake::ItemsToTake(std::string_view items, const base::PathSyntax& syntax) : syntax_(syntax) {
  for (const std::string_view item : base::ItemList(items)) items_.emplace(syntax.Key(item), item);
}

std::string_view ItemsToTake::Find(std::string_view path, std::string& clear) const {
  if (const auto found = items_.find(syntax_.Key(path)); found != items_.end())
    return found->second;
  const std::string folder = syntax_.ParentOf(path);
  std::string above = folder;
  for (std::string below(path); above != clear && above != below && !above.empty();) {
    if (const auto found = items_.find(syntax_.Key(above)); found != items_.end())
      return found->second;
    below = std::exchange(above, syntax_.ParentOf(above));
  }
  clear = folder;
  return {};
}

std::string_view ItemsToTake::UsedBy(const platform::OperationRequest& request) const {
  const bool listsTargets = (request.Flags & (platform::OwnTargets | platform::FromTrash)) != 0;
  std::string clear, clearTarget;
  std::string_view used;
  for (const std::string_view target : base::ItemList(request.Destination)) {
    if (used = Find(target, clearTarget); !used.empty()) return used;
    if (!listsTargets) break;
  }
  const std::string_view folder = base::ItemList(request.Destination).First();
  const bool fillsFolder = !listsTargets && folder.ends_with(syntax_.Separator);
  for (const std::string_view item : base::ItemList(request.Items)) {
    if (used = Find(item, clear); !used.empty()) return used;
    if (!fillsFolder) continue;
    used = Find(syntax_.Join(folder, syntax_.LastComponent(item)), clearTarget);
    if (!used.empty()) return used;
  }
  return {};
}

std::string_view ItemsToTake::UsedBy(const platform::OperationOrder& order) const {
  for (const platform::OperationRequest& request : order.Requests) {
    if (const std::string_view used = UsedBy(request); !used.empty()) return used;
  }
  return {};
}

}  // namespace tarnwell::fileops
