#include "shellmenu/OwnEntries.h"

#include <string>
#include <utility>

#include "base/Caption.h"
#include "base/Text.h"
#include "shellmenu/ShellMenuTables.h"

namespace tarnwell::shellmenu {

using platform::ContextEntry;

namespace {

ContextEntry EntryOf(int id, std::string caption) {
  ContextEntry entry;
  entry.Id = id;
  entry.Caption = std::move(caption);
  return entry;
}

std::vector<ContextEntry> Colours() {
  std::vector<ContextEntry> entries;
  for (const ColourEntry& colour : ColourEntries) {
    entries.push_back(EntryOf(colour.Id, std::string(colour.Caption)));
    entries.back().Picture = colour.Picture;
  }
  return entries;
}

std::vector<ContextEntry> BookmarkSlots(const workspace::ProgramSettings& settings) {
  std::vector<ContextEntry> entries;
  for (const workspace::BookmarkRecord& bookmark : settings.Bookmarks) {
    const int slot = static_cast<int>(entries.size()) + 1;
    const std::string number = std::to_string(slot);
    // The paths stand in line.
    const std::string gap(number.size() == 1 ? 4 : 2, ' ');
    ContextEntry entry = EntryOf(
        BookmarkId(slot), number + gap + base::AsCaption(base::ForDisplay(bookmark.DisplayPath)));
    entry.Children = {EntryOf(AddToSlotId(slot), "Add to Slot " + number),
                      EntryOf(ClearSlotId(slot), "Clear Slot " + number)};
    entries.push_back(std::move(entry));
  }
  return entries;
}

bool IsShown(ShownFor shown, const OwnEntriesFor& items) {
  switch (shown) {
    case ShownFor::NoDriveRoot:
      return !items.IsDriveRoot;
    case ShownFor::AccessDatabase:
      return base::LastCodePoints(items.FirstPath, ComparedPathEnd) == AccessPathEnd;
    case ShownFor::SeveralItems:
      return items.Count > 1;
    case ShownFor::ToUndo:
      return !items.Undo.empty();
    default:
      return true;
  }
}

std::vector<ContextEntry> ChildrenOf(MainEntryKind kind,
                                     const workspace::ProgramSettings& settings) {
  switch (kind) {
    case MainEntryKind::Access:
      return {EntryOf(CompactDatabaseEntry.Id, std::string(CompactDatabaseEntry.Caption))};
    case MainEntryKind::Bookmarks:
      return BookmarkSlots(settings);
    case MainEntryKind::ColourCode:
      return Colours();
    default:
      return {};
  }
}

}  // namespace

std::vector<ContextEntry> OwnEntries(const OwnEntriesFor& items) {
  std::vector<ContextEntry> entries;
  for (const MainEntry& row : MainEntries) {
    if (!IsShown(row.Shown, items)) continue;
    const bool undoes = row.Kind == MainEntryKind::Undo;
    ContextEntry entry =
        EntryOf(row.Id, undoes ? "&" + base::AsCaption(base::ForDisplay(items.Undo))
                               : std::string(row.Caption));
    entry.IsSeparator = row.Kind == MainEntryKind::Separator;
    entry.Children = ChildrenOf(row.Kind, items.Settings);
    entries.push_back(std::move(entry));
  }
  return entries;
}

}  // namespace tarnwell::shellmenu
