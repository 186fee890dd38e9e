// Port: folders and files as the program reads and writes them itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/PathSyntax.h"
#include "base/Status.h"
#include "platform/CountedFiles.h"

namespace tarnwell::platform {

enum class ItemKind : std::uint8_t {
  File,
  Folder,
  Other,    // device, socket, FIFO
  Unknown,  // the folder does not tell; ReadAttributes does
};

struct ItemAttributes;

// What reading a folder gives for each item, at the cost of the reading alone.
struct FolderEntry {
  std::string_view Name;  // bytes; never "." or ".."; valid during the call
  ItemKind Kind = ItemKind::File;
  bool IsLink = false;  // a symbolic link; Kind is then Unknown until it is followed
  bool IsHidden = false;
  bool IsSystem = false;
  // Where the system tells them with the name; the item is then not looked at again. Valid during
  // the call.
  const ItemAttributes* Attributes = nullptr;
};

// A time that is not known, or that the file system lacks; before all others.
inline constexpr std::int64_t UnknownTime = std::numeric_limits<std::int64_t>::min();

// Times are nanoseconds since 1970-01-01 UTC.
struct ItemAttributes {
  ItemKind Kind = ItemKind::File;  // of what a link leads to; Other for a link that leads nowhere
  bool IsLink = false;
  bool IsBroken = false;  // a link that leads nowhere
  bool IsHidden = false;  // this and the next: of the item itself, no link followed
  bool IsSystem = false;
  std::uint64_t Size = 0;  // bytes; 0 for a folder
  std::int64_t Modified = UnknownTime;
  std::int64_t Created = UnknownTime;
  std::int64_t Accessed = UnknownTime;
  std::uint32_t Mode = 0;  // POSIX permission bits, 07777; elsewhere what comes nearest to them
};

// Short texts that a file system can keep with an item.
enum class ExtendedAttribute {
  Colour,   // the word of the item's colour code
  Comment,  // what the user wrote about the item
};

// Hands over one item; false ends the reading.
using TakeEntry = std::function<bool(const FolderEntry&)>;

// Items of a folder whose attributes are wanted. All of it is called by the thread that wants them.
class WantedAttributes {
 public:
  virtual ~WantedAttributes() = default;
  // How many there are, about.
  virtual std::size_t Count() const = 0;
  // The next one, with a number of the asker's own. The name is valid until the next call of any of
  // these. False where there is none any more.
  virtual bool Next(std::string_view& name, int& number) = 0;
  // As OpenedFolder::ReadAttributes gives them. Not always in the order in which they were named.
  virtual void Take(int number, const base::Status& status, const ItemAttributes& attributes) = 0;
  // Asked after each Take, and some times a second while there is none: nothing came for a while
  // then. False ends the reading.
  virtual bool GoesOn(bool isWaiting) = 0;
};

// A folder that is held open: its items are reached from it by name, at less cost than by path. On
// POSIX systems that goes on whatever happens to the path meanwhile; Windows would keep the folders
// above it from being renamed, so that there an item is gone when the path is.
class OpenedFolder {
 public:
  virtual ~OpenedFolder() = default;
  // Hands every item to `take`, in no order, until it returns false. The status tells why the
  // folder could not be read to its end; what was read before stands. Where `take` has ended it,
  // another call goes on behind that item.
  virtual base::Status Read(const TakeEntry& take) = 0;
  // A link is followed.
  virtual base::Status ReadAttributes(std::string_view name, ItemAttributes& attributes) const = 0;
  // The same of many items, some thousand of which may be named ahead of what is taken. What was
  // named when it ended is dropped.
  virtual void ReadManyAttributes(WantedAttributes& wanted) const {
    std::string_view name;
    int number = 0;
    while (wanted.Next(name, number)) {
      ItemAttributes attributes;
      const base::Status status = ReadAttributes(name, attributes);
      wanted.Take(number, status, attributes);
      if (!wanted.GoesOn(false)) return;
    }
  }
  // An item without it, and a file system that keeps none, give an empty text and no error.
  virtual base::Status ReadExtendedAttribute(std::string_view name, ExtendedAttribute attribute,
                                             std::string& text) const = 0;
};

// What a folder holds, with all that lies below it.
struct FolderTotal {
  std::uint64_t Bytes = 0;          // lengths of the files, one with several names counted once
  std::uint64_t OnDisk = 0;         // bytes that these files take up there
  std::uint64_t FoldersOnDisk = 0;  // the same of the folders themselves, the first among them
  std::uint64_t Files = 0;          // all that is no folder
  std::uint64_t Folders = 0;
  std::uint64_t Unreadable = 0;  // folders and items that could not be looked at
  base::Status Trouble;          // the reason of the first of them
  // Kept by the caller over several walks; null where there is but one.
  CountedFiles* Counted = nullptr;
  std::uint64_t RepeatedBytes = 0;   // of Bytes: what is in Counted from earlier walks
  std::uint64_t RepeatedOnDisk = 0;  // the same of OnDisk
};

struct Space {
  std::uint64_t Free = 0;  // bytes that this user may still write
  std::uint64_t Total = 0;
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  virtual const base::PathSyntax& Syntax() const = 0;

  // Null with the reason in `status` where the folder cannot be opened.
  virtual std::unique_ptr<OpenedFolder> OpenFolder(const std::string& folder,
                                                   base::Status& status) const = 0;
  // Opens the folder and reads it, as OpenedFolder::Read does.
  base::Status ReadFolder(const std::string& folder, const TakeEntry& take) const {
    base::Status status;
    const std::unique_ptr<OpenedFolder> opened = OpenFolder(folder, status);
    return opened ? opened->Read(take) : status;
  }

  // Attributes of the item named `name` in `folder`; a link is followed. An empty name means the
  // folder itself.
  virtual base::Status ReadAttributes(const std::string& folder, const std::string& name,
                                      ItemAttributes& attributes) const = 0;

  // True when the path is a folder (or a link to one) that can be listed.
  virtual bool FolderExists(const std::string& path) const = 0;
  // True when anything at all has that path.
  virtual bool Exists(const std::string& path) const = 0;
  // Where the link leads, in bytes, as it has it; empty for what is none.
  virtual std::string ReadLink(const std::string& path) const = 0;

  // Whether items can go into the folder of that path, or into one that is yet to be made there:
  // the reason is a sentence that says what to do.
  virtual base::Status CheckTarget(const std::string& path) const = 0;

  // Walks all that lies below the folder: links are not followed, other volumes mounted below it
  // not entered. `goOn` is asked many times a second, with what has been counted so far, and ends
  // the walk by false; what was counted stands then. The status tells why the folder itself could
  // not be read; trouble further down is counted in the total.
  using GoOn = std::function<bool(const FolderTotal& soFar)>;
  virtual base::Status MeasureFolder(const std::string& folder, const GoOn& goOn,
                                     FolderTotal& total) const = 0;
  // Of the volume that holds the folder.
  virtual base::Status ReadSpace(const std::string& folder, Space& space) const = 0;

  // Keeps the text with the item; an empty one takes it away. Gives an error where the file system
  // keeps none.
  virtual base::Status WriteExtendedAttribute(const std::string& path, ExtendedAttribute attribute,
                                              const std::string& text) = 0;
  // The reasons of these two are sentences that say what to do.
  // Makes one folder; one that is there already gives an error.
  virtual base::Status MakeFolder(const std::string& path) = 0;

  // Gives an item another path on the same volume. A path that is taken gives an error, and nothing
  // is replaced; another case of the same name is no other item.
  virtual base::Status Rename(const std::string& from, const std::string& to) = 0;

  // The whole content of a file.
  virtual base::Status ReadFile(const std::string& path, std::string& content) const = 0;
  // Replaces the file in one step: after a failure, or a crash at any moment, the path holds either
  // the whole old content or the whole new one. A link is written through. A file that may not be
  // written, and anything that is no file, stays as it is and gives an error.
  virtual base::Status WriteFile(const std::string& path, const std::string& content) = 0;
  // Removes a file; a folder gives an error.
  virtual base::Status RemoveFile(const std::string& path) = 0;
};

// A volume that a person would name.
struct Drive {
  std::string Name;   // names the drive: "C", or the mount point; also what settings store
  std::string Label;  // what people see: "Home", "File system", the volume's own name
};

class Drives {
 public:
  virtual ~Drives() = default;

  // The drives in the order in which they are offered; the default drive is always among them.
  virtual std::vector<Drive> List() const = 0;
  // The user's home folder; empty if there is none.
  virtual std::string HomeFolder() const = 0;
  // The name of the drive that holds the path: of the volumes, the one whose root is nearest above
  // it. A home folder that is listed for convenience, and is no volume of its own, does not count.
  virtual std::string DriveOf(const std::string& path) const = 0;
  // Calls `changed` from the event loop after volumes came or went. An empty function stops that.
  virtual void OnChange(std::function<void()> changed) = 0;
};

}  // namespace tarnwell::platform
