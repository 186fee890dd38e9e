// The part of FolderTree that keeps children in order while they come and go.
#include <algorithm>
#include <cstddef>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "lister/FileRows.h"
#include "lister/FolderTree.h"

namespace tarnwell::lister {
namespace {

// Each run of rows that come or go costs a look at all others, and the view a step. With more runs
// than this the rows are gathered in one run at the end.
constexpr std::size_t MostRuns = 16;

// The runs of positions that are marked, as ranges.
std::vector<RowRange> RunsOf(const std::vector<char>& marks) {
  std::vector<RowRange> runs;
  for (int position = 0; position < static_cast<int>(marks.size()); ++position) {
    if (marks[static_cast<std::size_t>(position)] == 0) continue;
    if (runs.empty() || runs.back().Last != position - 1) runs.push_back({position, position});
    runs.back().Last = position;
  }
  return runs;
}

template <typename Number>
int Sign(Number left, Number right) {
  return (left > right) - (left < right);
}

}  // namespace

void FolderTree::SetOrder(SortKey key, ListerView& view) {
  if (key.Heading == key_.Heading && key.Descending == key_.Descending) return;
  key_ = key;
  view.BeginUpdate();
  for (RowId row = TopRow; row < static_cast<RowId>(nodes_.size()); ++row) SortBranch(row, view);
  view.EndUpdate();
}

void FolderTree::SortBranch(RowId row, ListerView& view) {
  std::vector<RowId> order = Node(row).Children;
  std::sort(order.begin(), order.end(),
            [this](RowId left, RowId right) { return Before(left, right); });
  SetChildren(row, std::move(order), view);
}

bool FolderTree::Before(RowId left, RowId right) const {
  if (key_.Heading == HeadingId::Name && key_.Descending) std::swap(left, right);
  if (const int order = CompareFacts(left, right)) return key_.Descending ? order > 0 : order < 0;
  return names_.Before(Node(left).Name, Node(right).Name);
}

// By the heading that the tree is sorted by; 0 where only names tell folders apart.
int FolderTree::CompareFacts(RowId left, RowId right) const {
  if (key_.Heading == HeadingId::Name) return 0;
  const FolderFacts& one = FactsOf(left);
  const FolderFacts& other = FactsOf(right);
  switch (key_.Heading) {
    case HeadingId::Size:
      return one.HasSize != other.HasSize ? Sign(one.HasSize, other.HasSize)
                                          : Sign(one.Size, other.Size);
    case HeadingId::DateLastModified:
      return Sign(one.Modified, other.Modified);
    case HeadingId::DateCreated:
      return Sign(one.Created, other.Created);
    case HeadingId::DateLastAccessed:
      return Sign(one.Accessed, other.Accessed);
    case HeadingId::Attributes:
      return AttributeText(Node(left), one).compare(AttributeText(Node(right), other));
    case HeadingId::Comments:
      return names_.Compare(one.Comment, other.Comment);
    case HeadingId::Permissions:
      return Sign(one.Mode & 0777U, other.Mode & 0777U);
    default:
      return 0;
  }
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
  const auto before = [this](RowId left, RowId right) { return Before(left, right); };
  std::sort(made.begin(), made.end(), before);
  const std::vector<RowId>& children = Node(row).Children;
  if (children.empty() || made.size() <= 1) {
    if (made.empty()) return;
    const auto place = std::lower_bound(children.begin(), children.end(), made.front(), before);
    return InsertAt(row, static_cast<int>(place - children.begin()), made, view);
  }
  std::vector<RowId> order;
  order.reserve(children.size() + made.size());
  std::merge(children.begin(), children.end(), made.begin(), made.end(), std::back_inserter(order),
             before);
  const std::unordered_set<RowId> fresh(made.begin(), made.end());
  std::vector<char> isNew(order.size());
  for (std::size_t at = 0; at < order.size(); ++at) isNew[at] = fresh.contains(order[at]) ? 1 : 0;
  const std::vector<RowRange> runs = RunsOf(isNew);
  if (runs.size() > MostRuns) {
    InsertAt(row, static_cast<int>(children.size()), made, view);
    return SetChildren(row, std::move(order), view);
  }
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
