// The nodes of a folder tree. Keeps them, their order and which of them are expanded, open and
// current, and tells the view of each change; reads no folder.
//
// The drive's root is itself a node, the one child of the invisible root. A node of the tree that
// is removed hands the marks that lie below it to its parent.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/PathSyntax.h"
#include "lister/rows/ItemColours.h"
#include "lister/rows/KnownSizes.h"
#include "lister/rows/ListerView.h"
#include "lister/rows/NameOrder.h"
#include "lister/rows/SortKeys.h"
#include "platform/FileSystem.h"

namespace tarnwell::lister {

enum class BranchState : std::uint8_t { Unread, Read, Failed };

struct Subfolder {
  std::string Name;
  bool IsLink = false;
  bool IsHidden = false;
  bool IsSystem = false;
};

// What a tree knows of a folder beside its name, once a heading, the order or the colours ask for
// it.
struct FolderFacts {
  std::int64_t Modified = platform::UnknownTime;
  std::int64_t Created = platform::UnknownTime;
  std::int64_t Accessed = platform::UnknownTime;
  std::uint32_t Mode = 0;
  bool HasAttributes = false;  // Mode and the times are known
  ItemColour Colour = ItemColour::Default;
  std::string Comment;

  bool operator==(const FolderFacts&) const = default;
};

// Kinds of facts, as bits.
enum FactBits : std::uint8_t { NoFacts = 0, AttributeFacts = 1, ColourFact = 2, CommentFact = 4 };

struct FolderNode : Subfolder {
  BranchState State = BranchState::Unread;
  bool IsExpanded = false;
  bool IsFresh = false;    // just read, or followed since: the children are those on disk
  std::uint8_t Tried = 0;  // FactBits that have been asked for since the branch was read
  RowId Parent = NoRow;    // NoRow for one that is not in use
  int Position = 0;
  std::vector<RowId> Children;

  bool HasChildren() const { return State == BranchState::Unread || !Children.empty(); }
};

class FolderTree {
 public:
  static constexpr RowId TopRow = 1;

  FolderTree(const base::PathSyntax& syntax, const NameOrder& names)
      : syntax_(syntax), names_(names) {
    nodes_.resize(1);
  }

  // What a folder measures, where that is known; for the order by size.
  std::function<std::optional<FolderSize>(RowId)> SizeOf;

  // All nodes go; the root given becomes the one node, open and current.
  void Reset(const std::string& root, ListerView& view);
  // The children of the node become these, in any order. Those that were there stay the same rows;
  // their facts stand until they have been asked for anew.
  void Update(RowId row, std::vector<Subfolder> folders, BranchState state, ListerView& view);
  // Some children of the node go, folders that it has no child for come.
  void Change(RowId row, const std::vector<RowId>& gone, std::vector<Subfolder> come,
              ListerView& view);
  // Forgets the children of the node, which is as if it had never been read.
  void Forget(RowId row, ListerView& view);
  // Children go by this key, then by name, from now on. What the key needs of facts comes first
  // until it is known: a branch is to be sorted again then.
  void SortBy(SortKey key, ListerView& view);
  void SortBranch(RowId row, ListerView& view);
  void SetExpanded(RowId row, bool expanded, ListerView& view);
  void SetOpen(RowId row, ListerView& view);
  void SetCurrent(RowId row, ListerView& view);
  void SetFresh(RowId row, bool fresh) { At(row).IsFresh = fresh; }

  const FolderFacts& FactsOf(RowId row) const;
  // Says that the facts of those bits have been asked for. True if the row looks different now; the
  // view is not told.
  bool SetFacts(RowId row, std::uint8_t tried, const FolderFacts& facts);
  // They are to be asked for anew.
  void AskAnew(RowId row) { At(row).Tried = NoFacts; }

  bool Has(RowId row) const {
    return row > RootRow && row < static_cast<RowId>(nodes_.size()) && Node(row).Parent != NoRow;
  }
  // The node of a row that the tree has, or the invisible root's.
  const FolderNode& Node(RowId row) const { return nodes_[static_cast<std::size_t>(row)]; }
  RowId Open() const { return open_; }
  RowId Current() const { return current_; }
  std::string PathOf(RowId row) const;
  int LevelOf(RowId row) const;
  RowId FindChild(RowId row, std::string_view name) const;
  // The row of that very path; NoRow if the tree has none.
  RowId Find(const std::string& path) const;
  // The expanded nodes below expanded nodes alone, from the top down.
  std::vector<RowId> BranchesOnShow() const;
  // Nodes whose branches above are expanded.
  std::uint64_t CountOnShow() const;
  // The node is the other one or lies below it.
  bool IsWithin(RowId row, RowId ancestor) const;
  // Changes whenever rows are removed, so that a RowId kept since may mean another folder.
  int Removals() const { return removals_; }

 private:
  FolderNode& At(RowId row) { return nodes_[static_cast<std::size_t>(row)]; }
  void AppendKey(RowId row, std::string& key) const;
  void AppendFact(RowId row, std::string& key) const;
  bool BeforeByBytes(RowId left, RowId right) const;
  std::vector<RowId> Sorted(const std::vector<RowId>& rows) const;
  int PlaceOf(RowId row, RowId made) const;
  void RemoveMarked(RowId row, std::vector<char> goes, ListerView& view);
  void InsertMade(RowId row, std::vector<RowId> made, ListerView& view);
  void InsertAt(RowId row, int position, const std::vector<RowId>& made, ListerView& view);
  void SetChildren(RowId row, std::vector<RowId> order, ListerView& view);
  void RemoveRange(RowId row, int first, int last, ListerView& view);
  void Release(RowId row);
  RowId Make(RowId parent, Subfolder&& folder);
  void Renumber(RowId row, int from);
  void TellChanged(RowId row, ListerView& view) const;

  const base::PathSyntax& syntax_;
  const NameOrder& names_;
  std::vector<FolderNode> nodes_;  // by RowId; number 0 is the invisible root
  std::vector<RowId> free_;
  std::unordered_map<RowId, FolderFacts> facts_;  // of the nodes of which any are known
  RowId open_ = NoRow;
  RowId current_ = NoRow;
  SortKey key_;
  int removals_ = 0;
};

// Letters as those of FileRows.h.
std::string AttributeText(const Subfolder& folder, const FolderFacts& facts);

}  // namespace tarnwell::lister
