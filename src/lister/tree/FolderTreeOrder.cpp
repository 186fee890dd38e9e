// The part of FolderTree that keeps children in order while they come and go.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <unordered_set>
#include <utility>

#include "lister/rows/FileRows.h"
#include "lister/rows/KeyBytes.h"
#include "lister/rows/KeySort.h"
#include "lister/rows/RowRuns.h"
#include "lister/tree/FolderTree.h"

namespace tarnwell::lister {

void FolderTree::SortBy(SortKey key, ListerView& view) {
  key_ = key;
  view.BeginUpdate();
  for (RowId row = TopRow; row < static_cast<RowId>(nodes_.size()); ++row) SortBranch(row, view);
  view.EndUpdate();
}

void FolderTree::SortBranch(RowId row, ListerView& view) {
  if (Node(row).Children.size() > 1) SetChildren(row, Sorted(Node(row).Children), view);
}

void FolderTree::AppendKey(RowId row, std::string& key) const {
  const std::size_t start = key.size();
  const bool byName = key_.Heading == HeadingId::Name;
  if (!byName) AppendFact(row, key);
  const std::size_t end = key.size();
  names_.AppendKey(Node(row).Name, key);
  key += TextEnd;
  if (!key_.Descending) return;
  for (std::size_t at = start; at < (byName ? key.size() : end); ++at) {
    key[at] = static_cast<char>(~key[at]);
  }
}

// By the heading that the tree is sorted by; nothing where only names tell folders apart.
void FolderTree::AppendFact(RowId row, std::string& key) const {
  const FolderFacts& facts = FactsOf(row);
  switch (key_.Heading) {
    case HeadingId::Size: {
      const std::optional<FolderSize> size = SizeOf ? SizeOf(row) : std::nullopt;
      return AppendNumber(size ? size->Bytes + 1 : 0, 8, key);
    }
    case HeadingId::DateLastModified:
      return AppendTime(facts.Modified, key);
    case HeadingId::DateCreated:
      return AppendTime(facts.Created, key);
    case HeadingId::DateLastAccessed:
      return AppendTime(facts.Accessed, key);
    case HeadingId::Attributes:
      key += AttributeText(Node(row), facts) + TextEnd;
      return;
    case HeadingId::Comments:
      names_.AppendKey(facts.Comment, key);
      key += TextEnd;
      return;
    case HeadingId::Permissions:
      return AppendNumber(facts.Mode & 0777U, 8, key);
    default:
      return;
  }
}

// Of rows whose keys are equal.
bool FolderTree::BeforeByBytes(RowId left, RowId right) const {
  if (key_.Heading == HeadingId::Name && key_.Descending) std::swap(left, right);
  return Node(left).Name < Node(right).Name;
}

std::vector<RowId> FolderTree::Sorted(const std::vector<RowId>& rows) const {
  constexpr std::size_t usualKey = 32;  // bytes
  KeySort sort(rows.size(), rows.size() * usualKey);
  for (const RowId row : rows) {
    sort.Add(row, [&](std::string& key) { AppendKey(row, key); });
  }
  return sort.Sorted([this](RowId left, RowId right) { return BeforeByBytes(left, right); }, {});
}

// Where a new child goes among the others.
int FolderTree::PlaceOf(RowId row, RowId made) const {
  std::string key, other;
  AppendKey(made, key);
  const auto before = [&](RowId child, RowId) {
    other.clear();
    AppendKey(child, other);
    return other != key ? other < key : BeforeByBytes(child, made);
  };
  const std::vector<RowId>& children = Node(row).Children;
  return static_cast<int>(std::lower_bound(children.begin(), children.end(), made, before) -
                          children.begin());
}

void FolderTree::RemoveMarked(RowId row, std::vector<char> goes, ListerView& view) {
  std::vector<RowRange> runs = RunsOf(goes);
  if (runs.size() > MostRuns) {
    std::vector<RowId> order = Node(row).Children;
    const auto stays = std::stable_partition(order.begin(), order.end(), [&](RowId child) {
      return goes[static_cast<std::size_t>(Node(child).Position)] == 0;
    });
    const int first = static_cast<int>(stays - order.begin());
    runs = {{first, static_cast<int>(order.size()) - 1}};
    SetChildren(row, std::move(order), view);
  }
  for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
    RemoveRange(row, run->First, run->Last, view);
  }
}

// Puts new nodes among the children.
void FolderTree::InsertMade(RowId row, std::vector<RowId> made, ListerView& view) {
  const std::vector<RowId>& children = Node(row).Children;
  if (made.empty()) return;
  if (made.size() == 1) return InsertAt(row, PlaceOf(row, made[0]), made, view);
  if (children.empty()) return InsertAt(row, 0, Sorted(made), view);

  const std::unordered_set<RowId> fresh(made.begin(), made.end());
  made.insert(made.end(), children.begin(), children.end());
  std::vector<RowId> order = Sorted(made);
  std::vector<char> isNew(order.size());
  std::vector<RowId> known, added;
  for (std::size_t at = 0; at < order.size(); ++at) {
    isNew[at] = fresh.contains(order[at]) ? 1 : 0;
    (isNew[at] != 0 ? added : known).push_back(order[at]);
  }
  const std::vector<RowRange> runs = RunsOf(isNew);
  if (runs.size() > MostRuns) {
    InsertAt(row, static_cast<int>(children.size()), added, view);
    return SetChildren(row, std::move(order), view);
  }
  SetChildren(row, std::move(known), view);  // facts may have moved some
  for (const RowRange& run : runs) {
    InsertAt(row, run.First, {order.begin() + run.First, order.begin() + run.Last + 1}, view);
  }
}

void FolderTree::InsertAt(RowId row, int position, const std::vector<RowId>& made,
                          ListerView& view) {
  view.BeginInsert(row, position, position + static_cast<int>(made.size()) - 1);
  std::vector<RowId>& children = At(row).Children;
  children.insert(children.begin() + position, made.begin(), made.end());
  Renumber(row, position);
  view.EndInsert();
}

void FolderTree::SetChildren(RowId row, std::vector<RowId> order, ListerView& view) {
  if (order == Node(row).Children) return;
  view.BeginReorder(row);
  At(row).Children = std::move(order);
  Renumber(row, 0);
  view.EndReorder();
}

std::string AttributeText(const Subfolder& folder, const FolderFacts& facts) {
  FileRow row;
  row.Mode = facts.Mode;
  row.HasAttributes = facts.HasAttributes;
  row.IsLink = folder.IsLink;
  row.IsHidden = folder.IsHidden;
  row.IsSystem = folder.IsSystem;
  return AttributeText(row);
}

}  // namespace tarnwell::lister
