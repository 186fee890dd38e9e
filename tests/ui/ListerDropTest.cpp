#include "ui/ListerFixture.h"
#include "ui/list/ListerDrop.h"
#include "ui/toolkit/FileUris.h"

namespace tarnwell::ui {

class ListerDropTest : public ListerWidgetTest {
 protected:
  static constexpr Qt::DropActions All = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;

  // What the pointer shows there: "copy", "move" or, where a drop is refused, "".
  template <typename Event>
  std::string Send(List& list, QPoint place, Qt::KeyboardModifiers held = Qt::NoModifier,
                   Qt::DropActions possible = All) {
    Event event(place, possible, Data.get(), Qt::LeftButton, held);
    QApplication::sendEvent(Over != nullptr ? Over : list.Tree->viewport(), &event);
    return !event.isAccepted() ? "" : event.dropAction() == Qt::MoveAction ? "move" : "copy";
  }
  std::string Enter(List& list, QPoint place) {
    const std::string entered = Send<QDragEnterEvent>(list, place);
    return entered.empty() ? "deaf" : Send<QDragMoveEvent>(list, place);
  }
  void Leave(List& list) {
    QDragLeaveEvent event;
    QApplication::sendEvent(list.Tree->viewport(), &event);
  }
  std::string Drop(List& list, QPoint place, Qt::KeyboardModifiers held, Qt::DropActions possible) {
    QDropEvent event(place, possible, Data.get(), Qt::LeftButton, held);
    QApplication::sendEvent(list.Tree->viewport(), &event);
    EXPECT_EQ(list.Control.DropFolder(), "");  // nothing is done while the other program waits
    Settle();
    return !event.isAccepted()                      ? "refused"
           : event.dropAction() == Qt::IgnoreAction ? "unsaid"
           : event.dropAction() == Qt::CopyAction   ? list.Control.DropFolder()
                                                    : "lost";
  }
  QPoint On(const List& list, const std::string& path) {
    return list.Tree->visualRect(list.Index(path)).center();
  }
  template <typename Condition>
  static bool Comes(int milliseconds, Condition condition) {
    QElapsedTimer timer;
    timer.start();
    while (!condition() && timer.elapsed() < milliseconds) QApplication::processEvents();
    return condition();
  }
  bool Marked(const List& list, const std::string& path) {
    return list.Control.Rows().StateOf(list.Row(path)).IsTarget;
  }
  void Carry(const std::string& items) { Data = MimeDataOf(items); }

  std::unique_ptr<QMimeData> Data;
  QWidget* Over = nullptr;  // in place of the rows
};

TEST_F(ListerDropTest, MarksWhatTakesTheDropAndTellsByTheKeys) {
  List files(*this, lister::FileListOf(0));
  files.Show("/d");
  const QPoint folder = On(files, "/d/e"), below(50, files.Tree->viewport()->height() - 30);
  Carry(std::string("/x/1\0/x/2\0", 10));
  EXPECT_EQ(Enter(files, folder), "copy");
  EXPECT_TRUE(Marked(files, "/d/e"));
  EXPECT_EQ(Send<QDragMoveEvent>(files, folder, Qt::ShiftModifier), "move");
  EXPECT_EQ(Send<QDragMoveEvent>(files, below, Qt::ControlModifier), "copy");
  EXPECT_FALSE(Marked(files, "/d/e"));
  EXPECT_TRUE(files.Control.Shown().DragGraphicsOn);
  files.Control.MouseLocked = true;
  EXPECT_EQ(Send<QDragMoveEvent>(files, below), "");
  EXPECT_FALSE(files.Control.Shown().DragGraphicsOn);
  files.Control.MouseLocked = false;
  QDialog modal;
  modal.setModal(true);
  modal.show();
  EXPECT_EQ(Send<QDragMoveEvent>(files, below), "");
  modal.hide();
  Send<QDragMoveEvent>(files, folder);
  Leave(files);
  EXPECT_FALSE(Marked(files, "/d/e") || files.Control.Shown().DragGraphicsOn);

  Carry(std::string("/d/e\0/d/one.txt\0", 16));
  EXPECT_EQ(Enter(files, folder), "");
  EXPECT_EQ(Send<QDragMoveEvent>(files, below), "");
  EXPECT_EQ(Send<QDragMoveEvent>(files, below, Qt::ControlModifier), "copy");
  Leave(files);
  Data = std::make_unique<QMimeData>();
  Data->setText("/x/1");
  EXPECT_EQ(Enter(files, folder), "deaf");

  List tree(*this, lister::FolderListOf(0));
  tree.Show("/");
  Carry(std::string("/d/e\0", 5));
  EXPECT_EQ(Enter(tree, On(tree, "/f")), "copy");
  EXPECT_EQ(Send<QDragMoveEvent>(tree, QPoint(50, 250)), "");
  EXPECT_FALSE(tree.Control.Shown().DragGraphicsOn);
  List empty(*this, lister::FileListOf(1));
  EXPECT_EQ(Enter(empty, QPoint(50, 50)), "");
}

TEST_F(ListerDropTest, DropsAfterTheEventAndNeverSaysMove) {
  List files(*this, lister::FileListOf(0));
  files.Show("/d");
  Carry(std::string("/x/\xFF 1\0", 7));
  const QPoint folder = On(files, "/d/e"), below(50, files.Tree->viewport()->height() - 30);
  struct Case {
    QPoint Place;
    Qt::KeyboardModifiers Held;
    Qt::DropActions Possible;
    const char *Folder, *Action;
  };
  for (const Case& each : {Case{folder, Qt::NoModifier, All, "/d/e/", ""},
                           {below, Qt::ShiftModifier, All, "/d/", "move"},
                           {below, Qt::ControlModifier, All, "/d/", "copy"},
                           {folder, Qt::ShiftModifier, Qt::MoveAction, "unsaid", "move"}}) {
    files.Control.EndDrop();
    Enter(files, each.Place);
    Events.Dropped = {};
    EXPECT_EQ(Drop(files, each.Place, each.Held, each.Possible), each.Folder);
    EXPECT_EQ(Events.Dropped.Action, each.Action);
    EXPECT_EQ(Events.Dropped.Items, std::string("/x/\xFF 1\0", 7));
    EXPECT_EQ(Events.Dropped.SourceText, "/x/\xFF 1");
    EXPECT_EQ(Events.Dropped.Source, lister::NoList);
    EXPECT_FALSE(files.Control.Shown().DragGraphicsOn);
  }
  files.Control.EndDrop();
  Carry(std::string("/d/one.txt\0", 11));
  Enter(files, below);
  EXPECT_EQ(Drop(files, below, Qt::NoModifier, All), "refused");
}

TEST_F(ListerDropTest, OpensWhatADragRestsOnAndScrolls) {
  List tree(*this, lister::FolderListOf(0));
  tree.Show("/");
  Carry(std::string("/d/e\0", 5));
  const auto isExpanded = [&] { return tree.Tree->isExpanded(tree.Index("/a")); };
  Enter(tree, On(tree, "/a"));
  Leave(tree);
  EXPECT_FALSE(Comes(900, isExpanded));
  Enter(tree, On(tree, "/a"));
  EXPECT_TRUE(Comes(2000, isExpanded));
  Leave(tree);

  List files(*this, lister::FileListOf(0));
  for (int i = 0; i < 40; ++i) Platform.Files.AddFile("/d/file" + std::to_string(i));
  files.Show("/d");
  Events.Take();
  Enter(files, On(files, "/d/e"));  // what is dragged itself does not open
  EXPECT_FALSE(Comes(1400, [&] { return !Events.Told.empty(); }));
  Send<QDragMoveEvent>(files, QPoint(50, files.Tree->viewport()->height() - 2));
  EXPECT_TRUE(Comes(2000, [&] { return files.Tree->verticalScrollBar()->value() > 2; }));
  Leave(files);
  files.Tree->verticalScrollBar()->setValue(0);
  Carry(std::string("/x\0", 3));
  Enter(files, On(files, "/d/e"));
  EXPECT_TRUE(
      Comes(3000, [&] { return Events.Told == lister::Texts{"OpenChildFolder /d/e in /d"}; }));
  Leave(files);
  Events.Take();
  for (QToolButton* button : files.Widget.findChildren<QToolButton*>()) {
    if (button->accessibleName().startsWith("Up ")) Over = button;
  }
  EXPECT_EQ(Enter(files, QPoint(5, 5)), "");
  EXPECT_TRUE(Comes(3000, [&] { return Events.Told == lister::Texts{"UpFolderButton"}; }));
}

}  // namespace tarnwell::ui
