// What must hold for any content as a note of the trash, and as what it keeps of sizes: as
// RecordProperties.h for records.
#pragma once

#include "platform/linux/trash/TrashNote.h"

namespace tarnwell::fuzz {

// The first rule that the content breaks; empty when it breaks none.
inline std::string BrokenTrashRule(std::string_view content) {
  const platform::KeptSizes sizes = platform::ReadKeptSizes(content);
  if (platform::ReadKeptSizes(platform::TextOf(sizes)) != sizes) {
    return "does not read the sizes again that it has written";
  }
  platform::SecondsOfDate(content);
  const std::optional<platform::TrashNote> note = platform::ReadTrashNote(content);
  for (const bool isHome : {false, true}) {
    const platform::FormerPlace place =
        platform::PlaceOfNote(note ? note->Path : content, "/top", isHome);
    if (place.State != platform::TrashState::Whole) {
      if (!place.Folder.empty() || !place.Name.empty()) return "names a place that is not good";
      continue;
    }
    const std::string path = place.Folder + (place.Folder == "/" ? "" : "/") + place.Name;
    if (!isHome && !path.starts_with("/top/")) return "leads out";
    if ((path + "/").find("/../") != path.npos || path.find('\0') != path.npos) return "climbs";
    const platform::FormerPlace again = platform::PlaceOfNote(path, "", true);
    if (again.Folder != place.Folder || again.Name != place.Name) return "is not settled";
  }
  return "";
}

}  // namespace tarnwell::fuzz
