#include "platform/linux/trash/TrashTable.h"

#include <functional>
#include <string_view>
#include <utility>

namespace tarnwell::platform {
namespace {

void Mix(std::size_t& hash, std::size_t part) {
  hash ^= part + 0x9E3779B97F4A7C15U + (hash << 6) + (hash >> 2);
}

std::size_t HashOfOrigin(const TrashEntry& entry) {
  const std::hash<std::string_view> text;
  std::size_t hash = text(entry.Item.Folder);
  Mix(hash, text(entry.Item.Name));
  Mix(hash, static_cast<std::size_t>(entry.Item.Deleted));
  return hash;
}

std::size_t HashOfContent(const TrashedItem& item, std::size_t origin) {
  std::size_t hash = origin;
  Mix(hash, std::hash<std::string_view>()(item.Place));
  Mix(hash, item.Size);
  Mix(hash,
      static_cast<std::size_t>(item.IsSizeKnown) | static_cast<std::size_t>(item.IsLink) << 1 |
          static_cast<std::size_t>(item.Kind) << 2 | static_cast<std::size_t>(item.State) << 8);
  return hash;
}

}  // namespace

void TrashTable::Take(std::vector<TrashEntry> entries, TrashChanges& changes) {
  for (TrashEntry& entry : entries) {
    TrashedItem& item = entry.Item;
    if (!entry.IsThere) {
      const auto found = items_.find(entry.Key);
      if (found == items_.end()) continue;
      changes.Gone.push_back(found->second.Id);
      items_.erase(found);
      continue;
    }
    const auto [place, isNew] = items_.try_emplace(entry.Key);
    Known& known = place->second;
    known.Turn = turn_;
    const std::size_t origin = HashOfOrigin(entry);
    // A folder that is as it was need not be measured again.
    const bool isFolder = item.Kind == ItemKind::Folder;
    const bool isMeasured = known.IsFolder && known.IsSizeKnown && known.Origin == origin &&
                            known.NoteTime == entry.NoteTime;
    if (isFolder && !item.IsSizeKnown) {
      if (isMeasured) {
        item.Size = known.Size;
        item.IsSizeKnown = true;
      } else {
        unmeasured_.push_back({entry.Key, entry.NoteTime});
      }
    }
    const std::size_t content = HashOfContent(item, origin);
    if (!isNew && content == known.Content) continue;
    const bool isOther = !isNew && known.Origin != origin && item.State == TrashState::Whole;
    if (isOther) changes.Gone.push_back(known.Id);
    if (isNew || isOther) known.Id = ++lastId_;
    known.Content = content;
    known.Origin = origin;
    known.Size = item.Size;
    known.IsSizeKnown = item.IsSizeKnown;
    known.NoteTime = entry.NoteTime;
    known.IsFolder = isFolder;
    item.Id = known.Id;
    changes.Items.push_back(std::move(item));
  }
}

void TrashTable::EndAll(TrashChanges& changes) {
  std::erase_if(items_, [&](const auto& each) {
    if (each.second.Turn == turn_) return false;
    changes.Gone.push_back(each.second.Id);
    return true;
  });
}

void TrashTable::Clear(TrashChanges& changes) {
  BeginAll();
  EndAll(changes);
  unmeasured_.clear();
}

}  // namespace tarnwell::platform
