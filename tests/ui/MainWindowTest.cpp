#include "TestApplication.h"
#include "shell/TestRun.h"
#include "ui/list/ListerRow.h"
#include "ui/main/MainWindow.h"

namespace tarnwell::ui {
namespace {

// Counts the events of these types that reach the widgets.
struct EventCount : QObject {
  template <typename Widgets>
  EventCount(const Widgets& widgets, std::set<QEvent::Type> types) : Types(std::move(types)) {
    for (QWidget* const widget : widgets) widget->installEventFilter(this);
  }
  bool eventFilter(QObject*, QEvent* event) override {
    if (Types.count(event->type()) != 0) ++Count;
    return false;
  }
  std::set<QEvent::Type> Types;
  int Count = 0;
};

// The whole program over the platform in memory, in its real window: two columns.
class MainWindowTest : public testing::Test {
 protected:
  MainWindowTest() {
    Machine.Files.AddFile("C:\\Tarnwell\\user.usr",
                          "\"ProgramPosition\",300,450,15000,9000,0\r\n\"Layout\",0,0,0,0,0\r\n"
                          "\"Status\",0,0,1,1,1\r\n");
    Run.Start();
    Run.Form().View = &Window;
    Window.Sync();
    Window.Show(nullptr);
    Settle();
  }
  ~MainWindowTest() override { Run.Form().View = nullptr; }

  void Resize(int width, int height) {
    Window.setMinimumSize(1, 1);  // a tiling desktop asks nobody
    Window.resize(width, height);
    Settle();
  }
  template <typename WidgetType>
  QList<WidgetType*> Shown() {
    QList<WidgetType*> found;
    for (QWidget* const each : Window.findChildren<QWidget*>()) {
      auto* const widget = dynamic_cast<WidgetType*>(each);
      if (widget != nullptr && widget->isVisible()) found << widget;
    }
    return found;
  }
  QTreeView* Tree(const char* name) {
    const QList<QTreeView*> trees = Window.findChildren<QTreeView*>();
    return *std::ranges::find(trees, QString(name), &QTreeView::accessibleName);
  }
  QRect PlaceOf(const char* list) { return Tree(list)->parentWidget()->geometry(); }
  void Mouse(QEvent::Type type, QPoint at, bool held = true) {
    SendMouse(Inside, type, at, Qt::LeftButton, held);
    Settle();
  }

  QApplication& Application = TestApplication();
  shell::TestMachine Machine;
  shell::TestRun Run{Machine};
  IconSource Icons{QStringLiteral(TARNWELL_TESTS "/../data")};
  OperationViews Views{Run.Operations,
                       {Machine.Files.Syntax(), Machine.Clock, Machine.Forms, Icons},
                       [this] { return Run.Space().Settings.OperationsInWindow; }};
  MainWindow Window{Run.Main(), Icons, Views};
  QWidget& Inside = *Window.centralWidget()->findChild<QWidget*>({}, Qt::FindDirectChildrenOnly);
};

TEST_F(MainWindowTest, GivesLargeLettersRoom) {
  Run.Space().Lists.Files(0).SetHeadingProperty(0, "Width", base::Value(3000));
  Run.Space().Lists.Files(0).SetNameSized(true);
  const QTreeView& files = *Tree("Files of pane 1");
  const auto shownDate = [&files] {
    const int room = files.header()->sectionSize(3) - 2 * CellMargin;
    return files.fontMetrics().elidedText("2020-12-28 20:48:58", Qt::ElideRight, room);
  };
  EXPECT_EQ(shownDate(), "2020-12-28 20:48:58");
  const LargeFont large(24);
  Settle();
  EXPECT_EQ(shownDate(), "2020-12-28 20:48:58");
  EXPECT_EQ(files.header()->sectionSize(0), 200);  // somebody chose it
  for (const QLineEdit* const title : Shown<QLineEdit>()) {
    if (!title->accessibleName().startsWith("Path of")) continue;
    EXPECT_GE(title->height(), title->fontMetrics().height());
    EXPECT_LT(title->parentWidget()->geometry().bottom(), PlaceOf("Files of pane 1").top());
  }
}

TEST_F(MainWindowTest, OperationsTakeTheLowerEdgeAndTheirQuestionsTheTitle) {
  Machine.Engine.OnSettle = nullptr;
  const int height = Inside.height(), panes = PlaceOf("Files of pane 1").height();
  const QString title = Window.windowTitle();
  Run.Operations.Start({platform::CommandKind::Copy,
                        {{platform::FileFunction::Copy, std::string("C:\\a\0", 5),
                          std::string("C:\\b\\\0", 6), 0}}});
  Machine.Engine[0].OnAsking(true);
  Views.Refresh();
  Settle();
  EXPECT_LT(Inside.height(), height);
  EXPECT_LT(PlaceOf("Files of pane 1").height(), panes);
  EXPECT_EQ(Window.windowTitle(), "Question - " + title);
  PressKey(Window, Qt::Key_J, Qt::ControlModifier);
  EXPECT_TRUE(Window.focusWidget()->accessibleName().startsWith("Answer"));
  PressKey(*Window.focusWidget(), Qt::Key_Escape);
  EXPECT_FALSE(Window.focusWidget()->accessibleName().startsWith("Answer"));
  Machine.Engine.DoneAll();
  Views.Refresh();
  Settle();
  EXPECT_EQ(Inside.height(), height);
  EXPECT_EQ(Window.windowTitle(), title);
}

TEST_F(MainWindowTest, ASkinReachesWhatHasNoColoursOfItsOwn) {
  Machine.Files.AddFile(
      "C:\\Tarnwell\\skins\\Grasshopper.twk",
      "\"ColorProgramBackground\",64,0,0,0,0\r\n\"ColorMainMenu\",32768,0,0,0,0\r\n"
      "\"ColorListText\",16777215,0,0,0,0\r\n");
  QDialog open;
  const auto load = [this] {
    Run.Main().ButtonClick("skinsecond");
    Window.Sync();
    Settle();
  };
  load();
  EXPECT_EQ(open.palette().color(QPalette::Window), QColor(64, 0, 0));
  EXPECT_EQ(Window.menuBar()->palette().color(QPalette::Window), QColor(0, 128, 0));
  for (const QMenu* const menu : Window.menuBar()->findChildren<QMenu*>()) {
    EXPECT_LT(qGray(menu->palette().color(QPalette::Window).rgb()), 40) << "a shade above black";
  }
  const EventCount again(Window.findChildren<QMenu*>(), {QEvent::PaletteChange});
  load();
  EXPECT_EQ(again.Count, 0);
  QApplication::setPalette(QPalette());
}

TEST_F(MainWindowTest, AResizeToTheSameSizeTouchesNothing) {
  EventCount events(Window.findChildren<QWidget*>(),
                    {QEvent::Move, QEvent::Resize, QEvent::Show, QEvent::Hide,
                     QEvent::PaletteChange, QEvent::ActionChanged});
  QResizeEvent same(Inside.size(), Inside.size());
  for (int i = 0; i < 3; ++i) QCoreApplication::sendEvent(&Inside, &same);
  Settle();
  EXPECT_EQ(events.Count, 3);  // those that were sent
}

TEST_F(MainWindowTest, AChangeOfColourPaintsEachListOnceAndLaysOutNone) {
  Run.Main().MenuClick("mnuChooseSkin");
  auto& chooser = dynamic_cast<settings::frmSkinChooser&>(*Run.Host.OpenForms().back());
  QList<QWidget*> rows;
  int layouts = 0;
  for (const QTreeView* tree : Shown<QTreeView>()) {
    rows << tree->viewport();
    QObject::connect(tree->model(), &QAbstractItemModel::headerDataChanged, &Window,
                     [&layouts] { ++layouts; });
  }
  Run.Dialogs.OnColour = [&](const platform::ColourQuestion& question) {
    for (const base::Colour colour : {0x102030, 0x908070}) {
      const EventCount paints(rows, {QEvent::Paint});
      question.Shown(colour);
      Settle();
      EXPECT_EQ(paints.Count, rows.size());
    }
    return std::optional<base::Colour>();
  };
  for (const auto row : {settings::ColorActiveItemOutline, settings::ColorListText}) {
    chooser.cmdChooseClick(row);
  }
  EXPECT_EQ(layouts, 0);
}

TEST_F(MainWindowTest, ADragMovesBarsAndPaintsNoList) {
  const QRect before = PlaceOf("Folders of pane 1");
  const QPoint from(before.right() + 2, before.center().y());
  Tree("Folders of pane 1")->setFocus();
  for (const bool givenUp : {true, false}) {
    Mouse(QEvent::MouseMove, from, false);
    EXPECT_EQ(Inside.cursor().shape(), Qt::SizeHorCursor);
    EXPECT_EQ(Tree("Folders of pane 1")->cursor().shape(), Qt::ArrowCursor);
    QList<QWidget*> rows;
    for (const QTreeView* tree : Shown<QTreeView>()) rows << tree->viewport();
    const EventCount paints(rows, {QEvent::Paint});
    Mouse(QEvent::MouseButtonPress, from);
    for (int i = 1; i <= 30; ++i) {
      Mouse(QEvent::MouseMove, from + QPoint(5 * i, i));
      const QList<DragBar*> bars = Shown<DragBar>();
      ASSERT_EQ(bars.size(), 2);
      for (const DragBar* bar : bars) {
        EXPECT_NEAR(Inside.mapFromGlobal(bar->pos()).x(), before.right() + 1 + 5 * i, 4);
      }
    }
    EXPECT_EQ(paints.Count, 0);
    if (givenUp) {
      QKeyEvent escape(QEvent::ShortcutOverride, Qt::Key_Escape, {});
      QCoreApplication::sendEvent(Window.focusWidget(), &escape);
      EXPECT_FALSE(escape.isAccepted());
      QMetaObject::invokeMethod(Window.findChild<QShortcut*>(), "activated");
      EXPECT_TRUE(Shown<DragBar>().empty());
    }
    Mouse(QEvent::MouseButtonRelease, from + QPoint(150, 30));
    EXPECT_TRUE(Shown<DragBar>().empty());
    EXPECT_NEAR(PlaceOf("Folders of pane 1").width(), before.width() + (givenUp ? 0 : 150), 4);
  }
  // Releases that this window does not get.
  const QPoint gap(PlaceOf("Folders of pane 1").right() + 2, from.y());
  for (const auto& lose : {std::function<void()>([&] { Mouse(QEvent::MouseMove, gap, false); }),
                           std::function<void()>([&] { Window.hide(); })}) {
    Mouse(QEvent::MouseButtonPress, gap);
    EXPECT_EQ(Shown<DragBar>().size(), 2);
    lose();
    EXPECT_TRUE(Shown<DragBar>().empty() && !Run.Space().IsResizing());
  }
}

TEST_F(MainWindowTest, TitlesAndPlaceholdersStandInTheSmallestWindow) {
  for (const int pane : {2, 3, 4}) Run.Main().ClosePaneClick(pane);  // opens it
  Tree("Files of pane 1")->setFocus();
  Run.Space().ActiveList = 100;
  Resize(640, 334);
  EXPECT_TRUE(Tree("Folders of pane 5")->isVisible() && !Tree("Files of pane 5")->isVisible());
  EXPECT_EQ(Shown<NoRoomLabel>().size(), 5);
  EXPECT_EQ(Run.Form().ActiveControl, workspace::KeyboardFocus::Form);
  EXPECT_EQ(Run.Space().CurrentList, 100);
  for (const char* layout : {"layouthorizontal", "layoutvertical"}) {
    Run.Main().ButtonClick(layout);
    Resize(400, 334);
    EXPECT_EQ(Shown<PaneTitle>().size(), 5);
    for (const PaneTitle* title : Shown<PaneTitle>()) {
      EXPECT_TRUE(Inside.rect().contains(title->geometry()));
    }
  }
  Resize(1000, 700);
  EXPECT_TRUE(Shown<NoRoomLabel>().empty());
}

TEST_F(MainWindowTest, KeysReachTheActiveListWithoutMakingItTheCurrentOne) {
  QTreeView* const other = Tree("Folders of pane 2");
  Tree("Folders of pane 1")->setFocus();
  for (const lister::ListId active : {lister::FolderListOf(0), lister::FolderListOf(1)}) {
    EXPECT_EQ(Run.Form().ActiveControl, workspace::KeyboardFocus::List);
    Run.Space().ActiveList = active;
    Run.Form().ActiveControl = workspace::KeyboardFocus::Form;
    Window.Sync();
  }
  EXPECT_EQ(Run.Form().ActiveControl, workspace::KeyboardFocus::Form);
  const EventCount keys(QList<QWidget*>{other}, {QEvent::KeyPress, QEvent::FocusIn});
  PressKey(*Window.focusWidget(), Qt::Key_End);
  EXPECT_EQ(keys.Count, 1);
  EXPECT_EQ(Run.Space().CurrentList, 0);
  // Arrows give the list the keyboard as well, and reach it all the same.
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent down(type, Qt::Key_Down, {});
    QCoreApplication::sendEvent(Window.focusWidget(), &down);
    EXPECT_EQ(Run.Space().KeyArmed, type == QEvent::KeyRelease);
  }
  EXPECT_EQ(keys.Count, 3);
  EXPECT_EQ(Run.Space().CurrentList, 1);
  EXPECT_EQ(Run.Form().ActiveControl, workspace::KeyboardFocus::List);

  // What comes up while a menu has the keys is not held any more.
  PressKey(*Window.focusWidget(), Qt::Key_Shift, Qt::ShiftModifier);
  EXPECT_FALSE(Run.Space().KeyArmed);
  QMenu menu(&Window);
  menu.popup({});
  menu.close();
  EXPECT_TRUE(Run.Space().KeyArmed);

  // Once each, also when the work filters events meanwhile, as file operations do.
  QObject filter;
  Machine.ItemMenus.OnInvoke = [&] {
    qApp->installEventFilter(&filter);
    qApp->removeEventFilter(&filter);
  };
  for (const std::size_t times : {1U, 2U}) {
    PressKey(*Window.focusWidget(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Machine.ItemMenus.Invoked.size(), times);
    Settle();
  }

  Run.Form().Menus["mnuCommandOn"].Checked = true;
  Run.Main().ClosePaneClick(1);
  Settle();
  auto& command = *Inside.findChild<QComboBox*>({}, Qt::FindDirectChildrenOnly);
  command.setFocus();
  EXPECT_EQ(Run.Form().ActiveControl, workspace::KeyboardFocus::CommandLine);
  EXPECT_FALSE(Window.findChild<QShortcut*>()->isEnabled());
  command.setEditText(QString(100'000, u'l'));  // whole
  EXPECT_EQ(Run.Form().cboCommand.Text, std::string(100'000, 'l'));
  for (const Qt::KeyboardModifiers held : {Qt::NoModifier, Qt::ShiftModifier}) {
    PressKey(*command.lineEdit(), Qt::Key_Return, held);
    EXPECT_EQ(Machine.Launcher.Requests.back().KeepsTerminal, held == Qt::ShiftModifier);
  }
  Run.Form().cboCommand.Text = "a\xFF";
  Window.Sync();
  EXPECT_EQ(command.currentText(), QString::fromUtf8("a\xEF\xBF\xBD"));
  EXPECT_EQ(Run.Form().cboCommand.Text, "a\xFF");
}

TEST_F(MainWindowTest, AWindowThatOpensBringsItBackAndAQuestionKeepsIt) {
  Run.Space().Settings.MinimizeToTaskBar = false;
  QDialog late, question(&Window);
  for (QDialog* const dialog : {&late, &question}) {
    Window.setWindowState(Qt::WindowMinimized);
    Settle();
    EXPECT_FALSE(Window.isVisible());
    dialog->show();
    EXPECT_TRUE(Window.isVisible() && !Window.isMinimized() && !Machine.Tray.Icon);
    EXPECT_EQ(dialog->windowHandle()->transientParent(), Window.windowHandle());
  }
  question.hide();
  question.setModal(true);
  question.show();
  Window.setWindowState(Qt::WindowMinimized);
  Settle();
  EXPECT_TRUE(Window.isVisible() && Window.isMinimized() && question.isVisible());
}

}  // namespace
}  // namespace tarnwell::ui
