// Deleting an item for good, with all that lies below it.
#pragma once

#include <optional>
#include <string>

#include "platform/linux/operation/CopiedItems.h"
#include "platform/linux/operation/HoldFolder.h"
#include "platform/linux/operation/OperationContext.h"
#include "platform/linux/posix/ErrorNumber.h"
#include "platform/linux/posix/FolderBuffer.h"
#include "platform/linux/posix/TreeWalk.h"

namespace tarnwell::platform {

// Follows no link and enters no other volume: a folder where one is mounted is trouble, and stays.
// Serves one item after the other.
class TreeDeletion {
 public:
  explicit TreeDeletion(OperationContext& context) : context_(context) {}

  // Deletes the item of the open folder. `path` is its full path, for questions and reports.
  void Delete(int folder, const std::string& name, const std::string& path);
  // Deletes only what was copied and has not changed since. A folder in which something stays
  // stays too, without a word.
  void DeleteCopied(int folder, const std::string& name, const std::string& path,
                    const CopiedItems& copied);

 private:
  struct Level {
    struct statx Found {};
    CopiedItems::Key Key = 0;
    bool KeepsSome = false;  // holds something that was left, of which the user has heard
  };

  void Run(int folder, const std::string& name, const std::string& path);
  void TakeItem(const char* name, bool mayBeFolder);
  void DeleteFile(const char* name);
  void DeleteCopiedFile(const char* name);
  // Looks at the item and deletes it where nobody can exchange it.
  ErrorNumber DeleteHeld(const char* name);
  void EnterFolder(const std::string& name);
  bool ReadFolder(int folder);
  void LeaveFolder();
  // Whether the item may go; only what was copied may, where that matters.
  bool MayDelete(const char* name, const struct statx& found);
  bool Retries(std::string_view name, ErrorNumber error);

  OperationContext& context_;
  const CopiedItems* copied_ = nullptr;
  TreeWalk<Level> walk_;
  NameList files_;  // of the folder at hand
  FolderBuffer buffer_;
  std::optional<HoldFolder> hold_;  // of the folder heldIn_
  ItemIdentity heldIn_;
};

// Deletes what the operation itself has made, without a word.
void DeleteQuietly(int folder, const std::string& name);

}  // namespace tarnwell::platform
