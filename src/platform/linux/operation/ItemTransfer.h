// Copying and moving of items.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/files/AsideRecord.h"
#include "platform/linux/files/ProtectedItems.h"
#include "platform/linux/files/RenameItem.h"
#include "platform/linux/operation/CopiedItems.h"
#include "platform/linux/operation/FileCopier.h"
#include "platform/linux/operation/FlushedVolumes.h"
#include "platform/linux/operation/ItemCounter.h"
#include "platform/linux/operation/LinkedFiles.h"
#include "platform/linux/operation/OpenPlace.h"
#include "platform/linux/operation/OperationContext.h"
#include "platform/linux/operation/SmallFiles.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/ErrorNumber.h"
#include "platform/linux/posix/FolderBuffer.h"
#include "platform/linux/posix/TreeWalk.h"
#include "platform/linux/posix/VolumeTraits.h"

namespace tarnwell::platform {

// Copies or moves items, each with all that lies below it, asking where it has to. A move is a
// rename wherever that goes; otherwise the items are copied, flushed and checked, and then what was
// copied is deleted. What is not whole has no name yet, or lies under a temporary one. Links are
// taken as they are and never followed. Serves one item after the other, all to one folder.
class ItemTransfer {
 public:
  // None of the protected items is replaced.
  // `copyThreads`: see SmallFiles.
  ItemTransfer(OperationContext& context, const OpenPlace& target, ProtectedItems& protectedItems,
               const AsideRecord& record, std::size_t copyThreads = 0);

  // Takes one item from its folder; it is to be called `targetName`. What it is expected to be may
  // be null.
  void Take(const std::shared_ptr<const OpenPlace>& source, const std::string& name,
            const std::string& targetName, const ItemFingerprint* expected = nullptr);
  // Ends the moves: to be called when all has been taken.
  void Finish();
  // Called before the first copying, as a rename needs no counting.
  void BeforeCopying(std::function<void()> before) { beforeCopying_ = std::move(before); }

 private:
  // What stands in the way of an item, and what is to be done about it.
  enum class Way { Free, Replace, Merge, Leave };

  struct Failure {
    OperationStep Step = OperationStep::Find;
    ErrorNumber Error;
    const char* Reason = nullptr;  // where the system's own words would mislead
    bool IsTarget = false;         // the target's path is the one to name
    bool IsSettled = false;        // the user has been asked about it
  };

  struct Item {
    std::string Name;
    unsigned Type = 0;   // S_IFDIR and the like
    std::string Target;  // its name to be
    Way Decided = Way::Free;
    ItemFingerprint Replaced = {};  // what is to give way, as it was when that was decided
  };

  // A folder on the way down.
  struct Level {
    struct statx Source {};
    CopiedItems::Key Key = 0;
    VolumeTraits From;
    VolumeTraits To;
    std::size_t ToLength = 0;  // of the path of what it becomes
    std::string Target;
    std::string Temporary;         // while it lies under another name than its own
    bool HandsDown = false;        // gives access lists to what is made there
    bool IsNew = false;            // nothing can be in the way there
    bool IsOwn = false;            // it, or one above it, is new
    bool IsSwept = false;          // of what killed runs have left
    bool CanRename = false;        // a move from here to there may be a rename
    bool IsGivenUp = false;        // cannot get its own name
    bool ReplacesFile = false;     // keeps its temporary name until all below it is whole
    ItemFingerprint Made;          // of what it becomes; `Below` grows with what is made there
    bool IsUnsure = false;         // something else happened there than that items were made
    std::uint64_t DoneBefore = 0;  // see CountDone
    ItemFingerprint Replaced;      // as in Item
  };

  struct Renumbered {
    RenumberedItem Now;
    std::size_t Arrived = 0;  // what of `arrived_` it is, or lies below
    std::string From;         // where it took the place of another item, and is none of these
  };

  struct Taken {
    std::shared_ptr<const OpenPlace> Source;
    std::string Name;
    std::size_t FirstArrived = 0;
  };

  // The walk (ItemTransfer.cpp).
  ErrorNumber EnterBase(const std::shared_ptr<const OpenPlace>& source);
  void Walk();
  void TakeItem(Item item);
  Failure Attempt(Item& item);
  Failure LookAhead(const Item& item);
  Failure Rename(const Item& item);
  bool Retries(const Item& item, const Failure& failure);
  // Whether it still is what it is expected to be.
  bool MayGoOn(const Item& item);
  void PassOver(const Item& item);
  // What another operation is still making is no item yet: the user hears of it at the end.
  void LeaveUnfinished(const std::string& path);
  void FinishBatch();
  void ReportIfDue(const Item& item);
  Failure Done(const Item& item, const struct statx& source);
  std::string FromPath(std::string_view name) const { return walk_.PathOf(name); }
  std::string ToPath(std::string_view name) const { return to_ + "/" + std::string(name); }

  // Folders (TransferFolder.cpp).
  Failure CopyFolder(const Item& item);
  Failure OpenTargetFolder(const Item& item, bool holdsFiles, Level& level, Descriptor& opened);
  // What names a folder has besides those of its subfolders.
  struct FolderNames {
    NameList Others;                      // with a letter for the kind in front of each
    std::vector<std::string> Unfinished;  // temporary ones that are in use
    bool HasLeft = false;                 // temporary ones of a killed run are among the others
  };
  ErrorNumber ReadNames(int folder, const std::string& path, NameList& others);
  ErrorNumber ListNames(int folder, FolderNames& names);
  void TakeOthers(const NameList& others);
  // A name with a letter for the kind in front.
  void TakeOther(const char* lettered);
  // Whether some of them are to be copied several at once.
  bool SharesFiles(const std::vector<const char*>& lettered);
  // Leaves on the list what is to be taken one by one.
  void TakeTogether(std::vector<const char*>& lettered);
  void TakeSmall(std::vector<SmallFile>& files, std::vector<const char*>& left);
  bool GoesIntoItself(const ItemIdentity& source) const;
  bool PutInPlace();
  void LeaveFolder();
  bool FinishReplacing(const Level& left);
  bool FinishNewFolder(const Level& level);
  void ForgetCopied();

  // Files and links (TransferFile.cpp).
  Failure CopyFile(const Item& item);
  Failure CopyContentOf(const Item& item, int from, const struct statx& source);
  bool LeavesForLoss(const std::string& path);
  Failure CopyLink(const Item& item);
  Failure FinishItem(const Item& item, const struct statx& source);

  // What can be taken back (TransferDone.cpp).
  void NoteMade(const Item& item, const struct statx& source, const ItemFingerprint& print);
  // Of a folder that was left, by the name that it has at the source.
  void NoteFolder(const std::string& name, const Level& left);
  // Of an item of the target folder at hand.
  ItemFingerprint PrintThere(const std::string& name);
  // How much was told of so far, and is still to be.
  std::uint64_t CountDone() const;
  // From `first` on; of those before `deleted` the originals were to go.
  void SettleArrived(std::size_t first, std::size_t deleted);

  // Conflicts (TransferConflict.cpp).
  Way FindWay(Item& item);
  Way Ask(const Item& item, const std::string& spelled, const struct statx& source,
          const struct statx& target, bool& makesTwin);
  bool IsOneFolder() const;
  // What gives way, as it was when that was decided.
  MayGo MayGoIf(const ItemFingerprint& replaced) const;
  // None where nothing is to.
  MayGo MayGoFor(const Item& item) const;
  static ErrorNumber FindFreeTwin(int folder, std::string& name, bool isFolder);

  OperationContext& context_;
  const OpenPlace& target_;
  ProtectedItems& protected_;
  const AsideRecord& record_;
  const bool moves_;
  std::shared_ptr<const OpenPlace> source_;  // where the last item was taken from
  TreeWalk<Level> walk_;                     // down the sources
  FolderChain targets_;                      // what each folder on the way becomes
  std::string to_;                           // path of the last of them
  ItemIdentity made_;                        // what the item at hand becomes, when it is a folder
  FolderBuffer buffer_;
  FileCopier copier_;
  SmallFiles small_;
  LinkedFiles links_;
  FlushedVolumes flushed_;
  CopiedItems copied_;
  std::vector<Taken> batch_;  // copied, and to be deleted once all is flushed
  // What a move has copied, until it shows which originals have gone. An empty To stands for a
  // folder whose items, none, were merged into another.
  std::vector<DoneItem> arrived_;
  std::vector<Renumbered> renumbered_;
  const ItemFingerprint* expected_ = nullptr;  // of the item at hand
  std::uint64_t batchStart_ = 0;
  std::function<void()> beforeCopying_;
};

}  // namespace tarnwell::platform
