// The context menu over panes and a platform in memory.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "lister/list/ListInput.h"
#include "lists/TestLists.h"
#include "shellmenu/ShowShellMenu.h"

namespace tarnwell::shellmenu {

// Pane 1 shows the folder Data with the files a.txt, b.txt, c.txt and a folder, pane 2 the folder
// Other beside it with the file o.
struct MenuRun : lists::TestLists {
  explicit MenuRun(const base::PathSyntax& syntax = base::PathSyntax::Windows(),
                   const std::string& data = "C:\\Data")
      : TestLists(std::make_shared<fakes::FakePlatform>(syntax)) {
    const std::string other = syntax.Join(syntax.ParentOf(data), "Other");
    for (const char* file : {"a.txt", "b.txt", "c.txt"}) {
      Platform.Files.AddFile(syntax.Join(data, file));
    }
    Platform.Files.AddFile(syntax.Join(other, "o"));
    Platform.Files.AddFolder(syntax.Join(data, "Sub"));
    OpenPane(0, data);
    OpenPane(1, other);
    Space.CurrentList = Space.EnteredList = 100;
    Space.Form.MenuImages.DrawImages(true);
    Space.Form.MenuImages.TakeImages(Space.Form.ImageList1);
    Space.Form.MenuImages.Attach();
    Space.Form.Menus["mnuHidden"].Image = 0;
    Watched = Platform.Watches.Watched().size();
    OnContextMenu = [this](float x, float y, const std::string& clicked, const std::string& path) {
      Menu.ShowForClick(x, y, clicked, path);
    };
    Host.OnModal = [this](forms::Form& form) { Dialogs.push_back(form.Name()); };
  }

  std::string Picture() {
    return std::string(Space.Form.MenuImages.ImageOf(Space.Form.Menus["mnuHidden"]));
  }
  // The lists follow their folders, no row is marked, and menus have their pictures.
  bool IsOver() {
    bool marked = false;
    Space.ForEachList([&](lister::ListerControl& list) {
      for (int at = 0; at < list.Rows().ChildCount(lister::RootRow); ++at) {
        marked = marked || list.Rows().StateOf(list.Rows().Child(lister::RootRow, at)).IsTarget;
      }
    });
    return !marked && Platform.Watches.Watched().size() == Watched && !Picture().empty();
  }
  void Select(const std::vector<std::string>& names) {
    Space.Lists[100].SelectAll("none");
    for (const std::string& name : names) TestLists::Select(100, name);
  }
  void Click(lister::ListId list, const std::string& name) {
    const lister::RowId row = Row(list, name);
    const bool none = row == lister::NoRow;
    lister::ListerControl& control = Space.Lists[list];
    const lister::RowPointer at{row,
                                none ? 99 : control.Rows().PositionOf(row),
                                none ? lister::RowPart::None : lister::RowPart::Item,
                                {2, 0, 15, 30}};
    control.Input().MouseDown(at);
    control.Input().MouseUp(at);
  }
  void Choose(const std::string& name, const std::string& caption, lister::ListId list = 100) {
    Popups.Choice = caption;
    Click(list, name);
    Popups.Choice.clear();
  }

  fakes::FakePopupMenus& Popups = Platform.Popups;
  const base::PathSyntax& Syntax = Platform.Files.Syntax();
  std::vector<std::string> Dialogs;  // that were shown
  std::function<void()> CommandLine = [] {};
  std::size_t Watched = 0;

  fileops::DialogFields Fields;
  fileops::NewFolder NewFolder{Space, Platform.Files, Host, Messages, Fields};
  fileops::RenameCommand Rename{Space, Platform.Files, Platform.Operation, Host, Messages, Fields};
  fileops::DuplicateCommand Duplicate{Platform.Files, Platform.Operation, Platform.Clock, Host,
                                      Messages};
  fileops::FileOperations Operations{Space, Syntax, Platform.Operation, Nav, Messages, Fields};
  fileops::DeleteCommand Delete{
      Space,      Syntax, Platform.Operation,
      Operations, Nav,    Host,
      Messages,   Fields, [this] {
        Menu.ShowShellMenu(0, 0, "", MenuMode::Delete); }};
  ContextMenuCommand Menu{Space,
                          {Syntax, Platform.Drives, Platform.ItemMenus, Popups, Platform.Forms},
                          Messages,
                          {NewFolder, Rename, Duplicate, Operations, Delete, Platform.Launcher,
                           [this] { CommandLine(); }}};
};

class ContextMenuTest : public testing::Test, public MenuRun {};

}  // namespace tarnwell::shellmenu
