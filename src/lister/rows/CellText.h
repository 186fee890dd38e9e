// What the cells of a list say, in words for people. Pure rules; the texts are valid UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/PathSyntax.h"
#include "base/Status.h"
#include "lister/rows/Headings.h"
#include "lister/rows/ListRows.h"
#include "platform/Clock.h"
#include "platform/FileSystem.h"
#include "platform/NumberForms.h"

namespace tarnwell::lister {

// "512 bytes", "12.3 MiB": units of 1024 by IEC 80000-13, three digits at most before the unit
// changes.
std::string ByteText(const platform::NumberForms& forms, std::uint64_t bytes);
// As ByteText, with the number in full where that is another one: "12.3 MiB (12,901,000 bytes)".
std::string SizeText(const platform::NumberForms& forms, std::uint64_t bytes);
// The size of an item. One that may be larger, since not all could be read, stands behind a sign;
// "?" if nothing could.
std::string MeasuredText(const platform::NumberForms& forms, std::uint64_t bytes, bool isWhole);
// The same for other programs: digits, none if nothing could be read.
std::string MeasuredDigits(std::uint64_t bytes, bool isWhole);
// In local time; empty for UnknownTime.
std::string DateText(const platform::NumberForms& forms, const platform::Clock& clock,
                     std::int64_t nanoseconds);
// The same without the seconds.
std::string BriefDateText(const platform::NumberForms& forms, const platform::Clock& clock,
                          std::int64_t nanoseconds);
// "yyyy-mm-dd hh:mm:ss", the form that files get.
std::string IsoText(const platform::LocalTime& time);
// The same of a moment, as DateText takes it.
std::string IsoText(const platform::Clock& clock, std::int64_t nanoseconds);
constexpr bool IsDate(HeadingId heading) {
  return heading == HeadingId::DateLastModified || heading == HeadingId::DateCreated ||
         heading == HeadingId::DateLastAccessed;
}
// What stands under a heading of dates.
template <typename Item>
std::int64_t DateOf(const Item& item, HeadingId heading) {
  if (heading == HeadingId::DateCreated) return item.Created;
  return heading == HeadingId::DateLastAccessed ? item.Accessed : item.Modified;
}
// What a cell under the heading may well hold, for the width of a new column; empty where the
// caption is longer.
std::string SampleText(const platform::NumberForms& forms, const platform::Clock& clock,
                       HeadingId heading);
// The same of ListRows::BriefText; empty where that is no other text.
std::string BriefSample(const platform::NumberForms& forms, const platform::Clock& clock,
                        HeadingId heading);

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

// In words what the size of the row says by a sign; empty for most.
std::string SizeNote(const ListRows& rows, RowId row);

}  // namespace tarnwell::lister
