// Port: how a running file operation talks with whoever watches it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/Status.h"
#include "platform/FileOperation.h"
#include "platform/FileSystem.h"

namespace tarnwell::platform {

// How far the work has come. Done never exceeds total; both grow while it is still being counted.
struct OperationProgress {
  FileFunction Function = FileFunction::None;
  std::string_view From;  // full path of the item at hand; valid during the call
  std::string_view To;    // its path to be; empty for a delete
  std::uint64_t BytesDone = 0;
  std::uint64_t BytesTotal = 0;  // 0 for a delete, and for a move that needs no copying
  std::uint64_t ItemsDone = 0;
  std::uint64_t ItemsTotal = 0;
  bool IsCounting = false;  // the totals may still grow
  // The system does the work in one step, shows how far it is by a window of its own, and can be
  // neither paused nor cancelled from here.
  bool IsBySystem = false;
};

// One side of a conflict: the item itself, no link followed.
struct ConflictSide {
  std::string Path;
  ItemKind Kind = ItemKind::File;  // Other for a link
  bool IsLink = false;
  std::uint64_t Size = 0;               // bytes; 0 for all but files
  std::int64_t Modified = UnknownTime;  // nanoseconds since 1970-01-01 UTC
};

// An item is to go where another one stands.
struct OperationConflict {
  FileFunction Function = FileFunction::None;
  ConflictSide Source;
  ConflictSide Target;
  // The volume takes two names for the same that differ in case, and this is the other one.
  bool IsOtherSpelling = false;
};

enum class ConflictChoice {
  // A file or link takes the place of a file or link, and a folder that of a file or link: the old
  // one goes when the new one is whole. Two folders are merged. No folder ever gives way to a file:
  // that comes back as trouble.
  Replace,
  ReplaceOlder,  // replaces what was changed before the new one, and skips else; for no folder
  Skip,          // both stay as they are
  KeepBoth,      // the new one gets another name: "name (2).ext"
  Cancel,
};

struct ConflictAnswer {
  ConflictChoice Choice = ConflictChoice::Skip;
  // Also for what is still to come: files and links, two folders, unlike kinds, and other spellings
  // each for themselves.
  bool ForAll = false;
};

// What was being done when something went wrong.
enum class OperationStep {
  Find,        // reaching an item, or the folder that it is to go to
  Place,       // putting a folder into itself, which is refused
  Read,        // reading a file, a link or a folder
  Write,       // writing a file or link, or putting it in its place
  MakeFolder,  // making a folder, or the last touches to it
  Move,        // renaming, or moving within a volume
  Flush,       // making sure that what was copied is on the disk, before the source is deleted
  Delete,
  Trash,
  RenameTogether,  // one of several renames that count as one: all have gone back
  RenameInPart,    // the same, but not all could go back
};

struct OperationTrouble {
  OperationStep Step = OperationStep::Find;
  std::string Path;     // the item that it is about
  base::Status Reason;  // never a success
};

enum class TroubleChoice {
  Retry,    // the same as Skip after a Flush
  Skip,     // the item stays where it is, with all that it holds
  SkipAll,  // and whatever else goes wrong from now on
  Cancel,
};

// The item's volume has no trash.
enum class NoTrashChoice { DeleteForGood, Skip, Cancel };

struct NoTrashAnswer {
  NoTrashChoice Choice = NoTrashChoice::Skip;
  bool ForAll = false;
};

// The volume that an item is moved to cannot keep its access list, or extended attributes that are
// the user's own. What a copy cannot keep is still at the source, and not asked about.
enum class LossChoice {
  MoveAnyway,
  Skip,  // the item stays where it is
  Cancel,
};

struct LossAnswer {
  LossChoice Choice = LossChoice::Skip;
  bool ForAll = false;
};

enum class MissingFolderChoice { Make, Cancel };

// What a user is to know of an item when all is over, though there is nothing to decide.
enum class OperationRemark {
  Changed,     // others wrote it meanwhile: the copy holds what could be read
  Unfinished,  // left where it is: another operation is still making it
  // The rest tells of items that the request expects to be as they were.
  ChangedSince,  // another one by now, or changed: left where it is
  GoneSince,
  // Of NeverForGood: left where it is.
  HasNoTrash,
  KeptNewName,  // of renames that went back: this one could not
};
constexpr std::size_t OperationRemarkCount = 6;

// Hears of progress and answers the questions of one operation. All calls come from the thread that
// runs the operation, which waits for the answer. What is not answered by a class of its own gets
// the answer that loses nothing.
class OperationUser {
 public:
  virtual ~OperationUser() = default;

  // Called some tens of times a second at most; not at all for a silent operation.
  virtual void OnProgress(const OperationProgress& /*progress*/) {}
  // Asked before every item and every few megabytes. May block for a pause; false cancels: what is
  // done stands, and the file at hand is given up without a trace.
  virtual bool GoesOn() { return true; }

  // Whether two folders that meet are a conflict too. They are merged without a word otherwise.
  virtual bool AsksToMerge() const { return false; }
  virtual ConflictAnswer OnConflict(const OperationConflict& /*conflict*/) { return {}; }
  virtual TroubleChoice OnTrouble(const OperationTrouble& /*trouble*/) {
    return TroubleChoice::Skip;
  }
  virtual NoTrashAnswer OnNoTrash(const std::string& /*path*/) { return {}; }
  virtual LossAnswer OnLoss(const std::string& /*path*/) { return {}; }
  // The target folder does not exist.
  virtual MissingFolderChoice OnMissingFolder(const std::string& /*path*/) {
    return MissingFolderChoice::Make;
  }

  virtual void OnRemark(OperationRemark /*remark*/, const std::string& /*path*/) {}
};

}  // namespace tarnwell::platform
