// What the cells of a list say, in words for people. Pure rules; the texts are valid UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/PathSyntax.h"
#include "base/Status.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"

namespace tarnwell::lister {

// With a comma between groups of three digits.
std::string GroupedNumber(std::uint64_t number);
// "1 item", "2,000 items".
std::string CountText(std::uint64_t number, std::string_view noun);
// "512 bytes", "12.3 MB": units of 1024, three digits at most before the unit changes.
std::string ByteText(std::uint64_t bytes);
// "yyyy-mm-dd hh:mm:ss" in local time; empty for 0, a time that is not known.
std::string DateText(const platform::Clock& clock, std::int64_t nanoseconds);

// What follows the last dot of a file's name, as bytes. A dot at its start makes no extension.
std::string_view ExtensionOf(std::string_view name);
// "Folder", "Link" for what leads to no folder, "PDF file" by the extension, "File" without one.
std::string TypeText(std::string_view name, platform::ItemKind kind, bool isLink);
// "rwxr-xr-x" by the permission bits.
std::string PermissionText(std::uint32_t mode);
// The owner may not write.
constexpr bool IsReadOnly(std::uint32_t mode) {
  return (mode & 0200) == 0;
}

// The name of the item; of a root, the path.
std::string NameText(const base::PathSyntax& syntax, std::string_view path);
// "Cannot read <path>: <reason>".
std::string CannotRead(const std::string& path, const base::Status& status);

}  // namespace tarnwell::lister
