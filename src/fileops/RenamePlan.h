// Many renames as one: what speaks against them, and in which order they work.
//
// Pure rules over paths; looks at no disk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/PathSyntax.h"
#include "platform/FileOperation.h"

namespace tarnwell::fileops {

struct RenameWish {
  std::string Folder;  // that holds the item; full path
  std::string Name;
  std::string NewName;
  // The folder takes names that differ in case alone for the same, whatever the platform does.
  bool IgnoresCase = false;
};

// The name as it is compared there.
std::string NameKey(std::string_view name, bool ignoresCase, const base::PathSyntax& syntax);

enum class RenameFault : std::uint8_t {
  None,
  Empty,
  NotAName,   // may not be one on this platform
  TooLong,    // longer than names are
  SameAsNew,  // another item is to be called so too
  Taken,      // an item that keeps its name is called so
  Gone,       // the item is not there any more
};

// Whether an item of the folder, be it one of the wishes, is called so.
using IsNameTaken = std::function<bool(const std::string& folder, const std::string& name)>;
// Asked for each item; false breaks the work off, until it is called again.
using GoesOn = std::function<bool()>;

// The most bytes of a name on all file systems that people use; characters on those that ignore
// case, which count so.
inline constexpr std::size_t LongestName = 255;

// For each wish what speaks against it; nothing against a name that stays as it is.
std::vector<RenameFault> FaultsOf(const std::vector<RenameWish>& wishes,
                                  const base::PathSyntax& syntax, const IsNameTaken& isTaken);

// Why the item cannot be renamed so, as a short text for people; empty for None.
std::string_view TextOf(RenameFault fault);

// Wishes by what they are called, or are to be called, in their folders.
class WishIndex {
 public:
  static constexpr std::size_t None = static_cast<std::size_t>(-1);

  // The wishes stay as they are while it is used.
  WishIndex(const std::vector<RenameWish>& wishes, std::string RenameWish::*name,
            const base::PathSyntax& syntax);

  void Add(std::size_t wish);
  // How many that were added have the name in the folder of the wish, and the first of them or
  // None.
  std::size_t CountOf(const RenameWish& wish, const std::string& name) const;
  std::size_t FirstOf(const RenameWish& wish, const std::string& name) const;

 private:
  struct Key {
    std::string_view Folder;
    std::string_view Name;
    bool operator==(const Key&) const = default;
  };
  struct HashKey {
    std::size_t operator()(const Key& key) const;
  };
  struct Place {
    std::size_t First = 0;
    std::size_t Count = 0;
  };

  Key KeyOf(const RenameWish& wish, const std::string& name, std::string& folded) const;
  const Place* Find(const RenameWish& wish, const std::string& name) const;

  const std::vector<RenameWish>& wishes_;
  std::string RenameWish::*const name_;
  const base::PathSyntax& syntax_;
  std::deque<std::string> folded_;
  std::unordered_map<Key, Place, HashKey> places_;
};

// FaultsOf by pieces. The wishes, the syntax and the function stay as they are until the end.
class FaultFinder {
 public:
  FaultFinder(const std::vector<RenameWish>& wishes, const base::PathSyntax& syntax,
              IsNameTaken isTaken);

  // False where it was broken off.
  bool GoOn(const GoesOn& goesOn);
  std::vector<RenameFault> Take() { return std::move(faults_); }

 private:
  RenameFault FaultOf(const RenameWish& wish) const;
  bool IsMoving(std::size_t wish) const { return wishes_[wish].NewName != wishes_[wish].Name; }

  const std::vector<RenameWish>& wishes_;
  const base::PathSyntax& syntax_;
  const IsNameTaken isTaken_;
  WishIndex wanted_;  // by those that get another name
  WishIndex held_;
  std::vector<RenameFault> faults_;
  std::size_t indexed_ = 0;  // wishes
  std::size_t judged_ = 0;
};

// A name that is free in the folder of the wish, for the time between two steps of its item.
using FreeName = std::function<std::string(const RenameWish& wish)>;

// What is to be done one after the other so that all wishes without a fault come true: what lies in
// a folder before the folder itself, who holds a name before who wants it, and circles through a
// name of `free`. Names that stay are left out. The steps are those of FileFunction::Rename.
std::vector<platform::PlacedItem> StepsOf(const std::vector<RenameWish>& wishes,
                                          const base::PathSyntax& syntax, const FreeName& free);

// "report (being renamed).txt", or with a number behind that: the first of them that `isFree`.
std::string NameBetween(const RenameWish& wish,
                        const std::function<bool(const std::string& name)>& isFree);

}  // namespace tarnwell::fileops
