// Port: what tells a folder from another, and from itself before items came or went.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarnwell::platform {

// A folder as a path leads to it at one moment. Links are followed.
struct FolderStamp {
  bool IsThere = false;  // the others are 0 where it is not
  std::uint64_t Device = 0;
  std::uint64_t Inode = 0;    // these two name the folder, whatever its path
  std::int64_t Modified = 0;  // nanoseconds since 1970-01-01 UTC, as fine as the file system has it
  std::int64_t Changed = 0;   // the same, of contents and attributes; nobody can set this time

  bool operator==(const FolderStamp&) const = default;
  bool IsSameFolder(const FolderStamp& other) const {
    return IsThere == other.IsThere && Device == other.Device && Inode == other.Inode;
  }
};

struct FolderFacts {
  FolderStamp Stamp;
  // A look at it waits for a disk of this machine at most; else it may take for ever.
  bool IsLocal = true;
  // A symbolic link stands in its path, which may lead elsewhere without a notice.
  bool IsByLink = false;
};

// A look that is under way.
class StampRequest {
 public:
  virtual ~StampRequest() = default;
};

class FolderStamps {
 public:
  virtual ~FolderStamps() = default;

  // These two look at once, and may wait for the volume.
  virtual FolderFacts ReadFacts(const std::string& folder) const = 0;
  virtual FolderStamp Read(const std::string& folder) const = 0;

  // Looks without keeping the caller. Calls `told` once from the event loop, with the stamps in the
  // order of the folders, when it has them all; never once the request has been let go of, which
  // may happen within the call. Null where no look can be begun.
  using Told = std::function<void(const std::vector<FolderStamp>&)>;
  virtual std::unique_ptr<StampRequest> Ask(std::vector<std::string> folders, Told told) = 0;
};

}  // namespace tarnwell::platform
