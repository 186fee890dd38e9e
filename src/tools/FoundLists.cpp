#include "tools/FoundLists.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/Text.h"

namespace tarnwell::tools {
namespace {

constexpr std::size_t ItemsAtOnce = 2048;
constexpr const char* NoPaneIsOpen = "No pane is open.";

}  // namespace

std::string FoundLists::OpenFolder() const {
  if (workspace_.Lists.Find(workspace_.ActiveList) == nullptr) return "";
  return workspace_.Lists.Files(lister::PaneOf(workspace_.ActiveList)).CurrentFolder();
}

bool FoundLists::ShowsHidden() const {
  const lister::ListerControl* const list = workspace_.Lists.Find(workspace_.ActiveList);
  return list != nullptr && list->ShowHidden;
}

void FoundLists::Begin(const std::string& folder) {
  Drop(lister::FoundList);
  anyFound_ = false;
  workspace_.Lists.Found().ShowFound(folder);
}

void FoundLists::Take(std::vector<platform::FoundItem> items) {
  if (items.empty()) return;
  anyFound_ = true;
  Send(lister::FoundList, std::move(items));
}

void FoundLists::Clear() {
  Drop(lister::FoundList);
  if (std::exchange(anyFound_, false)) {
    lister::ListerControl& list = workspace_.Lists.Found();
    list.ShowFound(list.CurrentFolder());
  }
}

void FoundLists::Send(lister::ListId list, std::vector<platform::FoundItem> items) {
  const auto feed = std::ranges::find(feeds_, list, &Feed::List);
  if (feed == feeds_.end()) {
    feeds_.push_back({list, std::move(items)});
    return;
  }
  feed->Items.insert(feed->Items.end(), std::make_move_iterator(items.begin()),
                     std::make_move_iterator(items.end()));
}

void FoundLists::Drop(lister::ListId list) {
  std::erase_if(feeds_, [list](const Feed& feed) { return feed.List == list; });
}

// A list may let messages through, and what comes by them may feed lists anew.
void FoundLists::ShowSome() {
  if (feeds_.empty()) return;
  Feed& feed = feeds_.front();
  const std::size_t end = std::min(feed.Done + ItemsAtOnce, feed.Items.size());
  const auto at = [&feed](std::size_t place) {
    return std::make_move_iterator(feed.Items.begin() + static_cast<std::ptrdiff_t>(place));
  };
  const std::vector<platform::FoundItem> items(at(feed.Done), at(end));
  const lister::ListId list = feed.List;
  feed.Done = end;
  if (end == feed.Items.size()) feeds_.erase(feeds_.begin());
  workspace_.Lists[list].AddFound(items);
}

std::string FoundLists::ShowInPane() {
  if (workspace_.Lists.Find(workspace_.ActiveList) == nullptr) return NoPaneIsOpen;
  const lister::ListRows& rows = std::as_const(workspace_.Lists.Found()).Rows();
  const std::string path = rows.PathOf(rows.CurrentRow());
  if (path.empty()) return "Choose an item of the list first.";
  const std::string folder = files_.Syntax().ParentOf(path);
  if (!files_.FolderExists(folder)) {
    return "The folder " + base::ForDisplay(folder) + " is no longer there.";
  }
  const int pane = lister::PaneOf(workspace_.ActiveList);
  lister::ListerControl& files = workspace_.Lists.Files(pane);
  if (files.ShowsFound() || !files_.Syntax().Same(files.CurrentFolder(), folder)) {
    navigation_.OpenOnDrive(lister::FolderListOf(pane), drives_.DriveOf(folder), folder);
  }
  files.TakeFocus();
  files.PlaceCursor({{.From = "", .To = path}}, [] { return true; });
  return "";
}

std::string FoundLists::ListInPane() {
  if (workspace_.Lists.Find(workspace_.ActiveList) == nullptr) return NoPaneIsOpen;
  const lister::ListId list = lister::FileListOf(lister::PaneOf(workspace_.ActiveList));
  const lister::ListerControl& found = workspace_.Lists.Found();
  std::vector<platform::FoundItem> items = found.FoundItems();
  // With those that are on their way still.
  const auto feed = std::ranges::find(feeds_, lister::FoundList, &Feed::List);
  if (feed != feeds_.end()) {
    items.insert(items.end(), feed->Items.begin() + static_cast<std::ptrdiff_t>(feed->Done),
                 feed->Items.end());
  }
  Drop(list);
  workspace_.Lists[list].ShowFound(found.CurrentFolder());
  if (!items.empty()) Send(list, std::move(items));
  workspace_.Lists[list].TakeFocus();
  return "";
}

}  // namespace tarnwell::tools
