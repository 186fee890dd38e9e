// A list in its widget over the in-memory platform, and hands to use it with.
#pragma once

#include "lister/ListFixture.h"
#include "ui/TestApplication.h"
#include "ui/list/ListerModel.h"
#include "ui/list/ListerRow.h"
#include "ui/list/ListerWidget.h"

namespace tarnwell::ui {

using lister::RowId;
using lister::Texts;

class ListerWidgetTest : public testing::Test {
 protected:
  ListerWidgetTest() {
    TestApplication();
    for (const char* folder : {"/a/b/c", "/d/e", "/f", "/media/disk/g"}) {
      Platform.Files.AddFolder(folder);
    }
    for (const char* file : {"/d/one.txt", "/d/three.txt", "/d/two.txt"}) {
      Platform.Files.AddFile(file);
    }
    Platform.Drives.Volumes.push_back({"/media/disk", "Disk"});
  }

  struct List {
    List(ListerWidgetTest& test, lister::ListId id)
        : Control(id, test.Services, test.Events), Widget(Control, test.Icons, &Window) {
      test.Events.Answers = &Control;
      Control.AddSortKey(0, "sName", "asc");
      Control.Initialize();
      Widget.resize(400, 300);
      Tree = Widget.findChild<QTreeView*>();
      Header = Tree->header();
    }
    ~List() { Control.Terminate(); }

    RowId Row(const std::string& path, RowId above = lister::RootRow) const {
      for (int i = 0; i < Control.Rows().ChildCount(above); ++i) {
        const RowId row = Control.Rows().Child(above, i);
        if (Control.Rows().PathOf(row) == path) return row;
        const RowId below = Row(path, row);
        if (below != lister::NoRow) return below;
      }
      return lister::NoRow;
    }
    QModelIndex Index(const std::string& path) const {
      return static_cast<ListerModel*>(Tree->model())->IndexOf(Row(path));
    }
    std::string PathAt(const QModelIndex& index) const {
      return Control.Rows().PathOf(ListerModel::RowOf(index));
    }
    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const char* text = "",
               bool repeated = false) {
      PressKey(*Tree, key, modifiers, text, repeated);
    }
    void Show(std::string folder) {
      Window.resize(400, 300);
      Window.show();
      if (lister::IsFileList(Control.Id())) Control.LoadFolderContents(folder, true);
      if (!lister::IsFileList(Control.Id())) Control.LoadDrive(folder, false);
      Settle();
    }
    // A place in the row: in the gap, or pixels from the left.
    QPoint Gap(const std::string& path) const {
      const QRect cell = Tree->visualRect(Index(path));
      return PartsOfName(cell, Tree->iconSize().width(), true).Gap.center();
    }
    QPoint At(const std::string& path, int x) const { return {x, Gap(path).y()}; }
    void Mouse(QEvent::Type type, QPoint place, Qt::MouseButton button = Qt::LeftButton) {
      SendMouse(*Tree->viewport(), type, place, button);
      Settle();
    }
    void Click(QPoint place) {
      Mouse(QEvent::MouseButtonPress, place);
      Mouse(QEvent::MouseButtonRelease, place);
    }
    std::string Selected() const {
      std::string names;
      for (int at = 0; at < Control.Rows().ChildCount(lister::RootRow); ++at) {
        const RowId row = Control.Rows().Child(lister::RootRow, at);
        if (!Control.Rows().StateOf(row).IsSelected) continue;
        names += Control.Rows().CellText(row, lister::HeadingId::Name) + " ";
      }
      return names;
    }

    lister::ListerControl Control;
    QWidget Window;
    ListerWidget Widget;
    QTreeView* Tree;
    QHeaderView* Header;
  };

  fakes::FakePlatform Platform{base::PathSyntax::Posix()};
  lister::ListServices Services = Platform.Services();
  lister::EventRecord Events;
  IconSource Icons{QStringLiteral(TARNWELL_TESTS "/../data")};
};

}  // namespace tarnwell::ui
