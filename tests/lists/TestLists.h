// Panes with the program's side of their lists.
#pragma once

#include "lists/ListEventHandler.h"
#include "lists/Navigation.h"
#include "workspace/TestWorkspace.h"

namespace tarnwell::lists {

class TestLists : public workspace::TestWorkspace {
 public:
  explicit TestLists(SharedPlatform platform = std::make_shared<fakes::FakePlatform>())
      : TestWorkspace(std::move(platform)),
        Nav(Space, Platform.Files.Syntax(), Host),
        Handler(Space, Layout, Nav, Messages,
                {.Close = [this] { ++Closed; },
                 .CreateNewFolder = [] {},
                 .ShowContextMenu =
                     [this](float x, float y, const std::string& clicked, const std::string& path) {
                       if (OnContextMenu) OnContextMenu(x, y, clicked, path);
                     },
                 .DropItems =
                     [this](lister::ListId list, const auto& drop) {
                       if (OnDrop) OnDrop(list, drop);
                     }}) {}

  lister::ListerEvents& EventsOf() override {
    return Connected ? Handler : TestWorkspace::EventsOf();
  }
  // Makes the folder and the pane's lists; the folder is the one last open on its drive.
  void SetUpPane(int pane, const std::string& folder) {
    Platform.Files.AddFolder(folder);
    Space.Lists.Create(pane);
    Pane(pane).Initialized = true;
    Pane(pane).InitialDrive = folder.substr(0, 1);
    Space.Lists.Folders(pane).SetDriveFolder(Pane(pane).InitialDrive, folder);
  }
  void OpenPane(int pane, const std::string& folder) {
    SetUpPane(pane, folder);
    Nav.LoadFolders(pane);
  }
  // A space ends the function's number, a semicolon each item.
  static std::string InOneLine(const platform::OperationRequest& request) {
    std::string text = std::to_string(static_cast<int>(request.Function)) + " " + request.Items +
                       "> " + request.Destination;
    std::ranges::replace(text, '\0', ';');
    return text;
  }
  void Select(lister::ListId list, const std::string& name) {
    Space.Lists[list].Rows().MoveCurrent(Row(list, name));
    Space.Lists[list].SpaceKey();
  }
  lister::RowId Row(lister::ListId list, const std::string& name) {
    const lister::ListerControl& control = Space.Lists[list];
    for (int at = 0; at < control.Rows().ChildCount(lister::RootRow); ++at) {
      const lister::RowId row = control.Rows().Child(lister::RootRow, at);
      if (control.Rows().CellText(row, lister::HeadingId::Name) == name) return row;
    }
    return lister::NoRow;
  }

  Navigation Nav;
  ListEventHandler Handler;
  std::function<void(float x, float y, const std::string& clicked, const std::string& path)>
      OnContextMenu;
  int Closed = 0;
  std::function<void(lister::ListId, const lister::Drop&)> OnDrop;
  bool Connected = true;  // somebody hears what lists tell that are made from now on
};

}  // namespace tarnwell::lists
