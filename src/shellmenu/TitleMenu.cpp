#include "shellmenu/TitleMenu.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Caption.h"
#include "base/Text.h"
#include "settings/LoadLastSettings.h"
#include "workspace/PaneAccent.h"

namespace tarnwell::shellmenu {

using platform::ContextEntry;
using workspace::Workspace;

namespace {

using TitleEntries = std::vector<ContextEntry>;

ContextEntry SeparatorEntry() {
  ContextEntry entry;
  entry.IsSeparator = true;
  return entry;
}

// Grey where there is nothing in it.
ContextEntry Submenu(std::string caption, TitleEntries children) {
  ContextEntry entry;
  entry.Caption = std::move(caption);
  entry.Enabled = !children.empty();
  entry.Children = std::move(children);
  return entry;
}

std::string ShownCaption(std::string_view path) {
  return base::AsCaption(base::ForDisplay(workspace::DisplayPathOf(path)));
}

// The entries of one pane's menu, and what each of them does.
class TitleChoices {
 public:
  TitleChoices(Workspace& workspace, const base::PathSyntax& syntax, lists::Navigation& navigation,
               int pane)
      : workspace_(workspace), syntax_(syntax), navigation_(navigation), pane_(pane) {}

  TitleEntries All() {
    TitleEntries entries = FoldersAbove();
    if (!entries.empty()) entries.push_back(SeparatorEntry());
    entries.push_back(History());
    entries.push_back(Bookmarks());
    entries.push_back(AddBookmark());
    entries.push_back(SeparatorEntry());
    entries.push_back(Accents());
    return entries;
  }

  // Of the entry with the number; 0 is none.
  void Do(int chosen) const {
    if (chosen > 0) acts_.at(static_cast<std::size_t>(chosen - 1))();
  }

 private:
  using Act = std::function<void()>;

  // The nearest on top.
  TitleEntries FoldersAbove() {
    TitleEntries entries;
    std::string folder = OpenFolder();
    for (std::string above = syntax_.ParentOf(folder); !syntax_.Same(above, folder);
         above = syntax_.ParentOf(folder)) {
      folder = above;
      entries.push_back(ToFolder(
          ShownCaption(syntax_.IsDriveRoot(folder) ? folder : syntax_.LastComponent(folder)),
          folder));
    }
    return entries;
  }

  // The newest on top, the one on show with a tick.
  ContextEntry History() {
    const workspace::PaneHistory& history = workspace_.Histories[pane_];
    TitleEntries entries;
    for (std::size_t place = history.Folders.size(); place-- > 0;) {
      entries.push_back(
          Choice(ShownCaption(history.Folders[place]), "",
                 [this, place, folder = history.Folders[place]] { GoBackTo(place, folder); }));
      entries.back().IsChecked = place == history.Here;
    }
    return Submenu("&History", std::move(entries));
  }

  ContextEntry Bookmarks() {
    TitleEntries entries;
    int slot = 0;
    for (const workspace::BookmarkRecord& bookmark : workspace_.Settings.Bookmarks) {
      ++slot;
      if (bookmark.Path == workspace::EmptyBookmark) continue;
      // The last digit of the number is the access key.
      const std::string number = (slot < 10 ? "&" : "1&") + std::to_string(slot % 10);
      entries.push_back(ToFolder(number + "  " + ShownCaption(bookmark.Path), bookmark.Path));
    }
    return Submenu("&Bookmarks", std::move(entries));
  }

  ContextEntry AddBookmark() {
    auto& slots = workspace_.Settings.Bookmarks;
    auto* const free =
        std::ranges::find(slots, workspace::EmptyBookmark, &workspace::BookmarkRecord::Path);
    if (free == slots.end()) {
      ContextEntry entry;
      entry.Caption = "&Add This Folder: no bookmark slot is free";
      entry.Enabled = false;
      return entry;
    }
    const auto number = std::distance(slots.begin(), free) + 1;
    return Choice("&Add This Folder to Slot " + std::to_string(number), "bookmarks", [this, free] {
      free->Path = OpenFolder();
      settings::MakeBookmarkDisplayPaths(workspace_.Settings);
    });
  }

  ContextEntry Accents() {
    std::int32_t& accent = workspace_.Panes[pane_].Accent;
    const std::int32_t present = workspace::FindAccent(accent) == nullptr ? 0 : accent;
    TitleEntries entries;
    const auto add = [&](std::string_view caption, std::string_view picture) {
      const auto number = static_cast<std::int32_t>(entries.size());
      entries.push_back(
          Choice(std::string(caption), picture, [&accent, number] { accent = number; }));
      entries.back().IsChecked = present == number;
    };
    add("&None", "");
    for (const workspace::PaneAccent& each : workspace::PaneAccents) {
      add(each.Caption, each.Picture);
    }
    return Submenu("A&ccent", std::move(entries));
  }

  ContextEntry Choice(std::string caption, std::string_view picture, Act act) {
    acts_.push_back(std::move(act));
    ContextEntry entry;
    entry.Id = static_cast<int>(acts_.size());
    entry.Caption = std::move(caption);
    entry.Picture = picture;
    return entry;
  }

  ContextEntry ToFolder(std::string caption, const std::string& folder) {
    return Choice(std::move(caption), "folder", [this, folder] { Open(folder); });
  }

  void Open(const std::string& folder) {
    const lister::ListId current = workspace_.CurrentList;
    const bool isOurs =
        workspace_.Lists.Find(current) != nullptr && lister::PaneOf(current) == pane_;
    workspace_.Lists[isOurs ? current : lister::FolderListOf(pane_)].GoToFolder(folder);
  }

  // Places may have shifted while the menu was up.
  void GoBackTo(std::size_t place, const std::string& folder) {
    const std::vector<std::string>& folders = workspace_.Histories[pane_].Folders;
    if (place >= folders.size() || folders[place] != folder) {
      place = static_cast<std::size_t>(
          std::distance(folders.begin(), std::ranges::find(folders, folder)));
    }
    if (place < folders.size()) {
      navigation_.OpenFromHistory(pane_, place);
    } else {
      Open(folder);
    }
  }

  std::string OpenFolder() const {
    const std::string& path = workspace_.Panes[pane_].CurrentPath;
    return syntax_.IsDriveRoot(path) ? path : syntax_.RemoveRightSlash(path);
  }

  Workspace& workspace_;
  const base::PathSyntax& syntax_;
  lists::Navigation& navigation_;
  const int pane_;
  std::vector<Act> acts_;  // by the entries' numbers, which count from 1
};

}  // namespace

void TitleMenu::Show(int pane) {
  const std::unique_ptr<platform::PopupMenu> menu = popups_.Create();
  if (menu == nullptr) return;
  TitleChoices choices(workspace_, syntax_, navigation_, pane);
  const TitleEntries entries = choices.All();
  for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) menu->InsertOnTop(*entry);
  const forms::Picture& picture = workspace_.Form.cmdTitle[pane];
  choices.Do(menu->Track(picture.Left / base::TwipsPerPixel,
                         (picture.Top + picture.Height) / base::TwipsPerPixel));
  workspace_.Form.Touch();
}

}  // namespace tarnwell::shellmenu
