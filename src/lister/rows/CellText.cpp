#include "lister/rows/CellText.h"

#include <array>
#include <cstdio>

#include "base/Text.h"
#include "platform/CountedTexts.h"

namespace tarnwell::lister {

using platform::CountedText;

namespace {

// Two digits for each part, in the morning: where hours are told by twelve, "AM" is the wider.
std::int64_t WideMoment(const platform::Clock& clock) {
  constexpr std::int64_t hour = 3'600'000'000'000;
  constexpr std::int64_t moment = 1'609'188'538'000'000'000;
  return moment + (10 - clock.ToLocal(moment).Hour) * hour;
}

}  // namespace

std::string MeasuredText(const platform::NumberForms& forms, std::uint64_t bytes, bool isWhole) {
  if (isWhole) return forms.Grouped(bytes);
  return bytes == 0 ? "?" : "\u2265 " + forms.Grouped(bytes);
}

std::string MeasuredDigits(std::uint64_t bytes, bool isWhole) {
  return isWhole || bytes > 0 ? std::to_string(bytes) : "";
}

std::string ByteText(const platform::NumberForms& forms, std::uint64_t bytes) {
  if (bytes < 1000) return platform::Counted(forms, CountedText::Bytes, bytes);
  constexpr std::array<const char*, 6> units{" KiB", " MiB", " GiB", " TiB", " PiB", " EiB"};
  double size = static_cast<double>(bytes) / 1024;
  std::size_t unit = 0;
  for (; size >= 999.5 && unit + 1 < units.size(); ++unit) size /= 1024;
  // 99.95 would be rounded to 100.0.
  return forms.Decimal(size, size < 99.95 ? 1 : 0) + units[unit];
}

std::string SizeText(const platform::NumberForms& forms, std::uint64_t bytes) {
  const std::string text = ByteText(forms, bytes);
  const bool isFull = text == platform::Counted(forms, CountedText::Bytes, bytes);
  return isFull ? text : platform::Counted(forms, CountedText::SizeInFull, bytes, {text});
}

std::string DateText(const platform::NumberForms& forms, const platform::Clock& clock,
                     std::int64_t nanoseconds) {
  return nanoseconds == platform::UnknownTime ? "" : forms.DateAndTime(clock.ToLocal(nanoseconds));
}

std::string BriefDateText(const platform::NumberForms& forms, const platform::Clock& clock,
                          std::int64_t nanoseconds) {
  return nanoseconds == platform::UnknownTime ? ""
                                              : forms.DateAndMinute(clock.ToLocal(nanoseconds));
}

std::string IsoText(const platform::LocalTime& time) {
  std::array<char, 80> text;
  std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", time.Year, time.Month,
                time.Day, time.Hour, time.Minute, time.Second);
  return text.data();
}

std::string IsoText(const platform::Clock& clock, std::int64_t nanoseconds) {
  return nanoseconds == platform::UnknownTime ? "" : IsoText(clock.ToLocal(nanoseconds));
}

std::string SampleText(const platform::NumberForms& forms, const platform::Clock& clock,
                       HeadingId heading) {
  constexpr std::uint64_t largeSize = 88'888'888'888;
  switch (heading) {
    case HeadingId::DateLastModified:
    case HeadingId::DateCreated:
    case HeadingId::DateLastAccessed:
      return DateText(forms, clock, WideMoment(clock));
    case HeadingId::Size:
      return forms.Grouped(largeSize);
    case HeadingId::Name:
    case HeadingId::Path:
      return "A name of about thirty letters";
    case HeadingId::Comments:
      return "A few words, no more";
    case HeadingId::FileType:
      return "Extension file";
    case HeadingId::Permissions:
      return PermissionText(0777);
    case HeadingId::Extension:
    case HeadingId::Attributes:
      break;
  }
  return "";
}

std::string BriefSample(const platform::NumberForms& forms, const platform::Clock& clock,
                        HeadingId heading) {
  return IsDate(heading) ? BriefDateText(forms, clock, WideMoment(clock)) : "";
}

std::string_view ExtensionOf(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos || dot == 0 ? std::string_view() : name.substr(dot + 1);
}

std::string TypeText(std::string_view name, platform::ItemKind kind, bool isLink) {
  if (kind == platform::ItemKind::Folder) return "Folder";
  if (isLink) return "Link";
  const std::string_view extension = ExtensionOf(name);
  return extension.empty() ? "File" : base::ForDisplay(base::ToCapitals(extension)) + " file";
}

std::string PermissionText(std::uint32_t mode) {
  constexpr std::string_view letters = "rwxrwxrwx";
  std::string text(letters.size(), '-');
  for (std::size_t at = 0; at < letters.size(); ++at) {
    if (mode & 0400U >> at) text[at] = letters[at];
  }
  return text;
}

std::string NameText(const base::PathSyntax& syntax, std::string_view path) {
  return base::ForDisplay(syntax.IsDriveRoot(path) ? path : syntax.LastComponent(path));
}

std::string CannotRead(const std::string& path, const base::Status& status) {
  return "Cannot read " + base::ForDisplay(path) + ": " + status.Reason;
}

std::string SizeNote(const ListRows& rows, RowId row) {
  return rows.IsSizePartial(row) ? "Not all of the folder could be read: it may be larger" : "";
}

}  // namespace tarnwell::lister
