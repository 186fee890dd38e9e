// What lies in one trash.
#pragma once

#include <glib.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/posix/ErrorNumber.h"
#include "platform/linux/trash/TrashFolder.h"

namespace tarnwell::platform {

struct TrashEntry {
  std::string Key;            // the name in the trash
  TrashedItem Item;           // without Id
  std::int64_t NoteTime = 0;  // when the note was changed, in seconds since 1970; 0 without a note
  bool IsThere = true;        // else neither file nor note is
};

// Reads the notes and looks at the files of an open trash, following no link; measures no folder.
// Serves one thread.
class TrashReader {
 public:
  TrashReader(const TrashPath& path, const OpenTrash& trash);

  // Hands over some thousands of entries at a time, in no order; false ends the reading. Several
  // for one name may come where others change the trash meanwhile: the last one holds. The status
  // tells what could not be read; what was handed over stands.
  using Take = std::function<bool(std::vector<TrashEntry>)>;
  base::Status ReadAll(const Take& take);

  // The entry of one name, as it is now.
  TrashEntry Read(std::string_view name);

  // The note of the name; nothing with the reason in `state` where it is not good.
  std::optional<TrashNote> ReadNote(std::string_view name, TrashState& state,
                                    std::int64_t& noteTime);

 private:
  void TakeFacts(const struct statx& found, TrashEntry& entry, bool isNoted) const;
  ErrorNumber ReadContent(const char* name, TrashState& state, std::int64_t& noteTime);

  const TrashPath& path_;
  const OpenTrash& trash_;
  KeptSizes sizes_;
  struct FreeZone {
    void operator()(GTimeZone* zone) const { g_time_zone_unref(zone); }
  };
  std::unique_ptr<GTimeZone, FreeZone> zone_;  // the user's
  std::string noteName_;
  std::string content_;  // of the note at hand
};

// Reads what the trash keeps of its folders' sizes; nothing where that is no file of sound length.
KeptSizes ReadSizesOf(const OpenTrash& trash);

// Changes what the trash keeps of its folders' sizes, in one step. Nothing is written where nothing
// changes; a failure leaves the old file, whose stale lines mislead nobody.
void ChangeSizesOf(const OpenTrash& trash, const std::function<void(KeptSizes&)>& change);

}  // namespace tarnwell::platform
