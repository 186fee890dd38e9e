// The program's own entries of the context menu, and what the captions of all entries mean.
#pragma once

#include <cstddef>
#include <string_view>

namespace tarnwell::shellmenu {

// The platform numbers its entries within these; the program's own are above them.
inline constexpr int FirstPlatformId = 1;
inline constexpr int LastPlatformId = 32767;

enum class MainEntryKind {
  Plain,
  Separator,
  Access,  // submenus
  Bookmarks,
  ColourCode,
  Undo,  // its caption says what would be undone
};

// When an entry is there.
enum class ShownFor {
  All,
  NoDriveRoot,     // it is not for a drive's root
  AccessDatabase,  // it is for files of that kind
  SeveralItems,    // it is for two or more
  ToUndo,          // it is for empty space, and there is something to undo
};

struct MainEntry {
  std::string_view Caption;
  int Id;
  MainEntryKind Kind = MainEntryKind::Plain;
  ShownFor Shown = ShownFor::All;
};

// From the top down, above the platform's entries.
inline constexpr MainEntry MainEntries[] = {
    {"Access", 111798, MainEntryKind::Access, ShownFor::AccessDatabase},
    {"", 111796, MainEntryKind::Separator, ShownFor::AccessDatabase},
    {"&New Folder", 111795},
    {"", 111794, MainEntryKind::Separator},
    {"Rena&me", 111793, MainEntryKind::Plain, ShownFor::NoDriveRoot},
    {"Duplic&ate", 111792, MainEntryKind::Plain, ShownFor::NoDriveRoot},
    {"Command &Line", 111791},
    {"", 111790, MainEntryKind::Separator},
    {"&Bookmarks", 113000, MainEntryKind::Bookmarks},
    {"Colour Cod&e", 111789, MainEntryKind::ColourCode},
    {"Rename &Items...", 111799, MainEntryKind::Plain, ShownFor::SeveralItems},
    {"", 111800, MainEntryKind::Undo, ShownFor::ToUndo},
    {"", 111788, MainEntryKind::Separator},
};

inline constexpr MainEntry CompactDatabaseEntry{"Compact Database", 111797};

// The end of the paths that "Access" is for. It is longer than the end that is compared with it:
// the submenu is switched off.
inline constexpr std::string_view AccessPathEnd = "XXXXX";
inline constexpr std::size_t ComparedPathEnd = 4;

struct ColourEntry {
  std::string_view Caption;
  int Id;
  std::string_view Picture;
};

inline constexpr ColourEntry ColourEntries[] = {
    {"Default", 119999, ""},
    {"Black", 120000, "pic_cblack"},
    {"Gray", 120001, "pic_cgray"},
    {"Dark Green", 120002, "pic_cforest"},
    {"Light Green", 120003, "pic_cgreen"},
    {"Blue", 120004, "pic_cblue"},
    {"Cyan", 120005, "pic_ccyan"},
    {"Yellow", 120006, "pic_cyellow"},
    {"Orange", 120007, "pic_corange"},
    {"Red", 120008, "pic_cred"},
    {"Burgundy", 120009, "pic_cburgundy"},
    {"Lavender", 120010, "pic_clavender"},
};

// Slots count from 1 here, as users see them.
inline constexpr int BookmarkId(int slot) {
  return 113000 + slot;
}
inline constexpr int ClearSlotId(int slot) {
  return 114000 + 10 * (slot - 1) + 1;
}
inline constexpr int AddToSlotId(int slot) {
  return ClearSlotId(slot) + 1;
}

// The words of entries that MenuDispatch knows by name.
inline constexpr std::string_view CopyWord = "copy";
inline constexpr std::string_view CutWord = "cut";
inline constexpr std::string_view PasteWord = "paste";
inline constexpr std::string_view DeleteWord = "delete";
inline constexpr std::string_view RefreshWord = "refresh";
inline constexpr std::string_view NewFolderWord = "newfolder";
inline constexpr std::string_view RenameWord = "rename";
inline constexpr std::string_view DuplicateWord = "duplicate";
inline constexpr std::string_view CommandLineWord = "commandline";
inline constexpr std::string_view CompactWord = "mdb_compact";
inline constexpr std::string_view UndoWord = "undo";
inline constexpr std::string_view RenameItemsWord = "renameitems";

enum class Invokes {
  Never,
  ByShellVerbs,  // while cut, copy and paste are the platform's
  Always,
};

struct WordRow {
  std::string_view Caption;  // in capitals, without marks
  std::string_view Word;
  Invokes Verb;
};

inline constexpr WordRow WordTable[] = {
    {"RED", "red", Invokes::Never},
    {"BLUE", "blue", Invokes::Never},
    {"BLACK", "black", Invokes::Never},
    {"DARK GREEN", "dark green", Invokes::Never},
    {"LIGHT GREEN", "light green", Invokes::Never},
    {"CYAN", "cyan", Invokes::Never},
    {"BURGUNDY", "burgundy", Invokes::Never},
    {"LAVENDER", "lavender", Invokes::Never},
    {"ORANGE", "orange", Invokes::Never},
    {"YELLOW", "yellow", Invokes::Never},
    {"GRAY", "gray", Invokes::Never},
    {"DEFAULT", "default", Invokes::Never},
    {"COLOUR CODE", "colour code", Invokes::Never},
    {"COPY", CopyWord, Invokes::Always},
    {"CUT", CutWord, Invokes::Always},
    {"PASTE", PasteWord, Invokes::ByShellVerbs},
    {"DELETE", DeleteWord, Invokes::ByShellVerbs},
    {"CREATE SHORTCUT", RefreshWord, Invokes::Always},
    {"NEW FOLDER", NewFolderWord, Invokes::Never},
    {"RENAME", RenameWord, Invokes::Never},
    {"DUPLICATE", DuplicateWord, Invokes::Never},
    {"COMMAND LINE", CommandLineWord, Invokes::Never},
    {"COMPACT DATABASE", CompactWord, Invokes::Never},
    {"RENAME ITEMS...", RenameItemsWord, Invokes::Never},
};

// Captions that begin so give these words with the last two characters of the caption behind them.
inline constexpr std::string_view AddToSlot = "ADD TO SLOT";
inline constexpr std::string_view ClearSlot = "CLEAR SLOT";
// This one ends with what would be undone.
inline constexpr std::string_view UndoPrefix = "UNDO:";

inline constexpr std::string_view UnknownWord = "unknown";

}  // namespace tarnwell::shellmenu
