// One trash: the folders that it is made of, opened so that no link leads out of it.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

#include "base/Status.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/ItemIdentity.h"
#include "platform/linux/trash/TrashNote.h"

namespace tarnwell::platform {

// Where a trash may be, told by its path alone: that of the home folder is called "Trash"; on a
// volume it is ".Trash-" with the user's number, or that number in a ".Trash" that all users share,
// right below the top of the volume.
class TrashPath {
 public:
  TrashPath(std::string path, uid_t user);

  // The two that a volume with this top may have.
  static TrashPath SharedOn(const std::string& top, uid_t user);
  static TrashPath OwnOn(const std::string& top, uid_t user);

  bool IsHome() const { return kind_ == Kind::Home; }
  const std::string& Text() const { return path_; }
  // Full path of the folder at which notes begin whose path is not absolute.
  const std::string& Base() const { return base_; }
  std::string FilesFolder() const { return path_ + "/files"; }
  std::string NotesFolder() const { return path_ + "/info"; }
  std::string PlaceOf(std::string_view name) const;
  std::string NotePlaceOf(std::string_view name) const;

  // What a note tells, for this trash.
  FormerPlace PlaceBefore(const TrashNote& note) const {
    return PlaceOfNote(note.Path, base_, IsHome());
  }

  // An invalid descriptor with the reason in `status` where there is no trash that counts: one of a
  // volume has to be the user's own folder and no link, and a shared one must let nobody take away
  // what is not his. ENOENT where there is none at all.
  Descriptor Open(base::Status& status) const;

 private:
  enum class Kind { Home, Own, Shared };

  std::string path_;  // without a separator at its end
  uid_t user_;
  Kind kind_ = Kind::Home;
  std::string base_;
};

// A trash that is held open.
struct OpenTrash {
  Descriptor Top;
  Descriptor Files;  // none where there is no such folder
  Descriptor Notes;
  ItemIdentity Self;

  // Nothing is open where the status, which begins as a success, tells why it is not a trash or
  // cannot be read whole. A folder in it that is a link counts as missing.
  static OpenTrash Of(const TrashPath& path, base::Status& status);
};

// An item in a trash by its full path; a path that is none in any trash has no name.
struct TrashPlace {
  std::string Trash;
  std::string Name;     // of the file, without the ending of a note
  bool IsNote = false;  // the path is that of the note
};
TrashPlace SplitTrashPlace(std::string_view path);

}  // namespace tarnwell::platform
