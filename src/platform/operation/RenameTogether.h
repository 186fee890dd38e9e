// Renames of several items that count as one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/FileOperation.h"
#include "platform/operation/OperationTalk.h"

namespace tarnwell::platform {

// Where the numbers of items last, they alone tell: a name is given back to the same item, whatever
// has been written to it.
bool IsSameItem(const ItemFingerprint& found, const ItemFingerprint& expected);

// What a step has come to.
struct TakenStep {
  enum class Way : std::uint8_t { Failed, Renamed, Gone, Other };  // the last two: it was left
  Way Is = Way::Failed;
  ItemFingerprint Print = {};  // of the item that was renamed
  // Of what failed. The reason need not say that the name is taken.
  base::Status Failure = {};
  bool IsNameTaken = false;
};

// What the system does for them. Paths are full ones.
class RenameSystem {
 public:
  virtual ~RenameSystem() = default;
  // Renames the item if it may, and is the expected one; null for any. Replaces nothing.
  virtual TakenStep Take(const PlacedItem& step, const ItemFingerprint* expected) = 0;
  // The other way round; false where others were at it.
  virtual bool GiveBack(const PlacedItem& step) = 0;
  // A killed run leaves the record, by which the next one sees how far a circle has come. Called
  // with no steps too.
  virtual void Keep(const std::vector<PlacedItem>& steps) = 0;
  virtual void Drop(const std::vector<PlacedItem>& steps) = 0;
  // The user is to know that it was left.
  virtual void TellOfOther(const std::string& path, bool isGone) = 0;
};

// Takes the steps in their order, all of them or none: after a cancel, or where one fails, those
// taken go back in the other order. Then the user hears of the item and the reason, and may have it
// tried again. What cannot go back, since others were at it, keeps the new name, and is told of;
// nothing is tried again then. Replaces nothing.
class RenameTogether {
 public:
  RenameTogether(OperationTalk& talk, RenameSystem& system) : talk_(talk), system_(system) {}

  // Full paths, each as it is when the step's turn comes. `expected` has one for each step, or
  // none; what has been written to an item meanwhile makes it no other. Those that are gone, or
  // others by now, are left, and told of; all the rest counts as one.
  void Run(std::vector<PlacedItem> steps, const std::vector<ItemFingerprint>& expected);

 private:
  // False once a step has failed, which is `done_` then, or after a cancel: with no failure.
  bool GoAhead(const std::vector<ItemFingerprint>& expected, TakenStep& failure);
  // False if something keeps its new name.
  bool GoBack();
  base::Status ReasonOf(const TakenStep& failure) const;
  void Note();

  OperationTalk& talk_;
  RenameSystem& system_;
  std::vector<PlacedItem> steps_;
  std::vector<PlacedItem> wholes_;  // the same, without names for the time between
  std::vector<TakenStep> taken_;    // by step
  std::size_t done_ = 0;
};

}  // namespace tarnwell::platform
