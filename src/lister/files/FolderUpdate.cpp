#include "lister/files/FolderUpdate.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "lister/files/KeepCursor.h"
#include "lister/rows/MergeRows.h"

namespace tarnwell::lister {

namespace {

// With more names than this, reading the whole folder is no dearer.
constexpr std::size_t MostUpdateNames = 300;

platform::FolderEntry EntryOf(std::string_view name, const platform::ItemAttributes& attributes) {
  return {.Name = name,
          .Kind = attributes.Kind,
          .IsLink = attributes.IsLink,
          .IsHidden = attributes.IsHidden,
          .IsSystem = attributes.IsSystem};
}

}  // namespace

void FolderUpdate::Add(const platform::FolderChanges& changes) {
  if (everything_) return;
  names_.insert(changes.Names.begin(), changes.Names.end());
  everything_ = changes.Everything || changes.FolderGone || names_.size() > MostUpdateNames;
  if (everything_) names_.clear();
}

void FolderUpdate::Clear() {
  names_.clear();
  everything_ = false;
}

bool FolderUpdate::Apply(ReadJob& job) {
  std::vector<Item> items = TakeItems();
  for (Item& item : items) {
    LookAt(item, *job.Folder);
    if (job.Pace.IsDue() && !job.Pump("Looking at changes")) return false;
  }
  if (!AreUnclear(items)) return Change(items);
  names_.clear();
  everything_ = true;
  return false;
}

bool FolderUpdate::AreUnclear(const std::vector<Item>& items) {
  std::unordered_map<std::string, bool> spellings;  // and whether the item is new
  for (const Item& item : items) {
    if (!item.IsThere) continue;
    const bool isNew = item.Row == NoRow;
    if (isNew && !item.Status) return true;  // its kind, and whether it is hidden
    // Where case does not count both names of an item that was renamed are there.
    const auto [other, isFirst] = spellings.emplace(LowerCase(item.Name), isNew);
    if (!isFirst && (isNew || other->second)) return true;
  }
  return false;
}

std::vector<FolderUpdate::Item> FolderUpdate::TakeItems() {
  std::vector<Item> items;
  items.reserve(names_.size());
  std::unordered_map<std::string_view, Item*> byName;
  for (const std::string& name : std::exchange(names_, {})) {
    Item& item = items.emplace_back();
    item.Name = name;
    byName.emplace(item.Name, &item);
  }
  for (const RowId row : files_.Rows.All()) {
    const auto found = byName.find(files_.Rows.Name(row));
    if (found != byName.end()) found->second->Row = row;
  }
  return items;
}

void FolderUpdate::LookAt(Item& item, const platform::OpenedFolder& folder) const {
  const ListState& list = files_.List;
  item.Status = folder.ReadAttributes(item.Name, item.Attributes);
  item.IsThere =
      item.Status ? !list.IsFilteredOut(EntryOf(item.Name, item.Attributes))
                  : list.Services.Files.Exists(list.Syntax.Join(files_.Rows.Folder(), item.Name));
  if (!item.IsThere) return;
  if (item.Row != NoRow) {
    item.Colour = files_.Rows.Row(item.Row).Colour;
    item.Comment = files_.Rows.Comment(item.Row);
  }
  details_.ReadExtendedAttributesOf(item.Name, folder, item.Colour, item.Comment);
}

bool FolderUpdate::Change(std::vector<Item>& items) {
  std::vector<RowId> changed;
  std::unordered_set<RowId> gone;
  bool cameOrWent = false;
  for (Item& item : items) {
    if (!item.IsThere) {
      if (item.Row != NoRow) gone.insert(item.Row);
      continue;
    }
    const bool isNew = item.Row == NoRow;
    if (isNew) item.Row = files_.Rows.Store(EntryOf(item.Name, item.Attributes));
    if (item.Row == NoRow) continue;  // no room
    cameOrWent = cameOrWent || isNew;
    if (SetDetails(item) || isNew) changed.push_back(item.Row);
  }
  cameOrWent = cameOrWent || !gone.empty();
  if (changed.empty() && !cameOrWent) return false;

  std::vector<RowId> order =
      files_.Rows.Reordered(changed, files_.List.Keys.Entries(), files_.List.Names);
  std::erase_if(order, [&](RowId row) { return gone.contains(row); });
  const auto stays = [&, taken = TakenBy(files_)](RowId row) {
    return !gone.contains(row) && taken(row);
  };
  KeepCursorAndPlace(files_, stays, [&] {
    ArrangeRows(files_.Rows, std::move(order), files_.List.Filter, files_.View());
  });
  TellCells(changed);
  return cameOrWent;
}

bool FolderUpdate::SetDetails(const Item& item) {
  FileRows& rows = files_.Rows;
  const FileRow before = rows.Row(item.Row);
  if (item.Status) {
    rows.SetAttributes(item.Row, item.Attributes);
    files_.ShowKnownSize(item.Row);
  } else {
    rows.SetUnreadable(item.Row);
    if (files_.Reason.empty()) files_.Reason = item.Status.Reason;
  }
  const bool extendedChanged =
      item.Colour != before.Colour || item.Comment != rows.Comment(item.Row);
  if (extendedChanged) rows.SetExtendedAttributes(item.Row, item.Colour, item.Comment);
  if (!extendedChanged && rows.Row(item.Row).LooksLike(before)) return false;
  rows.SetMarks(item.Row, {});  // what was compared is no longer there
  return true;
}

void FolderUpdate::TellCells(const std::vector<RowId>& rows) {
  std::vector<int> positions;
  for (const RowId row : rows) {
    if (files_.Rows.Has(row)) positions.push_back(files_.Rows.PositionOf(row));
  }
  std::sort(positions.begin(), positions.end());
  for (std::size_t at = 0; at < positions.size();) {
    const int first = positions[at];
    int last = first;
    while (++at < positions.size() && positions[at] == last + 1) ++last;
    files_.View().CellsChanged(RootRow, first, last);
  }
}

}  // namespace tarnwell::lister
