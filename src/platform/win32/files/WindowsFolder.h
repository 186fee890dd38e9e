// A folder by the loop of the system over its items.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/FileSystem.h"
#include "platform/win32/api/Handle.h"
#include "platform/win32/api/Windows.h"

namespace tarnwell::platform {

// Reads the folder, and gives the attributes of all but links with the names, at the cost of the
// loop. Nothing is held open any more once all is read, since no folder above it could be renamed
// meanwhile: items are reached by the folder's path then.
class WindowsFolder : public OpenedFolder {
 public:
  // Null with the reason in `status` where the path leads to no folder that can be read.
  static std::unique_ptr<WindowsFolder> Open(std::string_view path, base::Status& status);

  base::Status Read(const TakeEntry& take) override;
  base::Status ReadAttributes(std::string_view name, ItemAttributes& attributes) const override;
  base::Status ReadExtendedAttribute(std::string_view name, ExtendedAttribute attribute,
                                     std::string& text) const override;

 private:
  explicit WindowsFolder(std::string_view path) : path_(path) {}

  // ERROR_INVALID_NAME where the name leads elsewhere.
  DWORD PathOf(std::string_view name, std::wstring& path) const;
  bool Hand(const TakeEntry& take);

  const std::string path_;
  FindHandle items_;       // while there may be more of them
  WIN32_FIND_DATAW next_;  // the item to come
  std::string name_;       // the one that is handed out
  mutable std::optional<bool> keepsStreams_;
};

}  // namespace tarnwell::platform
