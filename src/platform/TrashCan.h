// Port: what lies in the trash of every volume, by the layout that freedesktop.org's "Trash
// Specification" 1.0 tells.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/Status.h"
#include "platform/FileSystem.h"

namespace tarnwell::platform {

// Beside each file in a trash lies a note, which tells where it came from, and when.
enum class TrashState : std::uint8_t {
  Whole,
  NoNote,       // a file that no note tells of
  NoFile,       // a note whose file is gone
  LeadsOut,     // a note by which the item would be put outside its volume
  NoteIsLink,   // a note that is a symbolic link, and was not followed
  NoteDamaged,  // a note that is no file, cannot be read, is far too long, or names no place
};

struct TrashedItem {
  std::uint64_t Id = 0;  // of this item alone while the view lives; an item keeps it
  std::string Name;      // bytes; the one that it had, or in the trash where that is not known
  std::string Folder;    // full path of where it was, no link followed; empty where not known
  std::string Place;     // full path of where it lies; of a note whose file is gone, the note's
  std::int64_t Deleted = UnknownTime;  // nanoseconds since 1970-01-01 UTC
  std::uint64_t Size = 0;              // bytes; of a folder, what all of it takes up on the disk
  bool IsSizeKnown = false;            // false for a folder that is still to be measured
  ItemKind Kind = ItemKind::File;      // of the item itself, no link followed; Other for a link
  bool IsLink = false;
  TrashState State = TrashState::Whole;
};

// Only what is whole can be put back.
inline bool CanRestore(const TrashedItem& item) {
  return item.State == TrashState::Whole;
}

// A trash that is not shown, or not all of it.
struct TrashTrouble {
  std::string Trash;  // full path of the trash, or of the volume that may hold one
  base::Status Reason;
};

// Hears of a trash from the event loop, and may end the view within each call.
class TrashListener {
 public:
  virtual ~TrashListener() = default;
  // Items that came, and items known by their Id of which something else is told now. At the start
  // some thousands in each call, in no order.
  virtual void OnItems(std::vector<TrashedItem> items) = 0;
  virtual void OnGone(const std::vector<std::uint64_t>& ids) = 0;
  // All troubles that there are at the moment.
  virtual void OnTroubles(const std::vector<TrashTrouble>& troubles) = 0;
  // Once after the start, and once after each Refresh: all that lies in the trash has been told,
  // but the sizes of folders. A volume that does not answer for some seconds is a trouble until it
  // does, and its items are told then.
  virtual void OnSettled() = 0;
};

// Tells of the trash while it lives: of what others put there, take out of it and change, and of
// volumes that come and go.
class TrashView {
 public:
  virtual ~TrashView() = default;
  // Reads everything again; tells of what differs.
  virtual void Refresh() = 0;
};

class TrashCan {
 public:
  virtual ~TrashCan() = default;
  // Begins to tell; never calls the listener before it returns, nor once the view is gone. Waits
  // for no volume. `drive` is the name of the drive whose trash is meant; empty for all.
  virtual std::unique_ptr<TrashView> Follow(TrashListener& listener, std::string drive) = 0;
};

}  // namespace tarnwell::platform
