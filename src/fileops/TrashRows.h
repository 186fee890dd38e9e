// What lies in the trash as its window shows it: sorted, filtered, with what is selected.
//
// Orders, filters, selects and counts; reads nothing and knows no window.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "lister/rows/ListerView.h"
#include "lister/rows/NameFilter.h"
#include "lister/rows/NameOrder.h"
#include "platform/TrashCan.h"

namespace tarnwell::fileops {

enum class TrashColumn { Name, Folder, Deleted, Size, Type };
inline constexpr std::size_t TrashColumnCount = 5;

// How much some items are.
struct TrashSum {
  std::size_t Items = 0;
  std::size_t Restorable = 0;
  std::size_t Unmeasured = 0;  // items whose size is not known yet
  std::uint64_t Bytes = 0;     // of the others

  void Add(const platform::TrashedItem& item);
  void Remove(const platform::TrashedItem& item);
};

// Rows are counted from 0 among those on show, from the top. One that does not exist gives an empty
// item.
class TrashRows {
 public:
  // The collation outlives the rows.
  explicit TrashRows(const platform::Collation& collation) : names_(collation) {}

  void Clear();
  // New items come, and known ones change; a few of them cost little however many there are.
  void Take(std::vector<platform::TrashedItem> items);
  void Drop(const std::vector<std::uint64_t>& ids);

  void Sort(TrashColumn column, bool descending);
  TrashColumn SortColumn() const { return column_; }
  bool IsDescending() const { return descending_; }
  // As the filter of a list, by the names; what is not shown any more is not selected either.
  void Filter(const std::string& text);
  bool IsFiltered() const { return filter_.IsOn(); }

  std::size_t Count() const { return shown_.size(); }
  const platform::TrashedItem& operator[](std::size_t row) const;
  // Where the item is on show; Count() where it is not.
  std::size_t RowOf(std::uint64_t id) const;

  bool IsSelected(std::size_t row) const;
  void Select(std::size_t first, std::size_t last, bool on);
  std::vector<std::uint64_t> SelectedIds() const;
  // Null where it is not known any more. Holds until items come or go.
  const platform::TrashedItem* Find(std::uint64_t id) const;

  const TrashSum& All() const { return all_; }
  const TrashSum& Selected() const { return selected_; }

 private:
  using Slot = lister::RowId;
  struct Entry {
    platform::TrashedItem Item;
    bool IsSelected = false;
    bool IsThere = false;
  };

  const Entry& At(Slot slot) const { return entries_[static_cast<std::size_t>(slot)]; }
  Entry& At(Slot slot) { return entries_[static_cast<std::size_t>(slot)]; }
  bool Takes(const platform::TrashedItem& item) const;
  Slot SlotFor(std::uint64_t id);
  void AppendKey(Slot slot, std::string& key) const;
  bool BeforeByBytes(Slot left, Slot right) const;
  bool Before(Slot left, Slot right) const;
  void ShowAnew();
  void Hide(const std::vector<Slot>& slots);
  void Show(const std::vector<Slot>& slots);
  void Mark(Entry& entry, bool on);

  lister::NameOrder names_;
  lister::NameFilter filter_;
  TrashColumn column_ = TrashColumn::Deleted;
  bool descending_ = true;
  std::vector<Entry> entries_;
  std::vector<Slot> free_;  // entries that hold no item
  std::unordered_map<std::uint64_t, Slot> slots_;
  std::vector<Slot> shown_;
  TrashSum all_;
  TrashSum selected_;
};

// What the cell says of the item's type.
std::string TrashTypeText(const platform::TrashedItem& item);

}  // namespace tarnwell::fileops
