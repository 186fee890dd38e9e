// Many renames as one: what speaks against them, and in which order they work.
//
// Pure rules over paths; looks at no disk.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/PathSyntax.h"
#include "platform/FileOperation.h"

namespace tarnwell::fileops {

struct RenameWish {
  std::string Folder;  // that holds the item; full path
  std::string Name;
  std::string NewName;
};

enum class RenameFault : std::uint8_t {
  None,
  Empty,
  NotAName,   // may not be one on this platform
  TooLong,    // more bytes than names have
  SameAsNew,  // another item is to be called so too
  Taken,      // an item that keeps its name is called so
  Gone,       // the item is not there any more
};

// Whether an item of the folder that is none of the wishes is called so.
using IsNameTaken = std::function<bool(const std::string& folder, const std::string& name)>;

// The most bytes of a name, on all file systems that people use.
inline constexpr std::size_t LongestName = 255;

// For each wish what speaks against it. A name that stays as it is has no fault but that others
// want it too.
std::vector<RenameFault> FaultsOf(const std::vector<RenameWish>& wishes,
                                  const base::PathSyntax& syntax, const IsNameTaken& isTaken);

// Why the item cannot be renamed so, as a short text for people; empty for None.
std::string_view TextOf(RenameFault fault);

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
