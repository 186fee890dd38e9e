// Port: all that can be told of an item, and the change of its permissions.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/Status.h"
#include "platform/FileSystem.h"

namespace tarnwell::platform {

// Of the item itself: a link is not followed, except where it says so. Times are as in
// ItemAttributes. Texts but for the link's target are valid UTF-8.
struct ItemFacts {
  ItemKind Kind = ItemKind::File;  // of what a link leads to; Other for a link that leads nowhere
  bool IsLink = false;
  bool IsBroken = false;   // a link that leads nowhere
  std::string LinkTarget;  // bytes, as the link has them
  std::string Type;        // what its content is, in words; of what a link leads to
  std::string TypeName;    // the same as programs call it, "image/png"; may be empty
  std::uint64_t Size = 0;  // bytes; 0 for a folder
  std::uint64_t SizeOnDisk = 0;
  std::int64_t Modified = UnknownTime;
  std::int64_t Accessed = UnknownTime;
  std::int64_t Created = UnknownTime;
  std::string Owner;  // names, or numbers where there is no name
  std::string Group;
  std::uint32_t Mode = 0;       // POSIX permission bits with the three special ones, 07777
  std::uint64_t HardLinks = 1;  // names that the item has
  FileIdentity Identity;
  std::string WhyFixed;  // why this user cannot change the permissions; empty where he can try
};

struct VolumeFacts {
  std::string MountPoint;  // bytes
  std::string FileSystem;  // "ext4"
  platform::Space Space;   // both 0 where it is not known
};

// Bits of ItemFacts::Mode to be set and to be cleared, none in both; the others stay.
struct PermissionChange {
  std::uint32_t Set = 0;
  std::uint32_t Clear = 0;
};

struct PermissionTrouble {
  std::string Path;
  base::Status Reason;
};

struct PermissionOutcome {
  static constexpr std::size_t MostTroubles = 100;
  std::uint64_t Items = 0;   // looked at, whether or not there was anything to change
  std::uint64_t Failed = 0;  // those that should have changed and did not
  std::vector<PermissionTrouble> Troubles;  // the first of them
};

// May be called on any thread, from several at once.
class ItemInspector {
 public:
  virtual ~ItemInspector() = default;
  virtual base::Status ReadFacts(const std::string& path, ItemFacts& facts) const = 0;
  // Of the volume that holds the item, by its path alone.
  virtual base::Status ReadVolume(const std::string& path, VolumeFacts& volume) const = 0;

  // Is asked for each item, before it, and ends the work by false.
  using GoOn = std::function<bool(const PermissionOutcome& soFar)>;
  // Changes the permissions of the item; for a link that is trouble. With `inside` also those of
  // all that lies below a folder, without the special bits: files become executable only if they
  // are so for somebody already, and folders can be entered by those who may list them. Links there
  // are left alone, and what is mounted among them is trouble. What has been done is
  // added to the outcome.
  virtual void SetPermissions(const std::string& path, const PermissionChange& change, bool inside,
                              const GoOn& goOn, PermissionOutcome& outcome) const = 0;
};

}  // namespace tarnwell::platform
