#include "lister/FileRows.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>

#include "lister/CellText.h"
#include "lister/NameOrder.h"

namespace tarnwell::lister {

using platform::ItemKind;

namespace {

template <typename Number>
int Compare(Number left, Number right) {
  return (left > right) - (left < right);
}

std::string_view ExtensionOf(const FileRows& rows, const FileRow& row) {
  return row.IsFolder() ? std::string_view() : lister::ExtensionOf(rows.NameOf(row));
}

// What the type's text begins with, without making it.
std::string_view TypeStem(const FileRows& rows, const FileRow& row) {
  if (row.IsLink) return "Link";
  const std::string_view extension = ExtensionOf(rows, row);
  return extension.empty() ? "File" : extension;
}

using Comparison = int (*)(const FileRows&, const FileRow&, const FileRow&);

template <auto Member>
int CompareMember(const FileRows&, const FileRow& left, const FileRow& right) {
  return Compare(left.*Member, right.*Member);
}

int CompareEqual(const FileRows&, const FileRow&, const FileRow&) {
  return 0;
}

struct Ordering {
  Comparison Compare;
  bool NeedsAttributes;
};

// In the order of HeadingId. Folders and files are never compared with each other.
constexpr std::array<Ordering, HeadingCount> Orderings{{
    {[](const FileRows& rows, const FileRow& left, const FileRow& right) {
       return CompareNames(rows.NameOf(left), rows.NameOf(right));
     },
     false},
    {[](const FileRows& rows, const FileRow& left, const FileRow& right) {
       return CompareNames(ExtensionOf(rows, left), ExtensionOf(rows, right));
     },
     false},
    {CompareMember<&FileRow::Size>, true},
    {CompareMember<&FileRow::Modified>, true},
    {CompareMember<&FileRow::Created>, true},
    {CompareMember<&FileRow::Accessed>, true},
    {[](const FileRows& rows, const FileRow& left, const FileRow& right) {
       return left.IsFolder() ? 0 : CompareNames(TypeStem(rows, left), TypeStem(rows, right));
     },
     false},
    {[](const FileRows&, const FileRow& left, const FileRow& right) {
       return AttributeText(left).compare(AttributeText(right));
     },
     true},
    {CompareEqual, false},  // comments
    {CompareEqual, false},  // path: all items are in one folder
    {[](const FileRows&, const FileRow& left, const FileRow& right) {
       return Compare(left.Mode & 0777U, right.Mode & 0777U);
     },
     true},
}};

const Ordering& OrderingOf(const SortKey& key) {
  return Orderings[static_cast<std::size_t>(key.Heading)];
}

}  // namespace

int FileRows::FolderCount() const {
  return static_cast<int>(
      std::count_if(rows_.begin(), rows_.end(), [](const FileRow& row) { return row.IsFolder(); }));
}

void FileRows::Add(const platform::FolderEntry& entry) {
  FileRow row;
  row.NameStart = names_.size();
  row.NameLength = static_cast<std::uint32_t>(entry.Name.size());
  row.Kind = entry.Kind;
  row.IsLink = entry.IsLink;
  row.IsHidden = entry.IsHidden;
  row.IsSystem = entry.IsSystem;
  names_ += entry.Name;
  positions_.push_back(Count());
  rows_.push_back(row);
  order_.push_back(Count());
}

void FileRows::SetAttributes(RowId row, const platform::ItemAttributes& attributes) {
  FileRow& item = rows_[static_cast<std::size_t>(row - 1)];
  item.Kind = attributes.Kind;
  item.IsLink = attributes.IsLink;
  item.Size = item.IsFolder() ? 0 : attributes.Size;
  item.Mode = attributes.Mode;
  item.Modified = attributes.Modified;
  item.Created = attributes.Created;
  item.Accessed = attributes.Accessed;
  item.HasAttributes = item.WasTried = true;
}

void FileRows::SetUnreadable(RowId row) {
  const ItemKind kind = Row(row).Kind;
  const bool isLink = Row(row).IsLink;
  SetAttributes(row, {.Kind = kind, .IsLink = isLink});
  rows_[static_cast<std::size_t>(row - 1)].HasAttributes = false;
}

void FileRows::TakeOver(const FileRows& known) {
  std::unordered_map<std::string_view, const FileRow*> byName;
  byName.reserve(known.rows_.size());
  for (const FileRow& row : known.rows_) {
    if (row.HasAttributes) byName.emplace(known.NameOf(row), &row);
  }
  for (FileRow& row : rows_) {
    const auto found = byName.find(NameOf(row));
    if (found == byName.end()) continue;
    const FileRow& old = *found->second;
    if (row.IsLink != old.IsLink) continue;
    if (row.Kind != old.Kind && row.Kind != ItemKind::Unknown) continue;
    row.Kind = old.Kind;
    row.Mode = old.Mode;
    row.Size = old.Size;
    row.Modified = old.Modified;
    row.Created = old.Created;
    row.Accessed = old.Accessed;
    row.HasAttributes = true;
  }
}

RowId FileRows::Find(std::string_view name) const {
  for (RowId row = 1; row <= Count(); ++row) {
    if (Name(row) == name) return row;
  }
  return NoRow;
}

void FileRows::Sort(const std::vector<SortKey>& keys) {
  std::sort(order_.begin(), order_.end(), [&](RowId one, RowId other) {
    const FileRow& left = Row(one);
    const FileRow& right = Row(other);
    if (left.IsFolder() != right.IsFolder()) return left.IsFolder();
    for (const SortKey& key : keys) {
      const int order = OrderingOf(key).Compare(*this, left, right);
      if (order != 0) return key.Descending ? order > 0 : order < 0;
    }
    return NameOf(left) < NameOf(right);
  });
  for (int position = 0; position < Count(); ++position) {
    positions_[static_cast<std::size_t>(At(position) - 1)] = position;
  }
}

bool FileRows::NeedsAttributes(const std::vector<SortKey>& keys) {
  return std::any_of(keys.begin(), keys.end(),
                     [](const SortKey& key) { return OrderingOf(key).NeedsAttributes; });
}

std::string AttributeText(const FileRow& row) {
  std::string text;
  if (row.HasAttributes && IsReadOnly(row.Mode)) text += 'R';
  if (row.IsHidden) text += 'H';
  if (row.IsSystem) text += 'S';
  if (row.IsLink) text += 'L';
  return text;
}

}  // namespace tarnwell::lister
