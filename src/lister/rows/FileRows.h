// The items of one folder, or what was found below it, and their order. Keeps, sorts and filters
// them; reads nothing and tells no view: MergeRows.h does that.
//
// A row stays where it was stored, and two small maps lead from places on the screen to rows and
// back. RowId is the row's place in the store plus one; the place of a row that is gone serves a
// later one. Rows that a filter does not take stay in the store and in the order of all rows, but
// have no position. A row and its name take 61 bytes and the name's length.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "lister/rows/BlockVector.h"
#include "lister/rows/Comparison.h"
#include "lister/rows/ItemColours.h"
#include "lister/rows/KnownSizes.h"
#include "lister/rows/ListerView.h"
#include "lister/rows/NameArena.h"
#include "lister/rows/NameFilter.h"
#include "lister/rows/NameOrder.h"
#include "lister/rows/SortKeys.h"
#include "platform/FileSystem.h"

namespace tarnwell::lister {

struct FileRow {
  std::uint32_t NameStart = 0;
  std::uint32_t Mode = 0;
  std::uint64_t Size = 0;  // bytes; of a folder once it has been measured
  std::int64_t Modified = platform::UnknownTime;
  std::int64_t Created = platform::UnknownTime;
  std::int64_t Accessed = platform::UnknownTime;
  std::uint16_t NameLength = 0;
  platform::ItemKind Kind = platform::ItemKind::File;
  ItemColour Colour = ItemColour::Default;
  CompareMarks Marks;
  bool IsLink : 1 = false;
  bool IsBroken : 1 = false;  // a link that leads nowhere
  bool IsHidden : 1 = false;
  bool IsSystem : 1 = false;
  bool HasAttributes : 1 = false;  // Size, Mode and the times are known
  bool WasTried : 1 = false;       // they have been asked for
  bool HasFolderSize : 1 = false;  // a folder's Size is known
  bool IsSizePartial : 1 = false;  // and part of the folder could not be read
  bool IsSelected : 1 = false;
  bool WasSelected : 1 = false;  // at the last KeepSelection
  bool IsUsed : 1 = false;       // an item's, not the place of one that is gone

  bool IsFolder() const { return Kind == platform::ItemKind::Folder; }
  bool IsUnreadable() const { return WasTried && !HasAttributes; }
  bool HasSize() const { return IsFolder() ? HasFolderSize : HasAttributes; }
  // Whether the cells of both show the same, name and comment left out of account.
  bool LooksLike(const FileRow& other) const;
};
static_assert(sizeof(FileRow) == 48);

// Of the rows on show.
struct RowTotals {
  int Folders = 0;
  std::uint64_t Bytes = 0;  // as far as sizes are known
  int Selected = 0;
  std::uint64_t SelectedBytes = 0;

  bool operator==(const RowTotals&) const = default;
};

class FileRows {
 public:
  // Asked every few milliseconds of long work; false ends it.
  using GoOn = std::function<bool()>;

  FileRows() = default;
  explicit FileRows(std::string folder) : folder_(std::move(folder)) {}
  // Of items that were found below the folder: the name of each is its path from there on, with the
  // separator between its components.
  FileRows(std::string folder, char separator)
      : folder_(std::move(folder)), separator_(separator) {}

  const std::string& Folder() const { return folder_; }
  bool HoldsPaths() const { return separator_ != NoSeparator; }
  // Rows on show.
  int Count() const { return static_cast<int>(order_.size()); }
  // Kept as rows change.
  const RowTotals& Totals() const { return totals_; }
  // Rows, on show or not, whose attributes were asked for in vain.
  int UnreadableCount() const { return unreadable_; }
  // On show.
  bool Has(RowId row) const { return IsUsed(row) && PositionOf(row) >= 0; }
  // An item's, on show or filtered out.
  bool IsUsed(RowId row) const { return row > 0 && row <= StoreSize() && Row(row).IsUsed; }
  // No row has a higher number than this.
  RowId StoreSize() const { return static_cast<RowId>(rows_.size()); }

  // The row comes on show, at the end of both orders. NoRow where there is no room: all names
  // together may take 4 GiB, one of them 65,535 bytes.
  RowId Add(const platform::FolderEntry& entry);
  // The row has no place until it is given one (Reordered, ArrangeRows); otherwise as Add. Texts
  // that Name gave before do not hold any longer.
  RowId Store(const platform::FolderEntry& entry);
  // Gives the item another name; false where there is no room. As Store with texts of Name.
  bool Rename(RowId row, std::string_view name);
  // What is known of a folder's size stays while its date of change does.
  void SetAttributes(RowId row, const platform::ItemAttributes& attributes);
  void SetUnreadable(RowId row);
  void SetFolderSize(RowId row, const FolderSize& size);
  void SetExtendedAttributes(RowId row, ItemColour colour, std::string comment);
  void SetColour(RowId row, ItemColour colour);
  void SetMarks(RowId row, CompareMarks marks);
  // The kinds of marks that rows have, on show or not.
  CompareMarks Marks() const { return marked_.Kinds(); }
  // What was known of each row was so; it is to be asked for anew.
  void ForgetTried();
  // Of a row on show. One that goes off show is not selected any more.
  void SetSelected(RowId row, bool selected);
  void KeepSelection();
  int SelectedCount() const { return totals_.Selected; }
  // Empty for most.
  std::string_view Comment(RowId row) const;

  // For rows and positions that exist.
  const FileRow& Row(RowId row) const { return rows_[static_cast<std::size_t>(row - 1)]; }
  std::string_view Name(RowId row) const { return NameOf(Row(row)); }
  RowId At(int position) const { return order_[static_cast<std::size_t>(position)]; }
  // What the item is called in its folder.
  std::string_view OwnName(RowId row) const { return OwnNameIn(Name(row)); }
  // Of a name: its last component, and what stands ahead of that; the whole, and nothing, where
  // names are no paths.
  std::string_view OwnNameIn(std::string_view name) const {
    return HoldsPaths() ? name.substr(name.rfind(separator_) + 1) : name;
  }
  std::string_view FolderPartOf(std::string_view name) const {
    return name.substr(0, name.size() - OwnNameIn(name).size());
  }
  // -1 for a row that is not on show.
  int PositionOf(RowId row) const { return positions_[static_cast<std::size_t>(row - 1)]; }
  // The row with that very name, on show or not; NoRow if there is none. A look at every row.
  RowId Find(std::string_view name) const;

  std::string_view NameOf(const FileRow& row) const {
    return names_.Get(row.NameStart, row.NameLength);
  }

  // The rows on show by position.
  const std::vector<RowId>& Order() const { return order_; }
  // All rows that have a place, filtered out or not, in their order.
  const std::vector<RowId>& All() const { return all_; }
  // The order of all rows; those on show take positions by it.
  void SetOrder(std::vector<RowId> order);
  // All rows in the order of these keys: folders first, then by the keys in turn, then by name,
  // then by the bytes of names. Empty after `goOn` said false; until then no row may come or go
  // while it is asked.
  std::vector<RowId> Sorted(const std::vector<SortKey>& keys, const NameOrder& names,
                            const GoOn& goOn = {}) const;
  // The order of all rows after these have come or changed: they stand where they belong, the
  // others, which are in order, stay as they are. Quick where they are few.
  std::vector<RowId> Reordered(const std::vector<RowId>& changed, const std::vector<SortKey>& keys,
                               const NameOrder& names) const;
  // Whether the order by these keys can change once attributes are known, plain or extended.
  static bool NeedsAttributes(const std::vector<SortKey>& keys);
  static bool NeedsExtendedAttributes(const std::vector<SortKey>& keys);

  // Those of the rows that the filter takes, in their order.
  std::vector<RowId> Taken(const NameFilter& filter, const std::vector<RowId>& rows) const;
  // The rows that the filter takes are on show, and no others.
  void Filter(const NameFilter& filter) { SetShown(Taken(filter, all_)); }
  // The extensions of all files, filtered out or not, in the order of names.
  std::vector<ExtensionChoice> Extensions(const NameOrder& names) const;

  // --- Of use when a folder is read again: `fresh` holds what was read.

  // For each row of `fresh`, by number, the row here that has its name, or NoRow; no row twice.
  std::vector<RowId> PairWith(const FileRows& fresh) const;
  // The rows take over what is known of their partners in the other store, until they are asked for
  // it anew: a folder that is read again need not show empty cells meanwhile. Comparison marks are
  // left behind.
  void TakeOver(const FileRows& known, const std::vector<RowId>& partners);
  // Each row becomes what its partner in `fresh` is, its place and selection left alone; a row
  // without a partner must be gone. The rows of `fresh` without a partner come in, with no place
  // yet, and their numbers here take the place of NoRow in `partners`. Takes the names out of
  // `fresh`. Gives the rows that look different now.
  std::vector<RowId> BecomeLike(FileRows& fresh, std::vector<RowId>& partners);

  // --- Single steps, which leave the order on show and that of all rows to be brought together.

  void SetAll(std::vector<RowId> order) { all_ = std::move(order); }
  // The rows at these positions go off show.
  void Hide(int first, int last);
  // Rows that were not on show come in at the position.
  void Show(int position, const std::vector<RowId>& rows);
  // These rows are on show, and no others.
  void SetShown(std::vector<RowId> order);
  // The row, which is not on show, is gone; its place among all rows goes with the next SetAll.
  void Forget(RowId row);

 private:
  FileRow& Stored(RowId row) { return rows_[static_cast<std::size_t>(row - 1)]; }
  RowId StoreRow(const FileRow& row);
  // Changes what is known of the row, and what is counted of it.
  template <typename Work>
  void Change(RowId row, Work work);
  // Counts in the totals, or out again by `rows` of -1, what is on show.
  void Count(const FileRow& item, int rows);
  void CountAll();
  void TakeOffShow(RowId row);
  void Renumber(int from);
  void MindUnusedNames();

  static constexpr char NoSeparator = '\0';

  std::string folder_;
  char separator_ = NoSeparator;
  NameArena names_;
  std::size_t unusedNames_ = 0;  // bytes in names_ of rows that are gone
  BlockVector<FileRow> rows_;
  std::vector<RowId> free_;     // numbers of rows that are gone
  std::vector<RowId> all_;      // in order
  std::vector<RowId> order_;    // on show, by position
  BlockVector<int> positions_;  // by row; -1 for one that is not on show
  std::unordered_map<RowId, std::string> comments_;
  RowTotals totals_;
  int unreadable_ = 0;
  MarkCounts marked_;
};

// Letters for read-only, hidden, system and link, those that apply.
std::string AttributeText(const FileRow& row);

}  // namespace tarnwell::lister
