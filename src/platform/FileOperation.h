// Port: copying, moving, deleting and renaming of files, done by the platform.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwell::platform {

enum class FileFunction { None = 0, Move = 1, Copy = 2, Delete = 3, Rename = 4 };

// The words by which lists, dialogs and commands name an operation; "cancel" is the one for none.
inline constexpr std::string_view CopyWord = "copy";
inline constexpr std::string_view MoveWord = "move";
inline constexpr std::string_view DeleteWord = "delete";
inline constexpr std::string_view CancelWord = "cancel";

// Flags of an operation, to be joined by "or".
enum OperationFlags : std::uint16_t {
  Silent = 4,                // no progress window
  RenameOnCollision = 8,     // a taken name makes a twin under a new name
  NoConfirmation = 16,       // every question is answered yes
  AllowUndo = 64,            // deleted items go to the trash
  FilesOnly = 128,           // wildcard patterns match files alone
  SimpleProgress = 256,      // progress without the names of files
  NoConfirmNewFolder = 512,  // a missing target folder is made without asking
  NoErrorWindows = 1024,     // failures come back as the result alone
  // The items lie in a trash, as TrashedItem::Place tells. A delete takes their notes with them. A
  // move puts them back, and has as its Destination a list with the path to be of each item; that
  // is trouble where the item in the trash is another one by now.
  FromTrash = 2048,
};

struct OperationRequest {
  FileFunction Function = FileFunction::None;
  // Full paths, as a base::ItemList.
  std::string Items;
  // Target folder, with a separator at its end, or target path; a NUL at its end. A NUL alone for a
  // delete. A list where FromTrash tells so.
  std::string Destination;
  std::uint16_t Flags = 0;
};

// An item of a request, and where it is by now. Both are full paths.
struct PlacedItem {
  std::string From;
  std::string To;
};

struct OperationResult {
  int Code = 0;  // 0 when everything asked for was done
  bool Aborted = false;
  // Those of a copy, move or rename that came through, in the order of the request; of a folder
  // something further down may have been left.
  std::vector<PlacedItem> Placed = {};
};

// A file in the folder of the program's own files, there only while an operation has an item under
// another name than its own: the path that the item had and the one that it has, each ended by a
// NUL. A run that is killed meanwhile leaves it.
inline constexpr std::string_view AsideRecordName = "aside.txt";

class FileOperation {
 public:
  virtual ~FileOperation() = default;
  // Returns when the work is done or given up. Shows progress and asks its questions by itself.
  virtual OperationResult Run(const OperationRequest& request) = 0;
  // Why the items, listed as in a request, may not be deleted, moved or renamed by any command, as
  // one sentence for people; empty where they may. The root of all folders, the places of mounted
  // volumes, the home folder, the program's folder and what holds one of them stay; Run refuses
  // them too.
  virtual std::string Refusal(FileFunction function, const std::string& items) const = 0;
};

}  // namespace tarnwell::platform
