// The items of one folder and their order. Keeps and sorts them; reads nothing.
//
// A row stays where it was stored, and two small maps lead from places on the screen to rows and
// back. RowId is the row's place in the store plus one; the place of a row that is removed serves a
// later one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "lister/Comparison.h"
#include "lister/ItemColours.h"
#include "lister/ListerView.h"
#include "lister/NameOrder.h"
#include "lister/SortKeys.h"
#include "platform/FileSystem.h"

namespace tarnwell::lister {

struct FileRow {
  std::uint32_t NameStart = 0;
  std::uint32_t Mode = 0;
  std::uint64_t Size = 0;  // bytes; of a folder once it has been measured
  std::int64_t Modified = 0;
  std::int64_t Created = 0;
  std::int64_t Accessed = 0;
  std::uint16_t NameLength = 0;
  platform::ItemKind Kind = platform::ItemKind::File;
  ItemColour Colour = ItemColour::Default;
  CompareMarks Marks;
  bool IsLink : 1 = false;
  bool IsHidden : 1 = false;
  bool IsSystem : 1 = false;
  bool HasAttributes : 1 = false;  // Size, Mode and the times are known
  bool WasTried : 1 = false;       // they have been asked for
  bool HasFolderSize : 1 = false;  // a folder's Size is known
  bool NotesWereRead : 1 = false;  // Colour and comment
  bool IsSelected : 1 = false;
  bool WasSelected : 1 = false;  // at the last KeepSelection

  bool IsFolder() const { return Kind == platform::ItemKind::Folder; }
  // Whether what a read of the folder gives is the same in both, the name left out of account.
  bool LooksLike(const FileRow& other) const;
};

class FileRows {
 public:
  FileRows() = default;
  explicit FileRows(std::string folder) : folder_(std::move(folder)) {}

  const std::string& Folder() const { return folder_; }
  int Count() const { return static_cast<int>(order_.size()); }
  int FolderCount() const;
  bool Has(RowId row) const {
    return row > 0 && row <= StoreSize() && positions_[static_cast<std::size_t>(row - 1)] >= 0;
  }
  // No row has a higher number than this.
  RowId StoreSize() const { return static_cast<RowId>(rows_.size()); }

  // The row has its place at the end until the next SetOrder.
  void Add(const platform::FolderEntry& entry);
  void SetAttributes(RowId row, const platform::ItemAttributes& attributes);
  void SetUnreadable(RowId row);
  void SetFolderSize(RowId row, std::uint64_t bytes);
  void SetNotes(RowId row, ItemColour colour, std::string comment);
  void SetMarks(RowId row, CompareMarks marks);
  void SetSelected(RowId row, bool selected);
  void KeepSelection();
  int SelectedCount() const { return selected_; }
  // Empty for most.
  std::string_view Comment(RowId row) const;

  // For rows and positions that exist.
  const FileRow& Row(RowId row) const { return rows_[static_cast<std::size_t>(row - 1)]; }
  std::string_view Name(RowId row) const { return NameOf(Row(row)); }
  RowId At(int position) const { return order_[static_cast<std::size_t>(position)]; }
  int PositionOf(RowId row) const { return positions_[static_cast<std::size_t>(row - 1)]; }
  // The row with that very name, or NoRow.
  RowId Find(std::string_view name) const;

  std::string_view NameOf(const FileRow& row) const {
    return std::string_view(names_).substr(row.NameStart, row.NameLength);
  }

  // All rows by position.
  const std::vector<RowId>& Order() const { return order_; }
  void SetOrder(std::vector<RowId> order);
  // The order of these keys: folders first, then by the keys in turn, then by the bytes of names.
  std::vector<RowId> Sorted(const std::vector<SortKey>& keys, const NameOrder& names) const;
  // Whether the order by these keys can change once attributes are known.
  static bool NeedsAttributes(const std::vector<SortKey>& keys);

  // --- Of use when a folder is read again: `fresh` holds what was read.

  // For each row of `fresh`, by number, the row here that has its name, or NoRow; no row twice.
  std::vector<RowId> PairWith(const FileRows& fresh) const;
  // The rows take over what is known of their partners in the other store, until they are asked for
  // it anew: a folder that is read again need not show empty cells meanwhile.
  void TakeOver(const FileRows& known, const std::vector<RowId>& partners);
  // The rows from position `first` to `last` go.
  void Remove(int first, int last);
  // Each row becomes what its partner in `fresh` is; a row without a partner must be gone. Takes
  // the names out of `fresh`. Gives the rows that look different now.
  std::vector<RowId> BecomeLike(FileRows& fresh, const std::vector<RowId>& partners);
  // New rows come in at the position. Their names are among those taken over.
  void Insert(int position, const std::vector<FileRow>& made);

 private:
  void Renumber(int from);

  std::string folder_;
  std::string names_;  // all names, one behind the other
  std::vector<FileRow> rows_;
  std::vector<RowId> free_;     // numbers of rows that are gone
  std::vector<RowId> order_;    // by position
  std::vector<int> positions_;  // by row; -1 for one that is gone
  std::unordered_map<RowId, std::string> comments_;
  int selected_ = 0;
};

// Letters for read-only, hidden, system and link, those that apply.
std::string AttributeText(const FileRow& row);

}  // namespace tarnwell::lister
