#include "fileops/TrashRows.h"

#include <algorithm>
#include <tuple>
#include <unordered_set>
#include <utility>

#include "lister/rows/CellText.h"
#include "lister/rows/KeyBytes.h"
#include "lister/rows/KeySort.h"

namespace tarnwell::fileops {
namespace {

using platform::TrashedItem;

// So many at once are put in one by one; with more all are sorted anew.
constexpr std::size_t FewItems = 200;
constexpr std::size_t UsualKey = 48;  // bytes

}  // namespace

void TrashSum::Add(const TrashedItem& item) {
  ++Items;
  if (platform::CanRestore(item)) ++Restorable;
  item.IsSizeKnown ? Bytes += item.Size : ++Unmeasured;
}

void TrashSum::Remove(const TrashedItem& item) {
  --Items;
  if (platform::CanRestore(item)) --Restorable;
  item.IsSizeKnown ? Bytes -= item.Size : --Unmeasured;
}

std::string TrashTypeText(const TrashedItem& item) {
  if (item.State == platform::TrashState::NoFile) return "";
  return lister::TypeText(item.Name, item.Kind, item.IsLink);
}

void TrashRows::Clear() {
  entries_.clear();
  free_.clear();
  slots_.clear();
  shown_.clear();
  all_ = selected_ = {};
}

bool TrashRows::Takes(const TrashedItem& item) const {
  return filter_.Takes(item.Name, item.Kind == platform::ItemKind::Folder);
}

TrashRows::Slot TrashRows::SlotFor(std::uint64_t id) {
  if (free_.empty()) {
    entries_.emplace_back();
    free_.push_back(static_cast<Slot>(entries_.size() - 1));
  }
  const Slot slot = free_.back();
  free_.pop_back();
  slots_[id] = slot;
  return slot;
}

void TrashRows::Mark(Entry& entry, bool on) {
  if (entry.IsSelected == on) return;
  entry.IsSelected = on;
  on ? selected_.Add(entry.Item) : selected_.Remove(entry.Item);
}

void TrashRows::Take(std::vector<TrashedItem> items) {
  std::vector<Slot> changed;
  std::vector<Slot> known;
  for (TrashedItem& item : items) {
    const auto found = slots_.find(item.Id);
    const bool isKnown = found != slots_.end();
    const Slot slot = isKnown ? found->second : SlotFor(item.Id);
    Entry& entry = At(slot);
    const bool wasSelected = entry.IsSelected;
    if (isKnown) {
      known.push_back(slot);
      Mark(entry, false);
      all_.Remove(entry.Item);
    }
    entry.Item = std::move(item);
    entry.IsThere = true;
    all_.Add(entry.Item);
    Mark(entry, wasSelected && Takes(entry.Item));
    changed.push_back(slot);
  }
  if (changed.size() > FewItems) return ShowAnew();
  // What is told twice at once has one row.
  std::ranges::sort(changed);
  changed.erase(std::unique(changed.begin(), changed.end()), changed.end());
  Hide(known);
  Show(changed);
}

void TrashRows::Drop(const std::vector<std::uint64_t>& ids) {
  std::vector<Slot> gone;
  for (const std::uint64_t id : ids) {
    const auto found = slots_.find(id);
    if (found == slots_.end()) continue;
    const Slot slot = found->second;
    Entry& entry = At(slot);
    Mark(entry, false);
    all_.Remove(entry.Item);
    entry = {};
    slots_.erase(found);
    free_.push_back(slot);
    gone.push_back(slot);
  }
  Hide(gone);
}

// Bytes that compare as the rows do; equal ones go by the bytes of their paths.
void TrashRows::AppendKey(Slot slot, std::string& key) const {
  const TrashedItem& item = At(slot).Item;
  const auto text = [&](std::string_view each) {
    names_.AppendKey(each, key);
    key += lister::TextEnd;
  };
  switch (column_) {
    case TrashColumn::Name:
      break;
    case TrashColumn::Folder:
      text(item.Folder);
      break;
    case TrashColumn::Deleted:
      lister::AppendTime(item.Deleted, key);
      break;
    case TrashColumn::Size:
      lister::AppendNumber(item.IsSizeKnown ? 1 : 0, 1, key);
      lister::AppendNumber(item.Size, 8, key);
      break;
    case TrashColumn::Type:
      text(TrashTypeText(item));
      break;
  }
  text(item.Name);
}

bool TrashRows::BeforeByBytes(Slot left, Slot right) const {
  const auto bytes = [this](Slot slot) {
    const TrashedItem& item = At(slot).Item;
    return std::tie(item.Folder, item.Name, item.Place, item.Id);
  };
  return bytes(left) < bytes(right);
}

bool TrashRows::Before(Slot left, Slot right) const {
  if (descending_) std::swap(left, right);
  std::string one, other;
  AppendKey(left, one);
  AppendKey(right, other);
  const int order = one.compare(other);
  return order != 0 ? order < 0 : BeforeByBytes(left, right);
}

void TrashRows::ShowAnew() {
  lister::KeySort sort(all_.Items, all_.Items * UsualKey);
  for (std::size_t at = 0; at < entries_.size(); ++at) {
    const auto slot = static_cast<Slot>(at);
    if (!At(slot).IsThere || !Takes(At(slot).Item)) continue;
    sort.Add(slot, [&](std::string& key) { AppendKey(slot, key); });
  }
  shown_ = sort.Sorted([this](Slot left, Slot right) { return BeforeByBytes(left, right); }, {});
  if (descending_) std::ranges::reverse(shown_);
}

void TrashRows::Hide(const std::vector<Slot>& slots) {
  if (slots.empty()) return;
  const std::unordered_set<Slot> gone(slots.begin(), slots.end());
  std::erase_if(shown_, [&gone](Slot slot) { return gone.contains(slot); });
}

void TrashRows::Show(const std::vector<Slot>& slots) {
  for (const Slot slot : slots) {
    if (!Takes(At(slot).Item)) continue;
    const auto place = std::ranges::lower_bound(
        shown_, slot, [this](Slot left, Slot right) { return Before(left, right); });
    shown_.insert(place, slot);
  }
}

void TrashRows::Sort(TrashColumn column, bool descending) {
  if (column == column_ && descending != descending_) {
    descending_ = descending;
    std::ranges::reverse(shown_);
    return;
  }
  column_ = column;
  descending_ = descending;
  ShowAnew();
}

void TrashRows::Filter(const std::string& text) {
  filter_.SetText(text);
  for (Entry& entry : entries_) {
    if (entry.IsSelected && !Takes(entry.Item)) Mark(entry, false);
  }
  ShowAnew();
}

const TrashedItem& TrashRows::operator[](std::size_t row) const {
  static const TrashedItem None;
  return row < shown_.size() ? At(shown_[row]).Item : None;
}

std::size_t TrashRows::RowOf(std::uint64_t id) const {
  const auto found = slots_.find(id);
  if (found == slots_.end()) return shown_.size();
  const auto place = std::ranges::find(shown_, found->second);
  return static_cast<std::size_t>(place - shown_.begin());
}

bool TrashRows::IsSelected(std::size_t row) const {
  return row < shown_.size() && At(shown_[row]).IsSelected;
}

void TrashRows::Select(std::size_t first, std::size_t last, bool on) {
  for (std::size_t row = first; row <= last && row < shown_.size(); ++row) {
    Mark(At(shown_[row]), on);
  }
}

std::vector<std::uint64_t> TrashRows::SelectedIds() const {
  std::vector<std::uint64_t> ids;
  ids.reserve(selected_.Items);
  for (const Slot slot : shown_) {
    if (At(slot).IsSelected) ids.push_back(At(slot).Item.Id);
  }
  return ids;
}

const TrashedItem* TrashRows::Find(std::uint64_t id) const {
  const auto found = slots_.find(id);
  return found == slots_.end() ? nullptr : &At(found->second).Item;
}

}  // namespace tarnwell::fileops
