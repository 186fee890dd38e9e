#include "TestApplication.h"
#include "fakes/FakeOperationEngine.h"
#include "fakes/FakePlatform.h"
#include "ui/operation/OperationViews.h"
#include "ui/toolkit/ScrollAccess.h"

namespace tarnwell::ui {
namespace {

using platform::CommandKind;
using platform::OperationId;

// Operations as a test moves them on, in a main window with a text box over the strip.
class OperationViewsTest : public testing::Test {
 protected:
  OperationViewsTest() {
    Main->resize(1000, 600);
    auto* const column = new QVBoxLayout(Main.get());
    column->addWidget(Edit);
    column->addWidget(Views.MakeStrip(
        *Main, [this] { Edit->setFocus(); }, [this] { ++Changes; }));
    Main->show();
    Main->activateWindow();
    Edit->setFocus();
    Settle();
  }
  ~OperationViewsTest() override {
    Engine.DoneAll();
    Refresh();
    Main.reset();
    Settle();
  }

  // A copy on a drive.
  OperationId Start(const std::string& drive, const std::string& name = "file") {
    return Queue.Start({CommandKind::Copy,
                        {{platform::FileFunction::Copy, drive + ":\\" + name + '\0',
                          drive + ":\\to\\" + '\0', 0}}});
  }
  // Its run, which is the newest, has taken that long.
  void Report(std::size_t run, std::uint64_t done, std::int64_t after = 600) {
    Clock.Tick += after;
    platform::ProgressReport report;
    report.From = "C:\\from\\name";
    report.Numbers.BytesDone = done;
    report.Numbers.BytesTotal = 1000;
    report.Numbers.ItemsDone = 1;
    report.Numbers.ItemsTotal = 2;
    Engine[run].OnProgress(report);
    Refresh();
  }
  void Refresh() {
    Views.Refresh();
    Settle();
  }
  // The names of the buttons that can be pressed, row by row.
  static QStringList Buttons(const QWidget& home) {
    QStringList names;
    for (const OperationRow* const row : Rows(home)) {
      for (const QWidget* const each : row->Buttons()) {
        if (each->isVisible()) names << each->accessibleName();
      }
    }
    return names;
  }
  static std::vector<OperationRow*> Rows(const QWidget& home) {
    std::vector<OperationRow*> rows;
    for (QWidget* const each : home.findChildren<QWidget*>()) {
      auto* const row = dynamic_cast<OperationRow*>(each);
      if (row != nullptr && row->isVisible()) rows.push_back(row);
    }
    std::ranges::sort(rows, {}, &QWidget::y);
    return rows;
  }
  static QToolButton* Button(const QWidget& home, const QString& name) {
    for (QToolButton* const each : home.findChildren<QToolButton*>()) {
      if (each->isVisible() && each->accessibleName() == name) return each;
    }
    return nullptr;
  }
  static QString Status(const OperationRow& row) {
    QStringList texts;
    for (const QLabel* const each : row.findChildren<QLabel*>()) {
      if (each->isVisible() && !each->text().isEmpty()) texts << each->text();
    }
    return texts.join('|');
  }
  static QDialog* Window() {
    for (QWidget* const each : QApplication::topLevelWidgets()) {
      auto* const found = dynamic_cast<OperationWindow*>(each);
      if (found != nullptr && found->isVisible()) return found;
    }
    return nullptr;
  }

  QApplication& Application = TestApplication();
  fakes::FakeClock Clock;
  fakes::FakeNumberForms Forms;
  IconSource Icons{QStringLiteral(TARNWELL_TESTS "/../data")};
  fakes::FakeOperationEngine Engine;
  fileops::UndoHistory History;
  fileops::OperationQueue Queue{Engine, Clock, base::PathSyntax::Windows(), Forms, History};
  bool WantsWindow = false;
  int Changes = 0;
  OperationViews Views{
      Queue, {base::PathSyntax::Windows(), Clock, Forms, Icons}, [this] { return WantsWindow; }};
  std::unique_ptr<QWidget> Main = std::make_unique<QWidget>();
  QLineEdit* Edit = new QLineEdit(Main.get());
};

TEST_F(OperationViewsTest, RowsComeWhenTheyAreDueAndOfferWhatCanBeDone) {
  Start("C", "one");
  Start("C", "two");
  Start("C", "three");
  Start("D", "four");
  Refresh();
  EXPECT_EQ(Buttons(*Main), QStringList());  // may be done before anyone has read it
  Report(0, 250);
  const QString one = "Copying \"one\" to to", two = "Copying \"two\" to to",
                three = "Copying \"three\" to to";
  EXPECT_EQ(Buttons(*Main),
            (QStringList{"Pause: " + one, "Cancel: " + one, "Details: " + one, "Start Now: " + two,
                         "Take Away: " + two, "Details: " + two, "Start Now: " + three,
                         "Move Up: " + three, "Take Away: " + three, "Details: " + three}));
  EXPECT_EQ(Main->findChild<QProgressBar*>()->value(), 25);
  EXPECT_TRUE(Edit->hasFocus());

  // By the keyboard; what takes the place of a button has it then.
  Views.EnterOrLeave();
  const auto press = [](int key) { PressKey(*QApplication::focusWidget(), key); };
  const auto focus = [] { return QApplication::focusWidget()->accessibleName(); };
  EXPECT_EQ(focus(), "Pause: " + one);
  press(Qt::Key_Return);
  Refresh();
  EXPECT_EQ(focus(), "Continue: " + one);
  EXPECT_EQ(Engine.Calls(0), "p");
  EXPECT_TRUE(Status(*Rows(*Main)[0]).endsWith("Paused"));
  Button(*Main, "Move Up: " + three)->setFocus();
  press(Qt::Key_Return);
  Refresh();
  EXPECT_EQ(Rows(*Main)[1]->accessibleName(), three);
  EXPECT_EQ(focus(), "Details: " + three);  // not what the next press would start
  // Another row comes to stand under the mouse: the second click of two is not for it.
  QToolButton* const takeAway = Button(*Main, "Take Away: " + two);
  for (const auto type : {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease}) {
    const QPointF place(4, 4);
    QMouseEvent event(type, place, takeAway->mapToGlobal(place), Qt::LeftButton, {}, {});
    QCoreApplication::sendEvent(takeAway, &event);
  }
  Refresh();
  EXPECT_EQ(Rows(*Main).size(), 3U);
  takeAway->click();
  Button(*Main, "Details: " + one)->click();
  Refresh();
  EXPECT_EQ(Rows(*Main).size(), 2U);
  const QString details = Status(*Rows(*Main)[0]);
  EXPECT_TRUE(details.contains("C:\\from\\name") && details.contains("1 of 2 items"))
      << details.toStdString();
  press(Qt::Key_Escape);
  EXPECT_TRUE(Edit->hasFocus());

  // What waited stays on show when it begins, and the keyboard goes with the last one.
  Views.EnterOrLeave();
  Engine.Done(0);
  Refresh();
  EXPECT_EQ(focus(), "Pause: " + three);
  Button(*Main, "Cancel: " + three)->click();
  Refresh();
  EXPECT_EQ(Buttons(*Main), QStringList{"Details: " + three});
  Engine.DoneAll();
  Refresh();
  EXPECT_TRUE(Edit->hasFocus());
  EXPECT_TRUE(Rows(*Main).empty());
}

TEST_F(OperationViewsTest, AQuestionThatWaitsIsTold) {
  const OperationId operation = Start("C");
  Engine[0].OnAsking(true);
  Refresh();
  EXPECT_TRUE(Views.AnyAsks());
  EXPECT_EQ(Changes, 1);
  const QString title = "Copying \"file\" to to";
  Button(*Main, "Answer...: " + title)->click();
  EXPECT_EQ(Engine.Calls(0), "q");
  Engine[0].OnAsking(false);
  Refresh();
  EXPECT_FALSE(Views.AnyAsks());
  EXPECT_EQ(Changes, 2);
  EXPECT_NE(Queue.Find(operation), nullptr);
}

TEST_F(OperationViewsTest, TheStripHasAThirdOfTheWindowAtMostAndScrolls) {
  for (char drive = 'A'; drive < 'U'; ++drive) Start(std::string(1, drive));
  for (std::size_t run = 0; run < 20; ++run) Report(run, 10);
  const auto* const list = Main->findChild<QScrollArea*>();
  const auto* const page = Rows(*Main)[0]->parentWidget();
  EXPECT_EQ(Rows(*Main).size(), 20U);
  EXPECT_GT(page->height(), list->height());
  EXPECT_GE(Edit->height() + Edit->y(), 15);
  EXPECT_LE(list->height(), 200);
  Main->resize(420, 400);
  Settle();
  EXPECT_LE(list->height(), 134);
  for (const OperationRow* const row : Rows(*Main)) {
    EXPECT_LE(row->width(), 420);
    for (const QWidget* const each : row->Buttons()) {
      if (each->isHidden()) continue;
      EXPECT_LE(each->mapTo(row, QPoint(each->width(), 0)).x(), row->width());
    }
  }
}

TEST_F(OperationViewsTest, AWindowServesThoseWhoWantItAndTheTimeAfterTheMainWindow) {
  WantsWindow = true;
  Start("C");
  Report(0, 250);
  ASSERT_NE(Window(), nullptr);
  EXPECT_TRUE(Window()->windowTitle().startsWith("25% - Copying"));
  EXPECT_TRUE(Window()->testAttribute(Qt::WA_ShowWithoutActivating));
  EXPECT_TRUE(Rows(*Main).empty());
  Window()->close();
  Report(0, 300);
  EXPECT_EQ(Window(), nullptr);
  EXPECT_EQ(Engine.Calls(0), "");
  Views.EnterOrLeave();
  ASSERT_NE(Window(), nullptr);
  Settle();
  EXPECT_TRUE(Window()->isActiveWindow());
  PressKey(*QApplication::focusWidget(), Qt::Key_Escape);
  Settle();
  EXPECT_TRUE(Main->isActiveWindow());
  Window()->close();
  Start("D");
  Report(1, 10);  // a new one brings it back
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(Window()->windowTitle(), "2 operations");
  // Nothing comes while the main window is put away.
  Main->hide();
  Report(1, 20);
  EXPECT_EQ(Window(), nullptr);
  Main->show();
  Report(1, 30);
  EXPECT_NE(Window(), nullptr);

  WantsWindow = false;
  Report(0, 400);
  EXPECT_EQ(Window(), nullptr);
  EXPECT_EQ(Rows(*Main).size(), 2U);
  Main = std::make_unique<QWidget>();
  Refresh();
  ASSERT_NE(Window(), nullptr);
  EXPECT_EQ(Rows(*Window()).size(), 2U);
  Engine.DoneAll();
  Refresh();
  EXPECT_EQ(Window(), nullptr);
}

// A screen reader asks for parts that it has counted a while ago.
TEST_F(OperationViewsTest, TheirAreaHasNothingBehindItsLastPart) {
  TellOfScrollAreas();
  QScrollArea area;
  const QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(&area);
  EXPECT_NE(told->child(0), nullptr);
  EXPECT_EQ(told->child(1'000'000), nullptr);
}

}  // namespace
}  // namespace tarnwell::ui
