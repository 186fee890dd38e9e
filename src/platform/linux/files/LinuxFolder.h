// A folder held open by its descriptor.
#pragma once

#include <string_view>

#include "platform/FileSystem.h"
#include "platform/linux/posix/Descriptor.h"

namespace tarnwell::platform {

// Reads the folder at the cost of the system calls, and reaches its items by their names alone.
class LinuxFolder : public OpenedFolder {
 public:
  // The descriptor is open for reading.
  explicit LinuxFolder(Descriptor folder) : folder_(std::move(folder)) {}

  base::Status Read(const TakeEntry& take) override;
  base::Status ReadAttributes(std::string_view name, ItemAttributes& attributes) const override;
  base::Status ReadExtendedAttribute(std::string_view name, ExtendedAttribute attribute,
                                     std::string& text) const override;

 private:
  Descriptor folder_;
};

}  // namespace tarnwell::platform
