// Port: folders and files as the program reads and writes them itself.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/PathSyntax.h"
#include "base/Status.h"

namespace tarnwell::platform {

enum class ItemKind : std::uint8_t {
  File,
  Folder,
  Other,    // device, socket, FIFO
  Unknown,  // the folder does not tell; ReadAttributes does
};

// What reading a folder gives for each item, at the cost of the reading alone.
struct FolderEntry {
  std::string Name;  // bytes; never "." or ".."
  ItemKind Kind = ItemKind::File;
  bool IsLink = false;  // a symbolic link; Kind is then Unknown until it is followed
  bool IsHidden = false;
  bool IsSystem = false;
};

// Times are nanoseconds since 1970-01-01 UTC; a time that the file system lacks is 0.
struct ItemAttributes {
  ItemKind Kind = ItemKind::File;  // of what a link leads to; Other for a link that leads nowhere
  bool IsLink = false;
  std::uint64_t Size = 0;  // bytes; 0 for a folder
  std::int64_t Modified = 0;
  std::int64_t Created = 0;
  std::int64_t Accessed = 0;
  std::uint32_t Mode = 0;  // POSIX permission bits, or the platform's attribute bits
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  virtual const base::PathSyntax& Syntax() const = 0;

  // Hands every item of the folder to `take`, in no order, until it returns false. The status tells
  // why a folder could not be opened or read to its end; what was read before stands.
  using TakeEntry = std::function<bool(const FolderEntry&)>;
  virtual base::Status ReadFolder(const std::string& folder, const TakeEntry& take) const = 0;

  // Attributes of the item named `name` in `folder`; a link is followed. An empty name means the
  // folder itself.
  virtual base::Status ReadAttributes(const std::string& folder, const std::string& name,
                                      ItemAttributes& attributes) const = 0;

  // True when the path is a folder (or a link to one) that can be listed.
  virtual bool FolderExists(const std::string& path) const = 0;
  // True when anything at all has that path.
  virtual bool Exists(const std::string& path) const = 0;

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
