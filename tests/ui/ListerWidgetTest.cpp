#include <gtest/gtest.h>

#include <QAccessible>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollBar>
#include <QTreeView>
#include <QWheelEvent>

#include "fakes/FakePlatform.h"
#include "ui/Convert.h"
#include "ui/ListerModel.h"
#include "ui/ListerWidget.h"
#include "ui/TestApplication.h"

namespace tarnwell::ui {
namespace {

using lister::RowId;

struct Heard : lister::ListerEvents {
  std::vector<lister::ListId> Folders, Drives;
  void FolderSelected(lister::ListId list) override { Folders.push_back(list); }
  void DriveSelected(lister::ListId list) override { Drives.push_back(list); }
};

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
        : Control(id, test.Services, test.Events), Widget(Control, test.Icons) {
      Control.AddSortKey(0, "sName", "asc");
      Control.Initialize();
      Widget.resize(400, 300);
      Tree = Widget.findChild<QTreeView*>();
      Header = Tree->header();
    }
    ~List() { Control.Terminate(); }

    RowId Row(const std::string& path, RowId above = lister::RootRow) const {
      for (int i = 0; i < Control.ChildCount(above); ++i) {
        const RowId row = Control.Child(above, i);
        if (Control.PathOf(row) == path) return row;
        const RowId below = Row(path, row);
        if (below != lister::NoRow) return below;
      }
      return lister::NoRow;
    }
    QModelIndex Index(const std::string& path) const {
      return static_cast<ListerModel*>(Tree->model())->IndexOf(Row(path));
    }
    std::string PathAt(const QModelIndex& index) const {
      return Control.PathOf(ListerModel::RowOf(index));
    }
    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
      QKeyEvent event(QEvent::KeyPress, key, modifiers);
      QApplication::sendEvent(Tree, &event);
    }

    lister::ListerControl Control;
    ListerWidget Widget;
    QTreeView* Tree;
    QHeaderView* Header;
  };

  static void Settle() {
    for (int i = 0; i < 5; ++i) QApplication::processEvents();
  }

  fakes::FakePlatform Platform{base::PathSyntax::Posix()};
  lister::ListerServices Services = Platform.Services();
  Heard Events;
  IconSource Icons{QStringLiteral(TARNWELL_TESTS "/../data")};
};

TEST_F(ListerWidgetTest, BranchesFollowTheControlAndTheUser) {
  List list(*this, 0);
  std::string drive = "/";
  list.Control.LoadDrive(drive, false);
  ASSERT_TRUE(list.Tree->isExpanded(list.Index("/")));
  EXPECT_TRUE(list.Tree->model()->hasChildren(list.Index("/a")));  // not read yet

  list.Tree->expand(list.Index("/a"));
  Settle();
  EXPECT_TRUE(list.Control.Look(list.Row("/a")).IsExpanded);
  EXPECT_EQ(list.Tree->model()->rowCount(list.Index("/a")), 1);

  list.Control.ExpandFolder(0, "/a/b", 1);
  EXPECT_TRUE(list.Tree->isExpanded(list.Index("/a/b")));
  list.Control.Collapse(list.Row("/a"));
  EXPECT_FALSE(list.Tree->isExpanded(list.Index("/a")));
  Settle();
  EXPECT_FALSE(list.Control.Look(list.Row("/a")).IsExpanded);

  list.Control.Expand(list.Row("/a"));
  list.Control.RefreshList();
  Settle();
  EXPECT_TRUE(list.Tree->isExpanded(list.Index("/a")));
  EXPECT_TRUE(list.Tree->isExpanded(list.Index("/a/b")));

  list.Tree->expand(list.Index("/f"));  // empty
  Settle();
  EXPECT_FALSE(list.Tree->model()->hasChildren(list.Index("/f")));
  Platform.Files.At("/d").ReadFault = fakes::MemoryFileSystem::Denied();
  list.Tree->expand(list.Index("/d"));
  Settle();
  EXPECT_FALSE(list.Tree->isExpanded(list.Index("/d")));
}

TEST_F(ListerWidgetTest, SortKeepsCursorAndSelectionOnTheirItems) {
  List list(*this, 100);
  std::string folder = "/d";
  list.Control.LoadFolderContents(folder, true);
  Settle();
  list.Tree->setCurrentIndex(list.Index("/d/one.txt"));
  list.Tree->selectionModel()->select(list.Index("/d/three.txt"),
                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
  Settle();
  EXPECT_EQ(list.Control.PathOf(list.Control.CurrentRow()), "/d/one.txt");

  const int before = list.Index("/d/one.txt").row();
  list.Control.ClickHeading(0);
  list.Control.SortCommand("des");
  EXPECT_NE(list.Index("/d/one.txt").row(), before);
  EXPECT_EQ(list.Tree->currentIndex(), list.Index("/d/one.txt"));
  EXPECT_TRUE(list.Tree->selectionModel()->isSelected(list.Index("/d/one.txt")));
  EXPECT_TRUE(list.Tree->selectionModel()->isSelected(list.Index("/d/three.txt")));
  EXPECT_FALSE(list.Tree->selectionModel()->isSelected(list.Index("/d/two.txt")));
}

TEST_F(ListerWidgetTest, RefreshKeepsScrollSelectionAndCursor) {
  const auto path = [](int number) { return "/many/f" + std::to_string(1000 + number); };
  for (int number = 0; number < 500; ++number) Platform.Files.AddFile(path(number));
  List list(*this, 100);
  list.Widget.show();
  std::string folder = "/many";
  list.Control.LoadFolderContents(folder, true);
  Settle();
  list.Tree->setCurrentIndex(list.Index(path(200)));
  for (int count = 0; count < 5; ++count) list.Press(Qt::Key_Down, Qt::ShiftModifier);
  Settle();
  list.Tree->verticalScrollBar()->setValue(300);
  // One file above what is in sight, a few of those selected and many everywhere.
  for (const int step : {0, 0, 1, 2}) {
    if (step == 0) Platform.Files.AddFile("/many/a" + std::to_string(step));
    if (step == 1) Platform.Files.Remove(path(202));
    for (int number = 0; step == 2 && number < 500; number += 3) {
      if (number == 300) continue;
      Platform.Files.AddFile(path(number) + "x");
      if (number > 210) Platform.Files.Remove(path(number));
    }
    Platform.Watches.Notify("/many");
    Settle();
    EXPECT_EQ(list.PathAt(list.Tree->indexAt(QPoint(1, 1))), path(300)) << step;
    EXPECT_EQ(list.PathAt(list.Tree->currentIndex()), path(205)) << step;
    EXPECT_EQ(list.Tree->selectionModel()->selectedRows().size(), step == 0 ? 6 : 5);
  }
  // A list at its top stays there.
  list.Tree->verticalScrollBar()->setValue(0);
  Platform.Files.AddFile("/many/0");
  Platform.Watches.Notify("/many");
  EXPECT_EQ(list.PathAt(list.Tree->indexAt(QPoint(1, 1))), "/many/0");
}

TEST_F(ListerWidgetTest, ReadsAgainWhatChangedWhileItWasRead) {
  List list(*this, 100);
  Platform.Clock.TickStep = 60;
  Platform.Pump.Post([&] {
    Platform.Files.AddFile("/d/late.txt");
    Platform.Watches.Notify("/d");
  });
  std::string folder = "/d";
  list.Control.LoadFolderContents(folder, true);
  Platform.Clock.TickStep = 0;
  EXPECT_EQ(list.Row("/d/late.txt"), lister::NoRow);
  const QDeadlineTimer limit(10000);
  while (list.Row("/d/late.txt") == lister::NoRow && !limit.hasExpired()) Settle();
  EXPECT_NE(list.Row("/d/late.txt"), lister::NoRow);
}

TEST_F(ListerWidgetTest, HeadingsGoBothWaysWithoutEchoes) {
  List list(*this, 100);
  const auto same = [&] {
    for (int heading = 0; heading < lister::HeadingCount; ++heading) {
      const lister::Heading& entry =
          list.Control.HeadingTable()[static_cast<lister::HeadingId>(heading)];
      EXPECT_EQ(entry.Index, list.Header->visualIndex(heading)) << heading;
      EXPECT_EQ(entry.Active, !list.Header->isSectionHidden(heading)) << heading;
      if (!entry.Active) continue;
      EXPECT_EQ(ToPixels(entry.Width), list.Header->sectionSize(heading)) << heading;
    }
  };
  same();
  list.Header->resizeSection(0, 123);
  EXPECT_EQ(list.Control.HeadingTable()[lister::HeadingId::Name].Width, 123 * 15);
  list.Header->resizeSection(1, 1);
  same();
  list.Header->moveSection(list.Header->visualIndex(3), 0);  // others move up by one
  EXPECT_EQ(list.Control.HeadingTable()[lister::HeadingId::DateLastModified].Index, 0);
  EXPECT_EQ(list.Control.HeadingTable()[lister::HeadingId::Name].Index, 1);
  same();
  list.Control.SetHeadingProperty(2, "Index", base::Value(std::int32_t{0}));
  list.Control.SetHeadingProperty(4, "active", base::Value(true));
  list.Control.SetHeadingProperty(3, "Width", base::Value(std::int32_t{100}));
  list.Control.SetHeadingProperty(2, "Width", base::Value(std::int32_t{2147483647}));
  same();
}

TEST_F(ListerWidgetTest, TheNewestCursorReachesTheControlOnceAndOutlivesItsRows) {
  List list(*this, 0);
  std::string drive = "/";
  list.Control.LoadDrive(drive, false);
  Settle();
  Events.Folders.clear();
  list.Tree->setCurrentIndex(list.Index("/a"));
  list.Tree->setCurrentIndex(list.Index("/d"));
  EXPECT_TRUE(Events.Folders.empty());  // never from inside the view
  Settle();
  EXPECT_EQ(Events.Folders.size(), 1U);
  EXPECT_EQ(list.Control.CurrentFolder(), "/d");

  // The user's last word stands, whatever the list opens before it hears of it.
  list.Tree->setCurrentIndex(list.Index("/a"));
  list.Control.OpenFolder(0, "/media");
  EXPECT_EQ(list.Tree->currentIndex(), list.Index("/a"));
  Settle();
  EXPECT_EQ(list.Control.CurrentFolder(), "/a");
  list.Control.OpenFolder(0, "/d");
  EXPECT_EQ(list.Tree->currentIndex(), list.Index("/d"));

  // The row goes before its turn comes.
  list.Tree->setCurrentIndex(list.Index("/f"));
  Platform.Files.Remove("/f");
  list.Control.RefreshList();
  Settle();
  EXPECT_EQ(list.Control.CurrentFolder(), "/d");
  EXPECT_EQ(list.PathAt(list.Tree->currentIndex()), "/d");

  // All rows change while the control reads for the cursor, and further keys come meanwhile.
  Platform.Clock.TickStep = 1000;
  int messages = 0;
  for (int i = 0; i < 3; ++i) {
    Platform.Pump.Post([&] {
      ++messages;
      list.Control.RefreshList();
      list.Press(Qt::Key_Up);
      list.Press(Qt::Key_Return);
      QApplication::processEvents();
    });
  }
  list.Tree->setCurrentIndex(list.Index("/media"));
  list.Press(Qt::Key_Return);
  Settle();
  EXPECT_EQ(messages, 3);
  EXPECT_EQ(ListerModel::RowOf(list.Tree->currentIndex()), list.Control.CurrentRow());
  EXPECT_NE(list.Control.CurrentRow(), lister::NoRow);
}

TEST_F(ListerWidgetTest, DrivesAndStatus) {
  List list(*this, 0);
  std::string drive = "/";
  list.Control.LoadDrive(drive, false);
  const auto* drives = list.Widget.findChild<QComboBox*>();
  const QAccessibleInterface* access =
      QAccessible::queryAccessibleInterface(const_cast<QComboBox*>(drives));
  EXPECT_EQ(access->text(QAccessible::Name), "Drives of pane 1");
  EXPECT_EQ(access->text(QAccessible::Value), "System");
  EXPECT_EQ(list.Tree->accessibleName(), "Folders of pane 1");
  ASSERT_EQ(drives->count(), 2);
  EXPECT_EQ(drives->currentText(), "System");
  Events.Drives.clear();
  emit const_cast<QComboBox*>(drives)->activated(1);
  Settle();
  EXPECT_EQ(Events.Drives.size(), 1U);
  EXPECT_EQ(drives->currentText(), "Disk");
  EXPECT_EQ(drives->toolTip(), "/media/disk");

  // The wheel over the closed list is not for it.
  QWheelEvent wheel({5, 5}, drives->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(const_cast<QComboBox*>(drives), &wheel);
  Settle();
  EXPECT_EQ(Events.Drives.size(), 1U);

  // A drive whose volume has gone is shown by its path, and not as another one.
  Platform.Drives.Volumes.pop_back();
  list.Control.View->DrivesChanged();
  EXPECT_EQ(drives->currentText(), "/media/disk");
  EXPECT_EQ(drives->count(), 2);
  Platform.Drives.Volumes.push_back({"/media/disk", "Disk"});
  list.Control.View->DrivesChanged();
  EXPECT_EQ(drives->currentText(), "Disk");

  const std::string text(300, 'x');
  list.Control.ShowStatus(text + "\n<b>\xFF");
  const auto* status = list.Widget.findChild<QLabel*>();
  EXPECT_LT(status->text().size(), 300);
  EXPECT_EQ(status->accessibleDescription(), ToQString(text) + QString::fromUtf8("␊<b>\uFFFD"));
  EXPECT_TRUE(status->toolTip().contains("&lt;b&gt;"));
  EXPECT_EQ(status->accessibleName(), "Status of folders of pane 1");
}

}  // namespace
}  // namespace tarnwell::ui
