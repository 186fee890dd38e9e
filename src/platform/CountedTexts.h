// The texts that tell a number, one table for all of them: each is a phrase or a sentence as a
// whole, with its forms for one and for other numbers. So no routine joins numbers and words by the
// rules of a language.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "platform/NumberForms.h"

namespace tarnwell::platform {

enum class CountedText : std::uint8_t {
  // What stands alone, or as a part of another text
  Items,
  Files,
  Folders,
  Operations,
  Bytes,
  SizeInFull,
  SizeAtLeast,
  SizeOfSize,
  SizeFree,
  SizePerSecond,
  NumberOfNumber,
  NumberOfItems,
  ItemsOfSize,
  PercentOfDeed,
  SecondsLeft,
  MinutesLeft,
  HoursLeft,
  DaysLeft,
  // What a list is cut off with
  AndMore,
  AndMoreItems,
  DotsAndMore,
  WithMore,
  WithMoreItems,
  WithMoreFolders,
  // The status of lists
  OnShow,
  OnShowOfItems,
  Selected,
  NotRead,
  NotReadIn,
  HiddenByFilter,
  Hidden,
  ReadingNames,
  ReadingPercent,
  Colouring,
  ColouringStopped,
  Listing,
  Sizing,
  SizingStopped,
  Sized,
  DroppedForeign,
  OnlyHere,
  Missing,
  Differ,
  DifferSo,
  Larger,
  Smaller,
  Newer,
  Older,
  Same,
  FilesSame,
  AllFilesSame,
  FoldersOfSameName,
  // File operations, undo and the recycle bin
  Copying,
  CopyingTo,
  Moving,
  MovingTo,
  Renaming,
  Duplicating,
  Making,
  MakingShortcuts,
  Trashing,
  Deleting,
  Restoring,
  WorkingOn,
  CopyStep,
  DuplicateStep,
  NewFolderStep,
  ShortcutStep,
  MoveStep,
  RenameStep,
  TrashStep,
  RestoreStep,
  ColourStep,
  GivingColoursBack,
  GivingColoursStopped,
  TrashBeingRead,
  TrashSelected,
  TrashShown,
  NotRestorable,
  // Renames of many items
  NamesRefused,
  NamesChange,
  LinesForItems,
  // Searches
  FoundItems,
  FoldersVisited,
  ItemsSeen,
  LookedInto,
  ItemsPerSecond,
  SkippedBinary,
  SkippedLarge,
  NamesGivenUp,
  NotReadButton,
  NotReadListed,
  // Menus and questions
  OpenQuestion,
  TrashQuestion,
  RunAllQuestion,
  RunSomeQuestion,
  NotOpened,
  NotOpenedForPaste,
  NotPasted,
  ForeignNotPasted,
  NoShortcut,
  FurtherNotFound,
  ColourLimit,
  // Properties
  PropertiesOf,
  ChangingPermissions,
  NotChanged,
  LeftUnchanged,
};
inline constexpr std::size_t CountedTextCount =
    static_cast<std::size_t>(CountedText::LeftUnchanged) + 1;

// The form of the text that goes with the number, which is written as `forms` writes it, with the
// other parts in their places. A part is taken as it is, whatever stands in it.
std::string Counted(const NumberForms& forms, CountedText text, std::uint64_t number,
                    std::initializer_list<std::string_view> parts = {});

// A text without a number: "%1" to "%9" stand for the parts.
std::string Filled(std::string_view text, std::initializer_list<std::string_view> parts);

}  // namespace tarnwell::platform
