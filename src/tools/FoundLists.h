// Hands what was found to the lists that show it, some thousands of items at a time, so that the
// window stays at hand in between.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "lists/Navigation.h"
#include "platform/FileSearch.h"
#include "platform/FileSystem.h"
#include "workspace/Workspace.h"

namespace tarnwell::tools {

class FoundLists {
 public:
  FoundLists(workspace::Workspace& workspace, lists::Navigation& navigation,
             const platform::FileSystem& files, const platform::Drives& drives)
      : workspace_(workspace), navigation_(navigation), files_(files), drives_(drives) {}

  // The folder on show in the active pane; empty where there is none.
  std::string OpenFolder() const;
  // Whether the active pane shows hidden items.
  bool ShowsHidden() const;

  // The list of the window shows what is found below the folder from now on, nothing yet.
  void Begin(const std::string& folder);
  void Take(std::vector<platform::FoundItem> items);
  // The list of the window shows nothing any more, and keeps nothing.
  void Clear();
  bool AnyFound() const { return anyFound_; }  // since Begin

  // Whether ShowSome has something to do.
  bool HasMore() const { return !feeds_.empty(); }
  void ShowSome();

  // The active pane goes to the folder of the item under the cursor, with its own cursor on that.
  // Why it cannot, in a sentence; empty where it can.
  std::string ShowInPane();
  // The file list of the active pane shows all that was found so far, until it goes elsewhere.
  std::string ListInPane();

 private:
  // Items on their way to a list.
  struct Feed {
    lister::ListId List = lister::NoList;
    std::vector<platform::FoundItem> Items;
    std::size_t Done = 0;
  };

  void Send(lister::ListId list, std::vector<platform::FoundItem> items);
  void Drop(lister::ListId list);

  workspace::Workspace& workspace_;
  lists::Navigation& navigation_;
  const platform::FileSystem& files_;
  const platform::Drives& drives_;
  std::vector<Feed> feeds_;
  bool anyFound_ = false;
};

}  // namespace tarnwell::tools
