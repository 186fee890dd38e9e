// The notes that lie in a trash beside its files, and what it keeps of the sizes of folders: texts
// as the "Trash Specification" 1.0 of freedesktop.org tells them.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/TrashCan.h"

namespace tarnwell::platform {

// The longest note that is read. A path may be longer than what the system takes at once, and each
// of its bytes may stand there as three.
inline constexpr std::size_t LongestNote = 1 << 20;

struct TrashNote {
  std::string Path;  // bytes, as they were before they were encoded; empty where there is none
  std::string DeletionDate;  // as it stands there
};

// Of the content of a note; nothing where it is none. Where a key comes twice the first one counts,
// and a per cent sign that begins no code stands for itself.
std::optional<TrashNote> ReadTrashNote(std::string_view content);

// Of a DeletionDate: seconds from the start of 1970 by the same clock, which is that of the user's
// own time zone. Nothing for what is no date.
std::optional<std::int64_t> SecondsOfDate(std::string_view date);

// Where an item was before.
struct FormerPlace {
  TrashState State = TrashState::NoteDamaged;  // Whole, LeadsOut or NoteDamaged
  std::string Folder;  // full path, without "." and empty parts; empty unless it is whole
  std::string Name;
};

// The path of a note that is not absolute starts at `base`. An absolute one is good only in the
// trash of the home folder: on any other volume it leads out.
FormerPlace PlaceOfNote(std::string_view path, std::string_view base, bool isHome);

// What every name of a note ends with.
inline constexpr std::string_view NoteEnding = ".trashinfo";

// A line of the file "directorysizes".
struct KeptSize {
  std::uint64_t Size = 0;     // bytes on the disk
  std::int64_t NoteTime = 0;  // when the note was changed, in seconds since 1970; else it is stale

  bool operator==(const KeptSize&) const = default;
};

// By the name of the folder in the trash. Lines that are none are left out; of several for one name
// the last counts.
using KeptSizes = std::map<std::string, KeptSize, std::less<>>;
KeptSizes ReadKeptSizes(std::string_view content);
std::string TextOf(const KeptSizes& sizes);

}  // namespace tarnwell::platform
