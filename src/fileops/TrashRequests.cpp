#include "fileops/TrashRequests.h"

#include "base/ItemList.h"

namespace tarnwell::fileops {

using platform::OperationRequest;
using platform::TrashedItem;

OperationRequest RequestToRestore(const std::vector<const TrashedItem*>& items,
                                  const base::PathSyntax& syntax) {
  OperationRequest request;
  request.Function = platform::FileFunction::Move;
  request.Flags = platform::FromTrash;
  for (const TrashedItem* const item : items) {
    if (item == nullptr || !platform::CanRestore(*item)) continue;
    base::ItemList::Add(request.Items, item->Place);
    base::ItemList::Add(request.Destination, syntax.AddSeparator(item->Folder) + item->Name);
  }
  return request;
}

OperationRequest RequestToPurge(const std::vector<const TrashedItem*>& items) {
  OperationRequest request;
  request.Function = platform::FileFunction::Delete;
  request.Flags = platform::FromTrash | platform::NoConfirmation;
  for (const TrashedItem* const item : items) {
    if (item != nullptr) base::ItemList::Add(request.Items, item->Place);
  }
  base::ItemList::Add(request.Destination, "");
  return request;
}

}  // namespace tarnwell::fileops
