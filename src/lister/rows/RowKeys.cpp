#include "lister/rows/RowKeys.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "lister/rows/CellText.h"
#include "lister/rows/KeyBytes.h"

namespace tarnwell::lister {
namespace {

// The bytes that the number takes stand before it: most numbers are small. An unknown one comes
// first.
void AppendSize(const FileRow& row, std::string& key) {
  if (!row.HasSize()) {
    key += '\0';
    return;
  }
  const int bytes = (static_cast<int>(std::bit_width(row.Size)) + 7) / 8;
  key += static_cast<char>(1 + bytes);
  AppendNumber(row.Size, bytes, key);
}

void AppendText(std::string_view text, const NameOrder& names, std::string& key) {
  names.AppendKey(text, key);
  key += TextEnd;
}

std::string_view Extension(const FileRows& rows, const FileRow& row) {
  return row.IsFolder() ? std::string_view() : ExtensionOf(rows.OwnNameIn(rows.NameOf(row)));
}

// As TypeText has it.
void AppendType(const FileRows& rows, const FileRow& row, const NameOrder& names,
                std::string& key) {
  if (row.IsFolder()) return AppendText("Folder", names, key);
  if (row.IsLink) return AppendText("Link", names, key);
  const std::string_view extension = Extension(rows, row);
  if (!extension.empty()) {
    names.AppendKey(extension, key);
    names.AppendKey(" ", key);
  }
  AppendText("file", names, key);
}

struct Segment {
  void (*Append)(const FileRows&, RowId, const NameOrder&, std::string& key);
  bool NeedsAttributes = false;
  bool NeedsExtendedAttributes = false;
};

template <auto Time>
constexpr Segment TimeSegment = {
    .Append = [](const FileRows& rows, RowId row, const NameOrder&,
                 std::string& key) { AppendTime(rows.Row(row).*Time, key); },
    .NeedsAttributes = true};

// In the order of HeadingId.
constexpr std::array<Segment, HeadingCount> Segments{{
    {.Append = [](const FileRows& rows, RowId row, const NameOrder& names,
                  std::string& key) { AppendText(rows.OwnName(row), names, key); }},
    {.Append = [](const FileRows& rows, RowId row, const NameOrder& names,
                  std::string& key) { AppendText(Extension(rows, rows.Row(row)), names, key); }},
    {.Append = [](const FileRows& rows, RowId row, const NameOrder&,
                  std::string& key) { AppendSize(rows.Row(row), key); },
     .NeedsAttributes = true},
    TimeSegment<&FileRow::Modified>,
    TimeSegment<&FileRow::Created>,
    TimeSegment<&FileRow::Accessed>,
    {.Append = [](const FileRows& rows, RowId row, const NameOrder& names,
                  std::string& key) { AppendType(rows, rows.Row(row), names, key); }},
    {.Append =
         [](const FileRows& rows, RowId row, const NameOrder&, std::string& key) {
           key += AttributeText(rows.Row(row));
           key += TextEnd;
         },
     .NeedsAttributes = true},
    {.Append = [](const FileRows& rows, RowId row, const NameOrder& names,
                  std::string& key) { AppendText(rows.Comment(row), names, key); },
     .NeedsExtendedAttributes = true},
    // The path: all items are in one folder, unless they were found below it.
    {.Append =
         [](const FileRows& rows, RowId row, const NameOrder& names, std::string& key) {
           if (rows.HoldsPaths()) AppendText(rows.FolderPartOf(rows.Name(row)), names, key);
         }},
    {.Append =
         [](const FileRows& rows, RowId row, const NameOrder&, std::string& key) {
           const FileRow& item = rows.Row(row);
           AppendNumber(item.HasAttributes ? (item.Mode & 0777U) + 1 : 0, 2, key);
         },
     .NeedsAttributes = true},
}};

const Segment& SegmentOf(HeadingId heading) {
  return Segments[static_cast<std::size_t>(heading)];
}

}  // namespace

RowKeys::RowKeys(const FileRows& rows, const std::vector<SortKey>& keys, const NameOrder& names)
    : rows_(rows), keys_(keys), names_(names) {
  const auto isName = [](const SortKey& key) { return key.Heading == HeadingId::Name; };
  if (std::none_of(keys_.begin(), keys_.end(), isName)) keys_.push_back({});
}

void RowKeys::Append(RowId row, std::string& key) const {
  key += rows_.Row(row).IsFolder() ? '\0' : '\1';
  for (const SortKey& level : keys_) {
    const std::size_t start = key.size();
    SegmentOf(level.Heading).Append(rows_, row, names_, key);
    if (!level.Descending) continue;
    for (std::size_t at = start; at < key.size(); ++at) key[at] = static_cast<char>(~key[at]);
  }
}

bool RowKeys::BeforeByBytes(RowId left, RowId right) const {
  const int order = rows_.Name(left).compare(rows_.Name(right));
  return order != 0 ? order < 0 : left < right;
}

bool RowKeys::NeedsAttributes(HeadingId heading) {
  return SegmentOf(heading).NeedsAttributes;
}

bool RowKeys::NeedsExtendedAttributes(HeadingId heading) {
  return SegmentOf(heading).NeedsExtendedAttributes;
}

}  // namespace tarnwell::lister
