#include "shellmenu/BuildAndTrackMenu.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "base/Caption.h"
#include "shellmenu/OwnEntries.h"
#include "shellmenu/ShellMenuTables.h"

namespace tarnwell::shellmenu {

using platform::ContextEntry;

namespace {

constexpr int NothingChosen = 0;

// With two of that caption the lower one is taken.
int FindByCaption(const std::vector<ContextEntry>& entries, std::string_view caption) {
  int id = NothingChosen;
  for (const ContextEntry& entry : entries) {
    if (!entry.Caption.empty() && base::WithoutMarks(entry.Caption) == caption) id = entry.Id;
  }
  return id;
}

// Of the entry with the number, in whatever submenu it is; empty if there is none.
std::string MenuCaptionById(const std::vector<ContextEntry>& entries, int id) {
  for (const ContextEntry& entry : entries) {
    if (entry.Id == id) return entry.Caption;
    std::string below = MenuCaptionById(entry.Children, id);
    if (!below.empty()) return below;
  }
  return "";
}

bool IsOnTop(const std::vector<ContextEntry>& entries, int id) {
  return std::ranges::find(entries, id, &ContextEntry::Id) != entries.end();
}

// The lowest of several.
void RemovePaste(platform::PopupMenu& menu, std::vector<ContextEntry>& entries) {
  const auto found = std::find_if(entries.rbegin(), entries.rend(), [](const ContextEntry& entry) {
    return entry.Caption.find("Paste") != std::string::npos;
  });
  if (found == entries.rend()) return;
  menu.Remove(found->Id);
  entries.erase(std::next(found).base());
}

}  // namespace

MenuOutcome MenuBuilder::BuildAndTrackMenu(const MenuRequest& request) const {
  const std::unique_ptr<platform::ItemMenu> items =
      platform_.ForItems(request.Folder, request.Names);
  if (items == nullptr) return {};
  const std::unique_ptr<platform::PopupMenu> menu = popups_.Create();
  if (menu == nullptr) return {};
  Entries platforms;
  if (!items->Fill(menu->Handle(), FirstPlatformId, LastPlatformId, platforms)) return {};
  if (menu->Handle() == 0) platforms = InsertAll(*menu, std::move(platforms));

  Entries entries = InsertAll(*menu, OwnEntries({.Settings = workspace_.Settings,
                                                 .FirstPath = request.FirstPath,
                                                 .Count = request.Names.size(),
                                                 .IsDriveRoot = request.IsDriveRoot,
                                                 .Undo = request.Undo}));
  std::ranges::move(platforms, std::back_inserter(entries));
  // Nothing is kept that could be pasted.
  if (workspace_.ShellVerbMode == 0 && workspace_.InternalClipSource == lister::NoList) {
    RemovePaste(*menu, entries);
  }

  const int id = request.Mode == MenuMode::Show ? menu->Track(request.X, request.Y)
                                                : FindByCaption(entries, CaptionOf(request.Mode));
  if (id == NothingChosen) return {};
  // What the platform has in a submenu bears the names of applications, whatever words they are.
  const bool isNamedByOthers = id <= LastPlatformId && !IsOnTop(entries, id);
  const MenuWord chosen = isNamedByOthers
                              ? MenuWord{std::string(UnknownWord), true}
                              : WordOf(MenuCaptionById(entries, id), workspace_.ShellVerbMode);
  MenuOutcome outcome{.Word = chosen.Word};
  if (chosen.IsPlatforms && id <= LastPlatformId) {
    outcome.Started = items->Invoke(id - FirstPlatformId);
  }
  return outcome;
}

MenuBuilder::Entries MenuBuilder::InsertAll(platform::PopupMenu& menu, Entries entries) const {
  // From the bottom up, since each goes on top.
  for (auto entry = entries.end(); entry != entries.begin();) {
    if (menu.InsertOnTop(*--entry)) continue;
    messenger_.Message(
        "A custom menu item could not be added. Please contact the makers of Tarnwell for a patch.",
        forms::MessageKind::Ok);
    entry = entries.erase(entry);
  }
  return entries;
}

}  // namespace tarnwell::shellmenu
