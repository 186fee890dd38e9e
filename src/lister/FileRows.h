// The items of one folder and their order. Keeps and sorts them; reads nothing.
//
// A row stays where it was stored, and two small maps lead from places on the screen to rows and
// back. RowId is the row's place in the store plus one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "lister/ListerView.h"
#include "lister/SortKeys.h"
#include "platform/FileSystem.h"

namespace tarnwell::lister {

struct FileRow {
  std::size_t NameStart = 0;
  std::uint32_t NameLength = 0;
  std::uint32_t Mode = 0;
  std::uint64_t Size = 0;
  std::int64_t Modified = 0;
  std::int64_t Created = 0;
  std::int64_t Accessed = 0;
  platform::ItemKind Kind = platform::ItemKind::File;
  bool IsLink = false;
  bool IsHidden = false;
  bool IsSystem = false;
  bool HasAttributes = false;  // Size, Mode and the times are known
  bool WasTried = false;       // they have been asked for

  bool IsFolder() const { return Kind == platform::ItemKind::Folder; }
};

class FileRows {
 public:
  FileRows() = default;
  explicit FileRows(std::string folder) : folder_(std::move(folder)) {}

  const std::string& Folder() const { return folder_; }
  int Count() const { return static_cast<int>(rows_.size()); }
  int FolderCount() const;
  bool Has(RowId row) const { return row > 0 && row <= Count(); }

  // A row added has its place at the end until the next Sort.
  void Add(const platform::FolderEntry& entry);
  void SetAttributes(RowId row, const platform::ItemAttributes& attributes);
  // Rows whose names the other store has too take over what is known there, until they are asked
  // for it anew: a folder that is read again need not show empty cells meanwhile.
  void TakeOver(const FileRows& known);
  void SetUnreadable(RowId row);

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

  // Folders first, then by the keys in turn, then by the bytes of the names.
  void Sort(const std::vector<SortKey>& keys);
  // Whether the order by these keys can change once attributes are known.
  static bool NeedsAttributes(const std::vector<SortKey>& keys);

 private:
  std::string folder_;
  std::string names_;  // all names, one behind the other
  std::vector<FileRow> rows_;
  std::vector<RowId> order_;    // by position
  std::vector<int> positions_;  // by row
};

// Letters for read-only, hidden, system and link, those that apply.
std::string AttributeText(const FileRow& row);

}  // namespace tarnwell::lister
