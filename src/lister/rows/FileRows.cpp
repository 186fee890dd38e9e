#include "lister/rows/FileRows.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "lister/rows/CellText.h"
#include "lister/rows/RowKeys.h"
#include "lister/rows/RowSort.h"

namespace tarnwell::lister {

using platform::ItemKind;

namespace {

// Rows between two questions whether to go on: a few milliseconds.
constexpr int RowsATurn = 16'384;

// So many bytes of names that nothing needs are left alone.
constexpr std::size_t MostUnusedNames = std::size_t{1} << 20;

}  // namespace

bool FileRow::LooksLike(const FileRow& other) const {
  const auto shown = [](const FileRow& row) {
    return std::tuple(row.Kind, row.IsLink, row.IsBroken, row.IsHidden, row.IsSystem,
                      row.HasAttributes, row.Mode, row.Size, row.Modified, row.Created,
                      row.Accessed, row.HasFolderSize, row.IsSizePartial, row.Colour);
  };
  return shown(*this) == shown(other) && Marks == other.Marks;
}

// --- What is counted.

template <typename Work>
void FileRows::Change(RowId row, Work work) {
  FileRow& item = Stored(row);
  const bool isShown = PositionOf(row) >= 0;
  if (isShown) Count(item, -1);
  unreadable_ -= item.IsUnreadable();
  work(item);
  unreadable_ += item.IsUnreadable();
  if (isShown) Count(item, 1);
}

void FileRows::Count(const FileRow& item, int rows) {
  // Unsigned, so that what goes beyond the range comes back from there.
  const std::uint64_t bytes = item.Size * static_cast<std::uint64_t>(rows);
  totals_.Folders += item.IsFolder() ? rows : 0;
  totals_.Bytes += bytes;
  totals_.Selected += item.IsSelected ? rows : 0;
  totals_.SelectedBytes += item.IsSelected ? bytes : 0;
}

void FileRows::CountAll() {
  totals_ = {};
  for (RowId row = 1; row <= StoreSize(); ++row) {  // as they are stored: many times quicker
    if (PositionOf(row) >= 0) Count(Row(row), 1);
  }
}

// --- Rows come and go.

RowId FileRows::Add(const platform::FolderEntry& entry) {
  const RowId row = Store(entry);
  if (row == NoRow) return NoRow;
  positions_[static_cast<std::size_t>(row - 1)] = Count();
  order_.push_back(row);
  all_.push_back(row);
  Count(Row(row), 1);
  return row;
}

RowId FileRows::Store(const platform::FolderEntry& entry) {
  MindUnusedNames();
  FileRow row;
  if (!names_.Add(entry.Name, row.NameStart)) return NoRow;
  row.NameLength = static_cast<std::uint16_t>(entry.Name.size());
  row.Kind = entry.Kind;
  row.IsLink = entry.IsLink;
  row.IsHidden = entry.IsHidden;
  row.IsSystem = entry.IsSystem;
  const RowId number = StoreRow(row);
  if (entry.Attributes != nullptr) SetAttributes(number, *entry.Attributes);
  return number;
}

RowId FileRows::StoreRow(const FileRow& row) {
  RowId number = NoRow;
  if (free_.empty()) {
    rows_.push_back(row);
    positions_.push_back(-1);
    number = StoreSize();
  } else {
    number = free_.back();
    free_.pop_back();
    Stored(number) = row;
  }
  Stored(number).IsUsed = true;
  unreadable_ += row.IsUnreadable();
  return number;
}

void FileRows::Forget(RowId row) {
  unusedNames_ += Row(row).NameLength;
  SetMarks(row, {});
  Change(row, [](FileRow& item) { item = {}; });
  comments_.erase(row);
  free_.push_back(row);
}

bool FileRows::Rename(RowId row, std::string_view name) {
  MindUnusedNames();
  std::uint32_t start = 0;
  if (!names_.Add(name, start)) return false;
  FileRow& item = Stored(row);
  unusedNames_ += item.NameLength;
  item.NameStart = start;
  item.NameLength = static_cast<std::uint16_t>(name.size());
  return true;
}

void FileRows::MindUnusedNames() {
  if (unusedNames_ <= MostUnusedNames || unusedNames_ <= names_.Bytes() / 2) return;
  NameArena names;
  for (RowId row = 1; row <= StoreSize(); ++row) {
    if (IsUsed(row)) names.Add(Name(row), Stored(row).NameStart);
  }
  names_ = std::move(names);
  unusedNames_ = 0;
}

// --- What is known of them.

void FileRows::SetAttributes(RowId row, const platform::ItemAttributes& attributes) {
  Change(row, [&](FileRow& item) {
    item.Kind = attributes.Kind;
    item.IsLink = attributes.IsLink;
    item.IsBroken = attributes.IsBroken;
    const bool sizeStays = item.IsFolder() && item.HasFolderSize &&
                           (!item.HasAttributes || item.Modified == attributes.Modified);
    if (!sizeStays) {
      item.HasFolderSize = item.IsSizePartial = false;
      item.Size = item.IsFolder() ? 0 : attributes.Size;
    }
    if (HoldsPaths()) {  // a folder tells these with the names
      item.IsHidden = attributes.IsHidden;
      item.IsSystem = attributes.IsSystem;
    }
    item.Mode = attributes.Mode;
    item.Modified = attributes.Modified;
    item.Created = attributes.Created;
    item.Accessed = attributes.Accessed;
    item.HasAttributes = item.WasTried = true;
  });
}

void FileRows::SetUnreadable(RowId row) {
  const ItemKind kind = Row(row).Kind;
  const bool isLink = Row(row).IsLink;
  SetAttributes(row, {.Kind = kind, .IsLink = isLink});
  Change(row, [](FileRow& item) { item.HasAttributes = false; });
}

void FileRows::SetFolderSize(RowId row, const FolderSize& size) {
  Change(row, [&](FileRow& item) {
    item.Size = size.Bytes;
    item.HasFolderSize = true;
    item.IsSizePartial = !size.IsWhole;
  });
}

void FileRows::SetExtendedAttributes(RowId row, ItemColour colour, std::string comment) {
  FileRow& item = Stored(row);
  item.Colour = colour;
  if (comment.empty()) {
    comments_.erase(row);
  } else {
    comments_[row] = std::move(comment);
  }
}

void FileRows::SetColour(RowId row, ItemColour colour) {
  Stored(row).Colour = colour;
}

void FileRows::SetMarks(RowId row, CompareMarks marks) {
  marked_.Add(Row(row).Marks, -1);
  marked_.Add(marks, 1);
  Stored(row).Marks = marks;
}

void FileRows::SetSelected(RowId row, bool selected) {
  Change(row, [&](FileRow& item) { item.IsSelected = selected; });
}

void FileRows::ForgetTried() {
  for (RowId row = 1; row <= StoreSize(); ++row) {
    if (IsUsed(row)) Change(row, [](FileRow& item) { item.WasTried = false; });
  }
}

void FileRows::KeepSelection() {
  for (RowId row = 1; row <= StoreSize(); ++row) Stored(row).WasSelected = Row(row).IsSelected;
}

std::string_view FileRows::Comment(RowId row) const {
  const auto found = comments_.find(row);
  return found == comments_.end() ? std::string_view() : found->second;
}

RowId FileRows::Find(std::string_view name) const {
  for (RowId row = 1; row <= StoreSize(); ++row) {
    const FileRow& item = Row(row);
    if (item.NameLength == name.size() && item.IsUsed && NameOf(item) == name) return row;
  }
  return NoRow;
}

// --- Order.

void FileRows::SetOrder(std::vector<RowId> order) {
  all_ = std::move(order);
  std::vector<RowId> shown;
  shown.reserve(order_.size());
  const bool isAll = order_.size() == all_.size();
  std::copy_if(all_.begin(), all_.end(), std::back_inserter(shown),
               [&](RowId row) { return isAll || PositionOf(row) >= 0; });
  order_ = std::move(shown);
  Renumber(0);
}

void FileRows::Renumber(int from) {
  for (int position = from; position < Count(); ++position) {
    positions_[static_cast<std::size_t>(At(position) - 1)] = position;
  }
}

std::vector<RowId> FileRows::Sorted(const std::vector<SortKey>& keys, const NameOrder& names,
                                    const GoOn& goOn) const {
  RowSort sort(*this, keys, names, rows_.size(), names_.Bytes());
  for (RowId row = 1; row <= StoreSize(); ++row) {
    if (row % RowsATurn == 0 && goOn && !goOn()) return {};
    if (IsUsed(row)) sort.Add(row);
  }
  return sort.Sorted(goOn);
}

std::vector<RowId> FileRows::Reordered(const std::vector<RowId>& changed,
                                       const std::vector<SortKey>& keys,
                                       const NameOrder& names) const {
  const RowKeys maker(*this, keys, names);
  std::vector<char> moves(static_cast<std::size_t>(StoreSize()) + 1);
  std::vector<std::pair<std::string, RowId>> moving;
  for (const RowId row : changed) {
    if (std::exchange(moves[static_cast<std::size_t>(row)], 1) != 0) continue;
    moving.emplace_back(std::string(), row);
    maker.Append(row, moving.back().first);
  }
  std::sort(moving.begin(), moving.end(), [&](const auto& left, const auto& right) {
    const int order = left.first.compare(right.first);
    return order != 0 ? order < 0 : maker.BeforeByBytes(left.second, right.second);
  });
  std::vector<RowId> order;
  order.reserve(all_.size() + moving.size());
  std::copy_if(all_.begin(), all_.end(), std::back_inserter(order),
               [&](RowId row) { return moves[static_cast<std::size_t>(row)] == 0; });

  // From the end, so that each row that stays is shifted once, to its last place.
  std::string key;
  std::size_t staying = order.size();
  order.resize(order.size() + moving.size());
  for (std::size_t left = moving.size(); left > 0; --left) {
    const auto& [wanted, row] = moving[left - 1];
    const auto place = std::partition_point(
        order.begin(), order.begin() + staying, [&, &wanted = wanted, &row = row](RowId other) {
          key.clear();
          maker.Append(other, key);
          const int comparison = key.compare(wanted);
          return comparison != 0 ? comparison < 0 : maker.BeforeByBytes(other, row);
        });
    const auto end =
        std::move_backward(place, order.begin() + staying, order.begin() + staying + left);
    staying = static_cast<std::size_t>(place - order.begin());
    *(end - 1) = row;
  }
  return order;
}

bool FileRows::NeedsAttributes(const std::vector<SortKey>& keys) {
  return std::any_of(keys.begin(), keys.end(),
                     [](const SortKey& key) { return RowKeys::NeedsAttributes(key.Heading); });
}

bool FileRows::NeedsExtendedAttributes(const std::vector<SortKey>& keys) {
  return std::any_of(keys.begin(), keys.end(), [](const SortKey& key) {
    return RowKeys::NeedsExtendedAttributes(key.Heading);
  });
}

// --- What is on show.

std::vector<RowId> FileRows::Taken(const NameFilter& filter, const std::vector<RowId>& rows) const {
  if (!filter.IsOn()) return rows;
  // The names are looked at as they lie in memory, which takes a third of the time.
  std::vector<char> taken(rows_.size() + 1);
  for (RowId row = 1; row <= StoreSize(); ++row) {
    const FileRow& item = Row(row);
    taken[static_cast<std::size_t>(row)] =
        item.IsUsed && filter.Takes(OwnNameIn(NameOf(item)), item.IsFolder());
  }
  const auto isTaken = [&](RowId row) { return taken[static_cast<std::size_t>(row)] != 0; };
  std::vector<RowId> these;
  these.reserve(static_cast<std::size_t>(std::count_if(rows.begin(), rows.end(), isTaken)));
  std::copy_if(rows.begin(), rows.end(), std::back_inserter(these), isTaken);
  return these;
}

void FileRows::TakeOffShow(RowId row) {
  positions_[static_cast<std::size_t>(row - 1)] = -1;
  Count(Row(row), -1);
  Stored(row).IsSelected = false;
}

void FileRows::Hide(int first, int last) {
  for (int position = first; position <= last; ++position) TakeOffShow(At(position));
  order_.erase(order_.begin() + first, order_.begin() + last + 1);
  Renumber(first);
}

void FileRows::Show(int position, const std::vector<RowId>& rows) {
  const std::size_t count = order_.size() + rows.size();
  if (count > order_.capacity()) order_.reserve(count + count / 16);  // not twice as much
  order_.insert(order_.begin() + position, rows.begin(), rows.end());
  Renumber(position);
  if (rows.size() > rows_.size() / 8) return CountAll();
  for (const RowId row : rows) Count(Row(row), 1);
}

void FileRows::SetShown(std::vector<RowId> order) {
  for (const RowId row : order_) positions_[static_cast<std::size_t>(row - 1)] = -1;
  std::swap(order_, order);
  Renumber(0);
  std::size_t staying = 0;
  for (const RowId row : order) {
    if (PositionOf(row) >= 0) {
      ++staying;
    } else {
      TakeOffShow(row);
    }
  }
  if (staying < order_.size()) CountAll();
}

std::vector<ExtensionChoice> FileRows::Extensions(const NameOrder& names) const {
  std::unordered_map<std::string_view, int> spellings;
  for (RowId row = 1; row <= StoreSize(); ++row) {
    const FileRow& item = Row(row);
    if (item.IsUsed && !item.IsFolder()) ++spellings[ExtensionOf(OwnNameIn(NameOf(item)))];
  }
  spellings.erase(std::string_view());
  std::unordered_map<std::string, int> counts;
  for (const auto& [extension, count] : spellings) counts[LowerCase(extension)] += count;

  std::vector<std::pair<std::string, ExtensionChoice>> choices;
  choices.reserve(counts.size());
  for (const auto& [extension, count] : counts) {
    choices.push_back({"", {extension, count}});
    names.AppendKey(extension, choices.back().first);
  }
  std::sort(choices.begin(), choices.end(), [](const auto& left, const auto& right) {
    const int order = left.first.compare(right.first);
    return order != 0 ? order < 0 : left.second.Extension < right.second.Extension;
  });
  std::vector<ExtensionChoice> ordered;
  ordered.reserve(choices.size());
  for (auto& choice : choices) ordered.push_back(std::move(choice.second));
  return ordered;
}

// --- A folder that is read again.

std::vector<RowId> FileRows::PairWith(const FileRows& fresh) const {
  std::vector<RowId> partners(fresh.rows_.size(), NoRow);
  if (StoreSize() == 0) return partners;
  std::vector<char> isGiven(rows_.size() + 1);
  const auto give = [&](std::size_t to, RowId row) {
    partners[to] = row;
    isGiven[static_cast<std::size_t>(row)] = 1;
  };
  // A folder is read in much the same order each time: most rows stand a little behind the last.
  constexpr RowId farthest = 4;
  RowId next = 1;
  for (std::size_t at = 0; at < partners.size(); ++at) {
    const std::string_view name = fresh.NameOf(fresh.rows_[at]);
    for (RowId row = next; row < next + farthest; ++row) {
      if (!IsUsed(row) || Name(row) != name) continue;
      give(at, row);
      next = row + 1;
      break;
    }
  }
  // The others by a table of rows by the hash of their names, at most half full. A row is given
  // away once: a folder that changes while it is read may hand out an item twice.
  const auto left = std::count(isGiven.begin(), isGiven.end(), 0);
  std::vector<RowId> table(std::bit_ceil(2 * static_cast<std::size_t>(left) + 1));
  const auto slot = [&](std::string_view name, const auto& isIt) -> RowId& {
    std::size_t at = std::hash<std::string_view>()(name);
    while (table[at &= table.size() - 1] != 0 && !isIt(table[at])) ++at;
    return table[at];
  };
  for (RowId row = 1; row <= StoreSize(); ++row) {
    if (!IsUsed(row) || isGiven[static_cast<std::size_t>(row)] != 0) continue;
    slot(Name(row), [](RowId) { return false; }) = row;
  }
  for (std::size_t at = 0; at < partners.size(); ++at) {
    if (partners[at] != NoRow) continue;
    const std::string_view name = fresh.NameOf(fresh.rows_[at]);
    const RowId row = slot(name, [&](RowId known) {
      return isGiven[static_cast<std::size_t>(known)] == 0 && Name(known) == name;
    });
    if (row != 0) give(at, row);
  }
  return partners;
}

void FileRows::TakeOver(const FileRows& known, const std::vector<RowId>& partners) {
  for (std::size_t at = 0; at < partners.size(); ++at) {
    if (partners[at] == NoRow) continue;
    const FileRow& old = known.Row(partners[at]);
    FileRow& row = rows_[at];
    if (row.IsLink != old.IsLink) continue;
    if (row.Kind != old.Kind && row.Kind != ItemKind::Unknown) continue;
    row.Colour = old.Colour;
    if (const std::string_view comment = known.Comment(partners[at]); !comment.empty()) {
      comments_[static_cast<RowId>(at + 1)] = comment;
    }
    if (row.HasAttributes && (!row.IsFolder() || row.Modified != old.Modified)) continue;
    Change(static_cast<RowId>(at + 1), [&](FileRow& item) {
      item.HasFolderSize = old.HasFolderSize;
      item.IsSizePartial = old.IsSizePartial;
      item.Size = old.Size;
      if (!old.HasAttributes || item.HasAttributes) return;
      item.Kind = old.Kind;
      item.IsBroken = old.IsBroken;
      item.Mode = old.Mode;
      item.Modified = old.Modified;
      item.Created = old.Created;
      item.Accessed = old.Accessed;
      item.HasAttributes = true;
    });
  }
}

std::vector<RowId> FileRows::BecomeLike(FileRows& fresh, std::vector<RowId>& partners) {
  names_ = std::move(fresh.names_);
  unusedNames_ = fresh.unusedNames_;
  marked_ = fresh.marked_;
  comments_.clear();
  std::vector<RowId> changed;
  for (std::size_t at = 0; at < partners.size(); ++at) {
    FileRow now = fresh.rows_[at];
    if (partners[at] == NoRow) {
      partners[at] = StoreRow(now);
    } else {
      Change(partners[at], [&](FileRow& row) {
        if (!row.LooksLike(now)) changed.push_back(partners[at]);
        now.IsSelected = row.IsSelected;
        now.WasSelected = row.WasSelected;
        row = now;
      });
    }
  }
  for (auto& [row, comment] : fresh.comments_) {
    comments_[partners[static_cast<std::size_t>(row - 1)]] = std::move(comment);
  }
  return changed;
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
