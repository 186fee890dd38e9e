// What a copy or move is to do, so that the disk tells afterwards what of it was done.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/FileOperation.h"
#include "platform/operation/OperationTalk.h"
#include "platform/win32/operation/ItemSort.h"

namespace tarnwell::platform {

// The shell tells no more than one number for all. So each item is looked at before and after: the
// ones whose targets were free, and of folders that are merged into others what lies in them. Where
// a target was taken the names in its folder are kept, by which twins are found.
class TransferPlan {
 public:
  explicit TransferPlan(FileFunction function) : moves_(function == FileFunction::Move) {}

  // Full paths of an item that is there, and of what it is to be. `item` is the caller's number.
  void Add(std::size_t item, const std::string& from, const std::string& to);

  // Not one item is a folder, or has to take the path of one.
  bool IsOfFiles() const;

  struct Left {
    std::size_t Item = 0;
    std::string Path;  // of the item, or of what lies in it
    std::string Target;
    // The user may have been asked about it.
    bool IsConflict = false;
    bool IsHalf = false;  // a file that has come, but not whole
  };
  // Tells what was done; gives what was not, by the numbers in order.
  std::vector<Left> Settle(OperationTalk& talk);

 private:
  struct Unit {
    std::size_t Item = 0;
    std::string From, To;
    ItemSort Sort = ItemSort::File;
    bool IsMerge = false;         // the folders themselves, behind all that lies in them
    bool IsPart = false;          // of a folder that is merged
    bool IsTaken = false;         // the target, by another item or by itself
    std::string Missing = {};     // of a copy that is not whole: the way to what it lacks
    ItemFingerprint Source = {};  // of a move, and where the target is taken
    ItemFingerprint Target = {};  // of what stands there
  };
  // What was not there before.
  struct NewItem {
    std::string Name;
    ItemSort Sort = ItemSort::File;
    ItemFingerprint Print;
  };
  // What is below a folder that goes to another volume, by paths from there.
  using KeysBelow = std::map<std::string, ItemKey>;
  enum class Outcome { Done, Half, Replaced, Gone, Left };

  void LookAtSource(Unit& unit);
  void AddParts(std::size_t item, const std::string& from, const std::string& to);
  void KeepKeys(const Unit& unit, const std::string& path, const std::string& below);
  void KeepNames(const std::string& folder);
  static Left LeftOf(const Unit& unit, bool isHalf);
  Outcome OutcomeOf(Unit& unit);
  bool IsWhole(Unit& unit) const;
  Outcome OutcomeOfMerge(std::size_t at) const;
  void NoteArrived(const Unit& unit, OperationTalk& talk);
  bool FindTwin(Unit& unit);
  std::vector<NewItem>& NewItemsIn(const std::string& folder);
  void NoteDone(const Unit& unit, OperationTalk& talk);
  void NoteRenumbered(const Unit& unit, const ItemFingerprint& now, OperationTalk& talk);

  const bool moves_;
  std::string folder_;  // that a target lay in last, and its volume
  std::uint64_t device_ = 0;
  std::vector<Unit> units_;
  std::map<std::string, std::set<std::string>> names_;  // by folder: those that were there, as keys
  std::map<std::string, std::vector<NewItem>> new_;     // by folder
  std::map<std::string, KeysBelow> keys_;               // by the item's path
};

}  // namespace tarnwell::platform
