// Port: copying, moving, deleting and renaming of files, beside the user.
#pragma once

#include <cstdint>
#include <functional>
#include <iterator>
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
  // The Destination of a copy, move or rename is a list with the path to be of each item. Renames
  // are steps then, in their order, each with the paths as they are when its turn comes; all of
  // them are done, or none, but for those that are not as Expected, which tells items apart
  // whatever is written to them.
  OwnTargets = 1,
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
  // With AllowUndo: what its volume has no trash for is left, and told of, and nobody is asked.
  NeverForGood = 4096,
};

// What an item was at a certain moment, as far as an undo has to know: two of one item that are
// alike say that nobody has put another in its place or written to it meanwhile.
struct ItemFingerprint {
  std::uint64_t Device = 0;  // this and the next are 0 where the volume's numbers do not last
  std::uint64_t Number = 0;
  // Nanoseconds since 1970-01-01 UTC; 0 where the volume does not tell, or it does not last. A
  // number alone may have been given to another item since.
  std::int64_t Born = 0;
  std::uint32_t Kind = 0;     // file, folder, link, by a number of the system
  std::uint64_t Size = 0;     // bytes; 0 for all but files
  std::int64_t Modified = 0;  // nanoseconds since 1970-01-01 UTC; 0 for folders
  std::uint64_t Below = 0;    // of all that lies below a folder; 0 where that is not looked at
  bool operator==(const ItemFingerprint&) const = default;
};

struct OperationRequest {
  FileFunction Function = FileFunction::None;
  // Full paths, as a base::ItemList.
  std::string Items;
  // Target folder, with a separator at its end, or target path; a NUL at its end. A NUL alone for a
  // delete. A list where FromTrash or OwnTargets tells so.
  std::string Destination;
  std::uint16_t Flags = 0;
  // One for each item, or none at all. An item that is another one by now, or has changed, is left
  // where it is, and the user is told of it at the end.
  std::vector<ItemFingerprint> Expected = {};
};

// An item of a request, and where it is by now. Both are full paths.
struct PlacedItem {
  std::string From;
  std::string To;
};

// What was done to one item, as far as it can be taken back.
struct DoneItem {
  std::string From;  // full path that it had, or that of what it is a copy of; empty for a new one
  std::string To;    // full path that it has; of an item in the trash as TrashedItem::Place
  // Of what stands at To. `Below` is there for folders that were made, and not for moved ones.
  ItemFingerprint Print = {};
};

using ItemKey = std::uint64_t;  // see KeyOf

// An item that a move has made anew on another volume, and what it is there.
struct RenumberedItem {
  ItemKey Before = 0;
  ItemKey After = 0;
  std::uint64_t Device = 0;  // this and the next two as in ItemFingerprint
  std::uint64_t Number = 0;
  std::int64_t Born = 0;
};

struct OperationResult {
  int Code = 0;  // 0 when everything asked for was done
  bool Aborted = false;
  // Those of a copy, move or rename that came through, in the order of the request; of a folder
  // something further down may have been left.
  std::vector<PlacedItem> Placed = {};
  // What can be taken back. Where a folder was merged into another, what came of each item in it by
  // itself; nothing of what took the place of another item or was deleted for good.
  // What a move has copied, though the original has not gone, is a new item.
  std::vector<DoneItem> Done = {};
  std::uint64_t Irrevocable = 0;  // items that are not among these, though something was done
  std::vector<RenumberedItem> Renumbered = {};  // with all that lies below moved folders
  // Of an order: the code of each request that was carried out.
  std::vector<int> Codes = {};
};

// Joins what a further request of an order came to.
inline void Add(OperationResult& all, OperationResult&& next) {
  all.Codes.push_back(next.Code);
  if (all.Code == 0) all.Code = next.Code;
  all.Aborted |= next.Aborted;
  all.Placed.insert(all.Placed.end(), std::move_iterator(next.Placed.begin()),
                    std::move_iterator(next.Placed.end()));
  all.Done.insert(all.Done.end(), std::move_iterator(next.Done.begin()),
                  std::move_iterator(next.Done.end()));
  all.Irrevocable += next.Irrevocable;
  all.Renumbered.insert(all.Renumbered.end(), next.Renumbered.begin(), next.Renumbered.end());
}

// A command on items, as people know it.
enum class CommandKind : std::uint8_t {
  Other,  // cannot be undone, by what it is
  Copy,
  Move,
  Rename,
  Duplicate,
  NewFolder,
  Shortcut,
  Trash,
  Delete,  // for good
  Restore,
  Colour,
  Undo,
  Redo,
};

// What one command asks for.
struct OperationOrder {
  CommandKind Kind = CommandKind::Other;
  // Done one after the other; none after one that was aborted.
  std::vector<OperationRequest> Requests;
  // For people, where the kind and the requests do not say it: "Undoing: Copy of 3 items".
  std::string Title = {};
};

// From the one that was started first; none is given twice.
using OperationId = std::uint64_t;
inline constexpr OperationId NoOperation = 0;

// Gets what all requests of the order came to: the first code that is not 0, aborted if one was,
// the items of all.
using OperationDone = std::function<void(const OperationResult& result)>;

// A file in the folder of the program's own files, there only while operations have items under
// other names than their own: for each the path that the item had and the one that it has, each
// ended by a NUL. Where names are exchanged in a circle, all its steps are there so, in their
// order, from the one that gives the other name to the one that takes it back. A run that is killed
// meanwhile leaves it.
inline constexpr std::string_view AsideRecordName = "aside.txt";

// The owner of operations, as commands see it: takes orders, and tells when they are done.
class FileOperation {
 public:
  virtual ~FileOperation() = default;
  // Hands the work over and returns soon: what takes no time is done by then, all else goes on
  // beside the user, or waits for its turn. Progress, questions and failures are shown without the
  // caller. An order without items is done at once.
  virtual OperationId Start(OperationOrder order) = 0;
  // Calls `then` once, from the event loop, when the operation is done or given up; at once where
  // it is so by now, and for NoOperation with an empty result. Several are called in their order.
  // Not called where the program ends before.
  virtual void WhenDone(OperationId operation, OperationDone then) = 0;
  // Tells of a command that has done its work by other means, so that it can be undone: what was
  // moved or renamed with both paths, what was made with an empty From.
  virtual void NoteDone(CommandKind kind, const std::vector<PlacedItem>& items) = 0;
  // Why the items, listed as in a request, may not be deleted, moved or renamed by any command, as
  // one sentence for people; empty where they may. The root of all folders, the places of mounted
  // volumes, the home folder, the program's folder and what holds one of them stay, and so does
  // what another operation works in.
  virtual std::string Refusal(FileFunction function, const std::string& items) const = 0;
};

}  // namespace tarnwell::platform
