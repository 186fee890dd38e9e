#include "lister/FileRows.h"

#include <algorithm>
#include <array>
#include <tuple>
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

using Comparison = int (*)(const FileRows&, const FileRow&, const FileRow&, const NameOrder&);

template <auto Member>
int CompareMember(const FileRows&, const FileRow& left, const FileRow& right, const NameOrder&) {
  return Compare(left.*Member, right.*Member);
}

int CompareEqual(const FileRows&, const FileRow&, const FileRow&, const NameOrder&) {
  return 0;
}

struct Ordering {
  Comparison Compare;
  bool NeedsAttributes;
};

// In the order of HeadingId. Folders and files are never compared with each other.
constexpr std::array<Ordering, HeadingCount> Orderings{{
    {[](const FileRows& rows, const FileRow& left, const FileRow& right, const NameOrder& names) {
       return names.Compare(rows.NameOf(left), rows.NameOf(right));
     },
     false},
    {[](const FileRows& rows, const FileRow& left, const FileRow& right, const NameOrder& names) {
       return names.Compare(ExtensionOf(rows, left), ExtensionOf(rows, right));
     },
     false},
    {CompareMember<&FileRow::Size>, true},
    {CompareMember<&FileRow::Modified>, true},
    {CompareMember<&FileRow::Created>, true},
    {CompareMember<&FileRow::Accessed>, true},
    {[](const FileRows& rows, const FileRow& left, const FileRow& right, const NameOrder& names) {
       return left.IsFolder() ? 0 : names.Compare(TypeStem(rows, left), TypeStem(rows, right));
     },
     false},
    {[](const FileRows&, const FileRow& left, const FileRow& right, const NameOrder&) {
       return AttributeText(left).compare(AttributeText(right));
     },
     true},
    {CompareEqual, false},  // comments
    {CompareEqual, false},  // path: all items are in one folder
    {[](const FileRows&, const FileRow& left, const FileRow& right, const NameOrder&) {
       return Compare(left.Mode & 0777U, right.Mode & 0777U);
     },
     true},
}};

const Ordering& OrderingOf(const SortKey& key) {
  return Orderings[static_cast<std::size_t>(key.Heading)];
}

}  // namespace

bool FileRow::LooksLike(const FileRow& other) const {
  const auto shown = [](const FileRow& row) {
    return std::tuple(row.Kind, row.IsLink, row.IsHidden, row.IsSystem, row.HasAttributes, row.Mode,
                      row.Size, row.Modified, row.Created, row.Accessed);
  };
  return shown(*this) == shown(other);
}

int FileRows::FolderCount() const {
  return static_cast<int>(std::count_if(order_.begin(), order_.end(),
                                        [this](RowId row) { return Row(row).IsFolder(); }));
}

void FileRows::Add(const platform::FolderEntry& entry) {
  FileRow row;
  row.NameStart = static_cast<std::uint32_t>(names_.size());
  row.NameLength = static_cast<std::uint16_t>(entry.Name.size());
  row.Kind = entry.Kind;
  row.IsLink = entry.IsLink;
  row.IsHidden = entry.IsHidden;
  row.IsSystem = entry.IsSystem;
  names_ += entry.Name;
  positions_.push_back(Count());
  rows_.push_back(row);
  order_.push_back(StoreSize());
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

void FileRows::SetFolderSize(RowId row, std::uint64_t bytes) {
  FileRow& item = rows_[static_cast<std::size_t>(row - 1)];
  item.Size = bytes;
  item.HasFolderSize = true;
}

void FileRows::SetNotes(RowId row, ItemColour colour, std::string comment) {
  FileRow& item = rows_[static_cast<std::size_t>(row - 1)];
  item.Colour = colour;
  item.NotesWereRead = true;
  if (comment.empty()) {
    comments_.erase(row);
  } else {
    comments_[row] = std::move(comment);
  }
}

void FileRows::SetMarks(RowId row, CompareMarks marks) {
  rows_[static_cast<std::size_t>(row - 1)].Marks = marks;
}

void FileRows::SetSelected(RowId row, bool selected) {
  FileRow& item = rows_[static_cast<std::size_t>(row - 1)];
  selected_ += static_cast<int>(selected) - static_cast<int>(item.IsSelected);
  item.IsSelected = selected;
}

void FileRows::KeepSelection() {
  for (FileRow& row : rows_) row.WasSelected = row.IsSelected;
}

std::string_view FileRows::Comment(RowId row) const {
  const auto found = comments_.find(row);
  return found == comments_.end() ? std::string_view() : found->second;
}

RowId FileRows::Find(std::string_view name) const {
  const auto found =
      std::find_if(order_.begin(), order_.end(), [&](RowId row) { return Name(row) == name; });
  return found == order_.end() ? NoRow : *found;
}

void FileRows::SetOrder(std::vector<RowId> order) {
  order_ = std::move(order);
  Renumber(0);
}

void FileRows::Renumber(int from) {
  for (int position = from; position < Count(); ++position) {
    positions_[static_cast<std::size_t>(At(position) - 1)] = position;
  }
}

std::vector<RowId> FileRows::Sorted(const std::vector<SortKey>& keys,
                                    const NameOrder& names) const {
  std::vector<RowId> order = order_;
  std::sort(order.begin(), order.end(), [&](RowId one, RowId other) {
    const FileRow& left = Row(one);
    const FileRow& right = Row(other);
    if (left.IsFolder() != right.IsFolder()) return left.IsFolder();
    for (const SortKey& key : keys) {
      const int comparison = OrderingOf(key).Compare(*this, left, right, names);
      if (comparison != 0) return key.Descending ? comparison > 0 : comparison < 0;
    }
    return NameOf(left) < NameOf(right);
  });
  return order;
}

bool FileRows::NeedsAttributes(const std::vector<SortKey>& keys) {
  return std::any_of(keys.begin(), keys.end(),
                     [](const SortKey& key) { return OrderingOf(key).NeedsAttributes; });
}

std::vector<RowId> FileRows::PairWith(const FileRows& fresh) const {
  std::unordered_map<std::string_view, RowId> byName;
  byName.reserve(order_.size());
  for (const RowId row : order_) byName.emplace(Name(row), row);
  std::vector<RowId> partners(fresh.rows_.size(), NoRow);
  for (std::size_t at = 0; at < partners.size(); ++at) {
    const auto found = byName.find(fresh.NameOf(fresh.rows_[at]));
    if (found == byName.end()) continue;
    // Given away once: a folder that changes while it is read may hand out an item twice.
    partners[at] = std::exchange(found->second, NoRow);
  }
  return partners;
}

void FileRows::TakeOver(const FileRows& known, const std::vector<RowId>& partners) {
  for (std::size_t at = 0; at < rows_.size(); ++at) {
    if (partners[at] == NoRow) continue;
    const FileRow& old = known.Row(partners[at]);
    FileRow& row = rows_[at];
    if (!old.HasAttributes || row.IsLink != old.IsLink) continue;
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

void FileRows::Remove(int first, int last) {
  for (int position = first; position <= last; ++position) {
    SetSelected(At(position), false);
    positions_[static_cast<std::size_t>(At(position) - 1)] = -1;
    free_.push_back(At(position));
  }
  order_.erase(order_.begin() + first, order_.begin() + last + 1);
  Renumber(first);
}

std::vector<RowId> FileRows::BecomeLike(FileRows& fresh, const std::vector<RowId>& partners) {
  std::vector<RowId> changed;
  for (std::size_t at = 0; at < partners.size(); ++at) {
    if (partners[at] == NoRow) continue;
    FileRow& row = rows_[static_cast<std::size_t>(partners[at] - 1)];
    if (!row.LooksLike(fresh.rows_[at])) changed.push_back(partners[at]);
    const FileRow before = std::exchange(row, fresh.rows_[at]);
    row.IsSelected = before.IsSelected;
    row.WasSelected = before.WasSelected;
  }
  names_ = std::move(fresh.names_);
  return changed;
}

void FileRows::Insert(int position, const std::vector<FileRow>& made) {
  std::vector<RowId> numbers;
  for (const FileRow& row : made) {
    if (free_.empty()) {
      rows_.push_back(row);
      positions_.push_back(-1);
      numbers.push_back(StoreSize());
    } else {
      numbers.push_back(free_.back());
      free_.pop_back();
      rows_[static_cast<std::size_t>(numbers.back() - 1)] = row;
    }
  }
  order_.insert(order_.begin() + position, numbers.begin(), numbers.end());
  Renumber(position);
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
