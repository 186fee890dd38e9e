// Items that lie in a trash: deleting them for good, and putting them back.
#pragma once

#include <sys/types.h>
#include <unistd.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/linux/files/AsideRecord.h"
#include "platform/linux/files/ProtectedItems.h"
#include "platform/linux/operation/ItemCounter.h"
#include "platform/linux/operation/ItemTransfer.h"
#include "platform/linux/operation/OperationContext.h"
#include "platform/linux/trash/ReadTrash.h"

namespace tarnwell::platform {

// The note of an item goes once the item has gone: what is killed in between leaves a note without
// its file, and no file of which nothing tells where it was. A folder that is deleted no further
// keeps what is left of it. Serves one operation.
class TrashedItems {
 public:
  TrashedItems(OperationContext& context, ProtectedItems& protectedItems, const AsideRecord& record)
      : context_(context), protected_(protectedItems), record_(record) {}

  // As OperationRequest::Expected.
  using Expectations = std::vector<ItemFingerprint>;

  // By full paths of files or notes in a trash.
  void Delete(const std::vector<std::string>& places, const Expectations& expected);
  // Moves each to a path of its own, in a list as a request holds it. False where these are not as
  // many as the items, or not full paths; nothing is done then.
  bool Restore(const std::vector<std::string>& places, std::string_view targets,
               const Expectations& expected);

 private:
  struct Trash {
    explicit Trash(TrashPath path) : Path(std::move(path)) {}
    TrashPath Path;
    OpenTrash Opened;
    std::optional<TrashReader> Reader;
    std::shared_ptr<OpenPlace> Files;
    std::shared_ptr<OpenPlace> Notes;
  };
  struct Item {
    Trash* Of = nullptr;
    TrashPlace Place;
    std::string Path;
    std::string Folder;  // where it is to go
    std::string Name;
    const ItemFingerprint* Expected = nullptr;
  };

  // Null if it was given up. The path is the one to name.
  Trash* FindTrash(const TrashPlace& place, const std::string& path);
  bool IsRefused(const Item& item);
  bool IsAsTold(const Item& item);
  bool IsFileThere(const Item& item) const;
  bool LeadsOut(const Item& item) const;
  bool OpenTarget(const Item& item);
  void RestoreItem(const Item& item);
  // Of an item that has gone; false while it is there.
  bool DropNote(const Item& item);
  void FinishTarget();
  // What the trashes keep of the sizes of folders that are there no more.
  void DropSizes();

  OperationContext& context_;
  ProtectedItems& protected_;
  const AsideRecord& record_;
  std::map<std::string, std::unique_ptr<Trash>> trashes_;  // by their paths
  OpenPlace target_;
  std::string targetFolder_;
  std::unique_ptr<ItemTransfer> transfer_;  // to the target; null where that was given up
  std::vector<Item> copied_;                // still there until the transfer has finished
  std::vector<std::string> ahead_;          // paths of what is still to be restored
  ItemCounter counter_;
  bool isCounting_ = false;
};

}  // namespace tarnwell::platform
