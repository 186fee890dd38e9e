// What the user does in the widget of a list besides rows and headings: the choice of drive, the
// toolbar, and drags that come over the list.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "lister/list/ListerEvents.h"
#include "lister/rows/ListerView.h"
#include "lister/rows/NameFilter.h"
#include "platform/FileSystem.h"

namespace tarnwell::lister {

class ListBody;
struct ListState;

class ListerUser {
 public:
  ListerUser(ListState& list, ListBody& body) : list_(list), body_(body) {}

  std::vector<platform::Drive> Drives() const;
  void ChooseDrive(const std::string& drive);

  // `*` stands for any run of characters, `?` for one, `#` for a digit; case does not count. Text
  // without them filters by what names contain. Empty shows all.
  void SetFilterText(const std::string& text);
  void SetExtensionFilter(const std::string& extension);  // bytes, lower case; empty for all
  std::vector<ExtensionChoice> ExtensionChoices() const;
  void UpButton();
  void NewFolderButton();

  // The folder that takes what is dropped on the row, or on empty space; empty for none.
  std::string DropTarget(RowId row) const;
  // Whether the items may be dropped into the folder. Items and action as a Drop has them.
  bool TakesDrop(const std::string& folder, const std::string& items,
                 std::string_view action) const;
  // What is dragged lies over the row, or over empty space, and may be dropped there.
  void DragOver(RowId row);
  void DragLeft();
  // `folder`: the DropTarget of the place as the button came up. A drop without a text for showing
  // gets one.
  void DropOn(const std::string& folder, Drop drop);

 private:
  ListState& list_;
  ListBody& body_;
};

}  // namespace tarnwell::lister
