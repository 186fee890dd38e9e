// A folder held open by its descriptor.
#pragma once

#include <optional>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/linux/posix/Descriptor.h"
#include "platform/linux/posix/FolderBuffer.h"

namespace tarnwell::platform {

// As OpenedFolder::ReadAttributes, of an open folder.
base::Status ReadAttributesAt(int folder, std::string_view name, ItemAttributes& attributes);

// Reads the folder at the cost of the system calls, and reaches its items by their names alone.
class LinuxFolder : public OpenedFolder {
 public:
  // The descriptor is open for reading.
  explicit LinuxFolder(Descriptor folder) : folder_(std::move(folder)) {}

  base::Status Read(const TakeEntry& take) override;
  base::Status ReadAttributes(std::string_view name, ItemAttributes& attributes) const override;
  // Large numbers are shared by two threads beside the caller's, which waits for no file system.
  void ReadManyAttributes(WantedAttributes& wanted) const override;
  base::Status ReadExtendedAttribute(std::string_view name, ExtendedAttribute attribute,
                                     std::string& text) const override;

 private:
  Descriptor folder_;
  std::optional<FolderBuffer> buffer_;  // once it is read
};

}  // namespace tarnwell::platform
