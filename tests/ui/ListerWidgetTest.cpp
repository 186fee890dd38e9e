#include "ui/ListerFixture.h"
#include "ui/list/ListerMarks.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {
namespace {

TEST_F(ListerWidgetTest, BranchesFollowTheControlAndTheUser) {
  List list(*this, 0);
  list.Show("/");
  ASSERT_TRUE(list.Tree->isExpanded(list.Index("/")));
  EXPECT_TRUE(list.Tree->model()->hasChildren(list.Index("/a")));  // not read yet

  list.Tree->expand(list.Index("/a"));
  Settle();
  EXPECT_EQ(list.Tree->model()->rowCount(list.Index("/a")), 1);
  list.Control.ExpandFolder(0, "/a/b", 1);
  EXPECT_TRUE(list.Tree->isExpanded(list.Index("/a/b")));
  list.Control.Rows().Collapse(list.Row("/a"));
  EXPECT_FALSE(list.Tree->isExpanded(list.Index("/a")));
  Settle();
  EXPECT_FALSE(list.Control.Rows().StateOf(list.Row("/a")).IsExpanded);

  list.Control.Rows().Expand(list.Row("/a"));
  list.Control.RefreshList();
  Settle();
  for (const char* path : {"/a", "/a/b"}) EXPECT_TRUE(list.Tree->isExpanded(list.Index(path)));

  // The mouse left of a name opens and closes, and makes the list the one that is worked in.
  Events.Take();
  list.Click(list.Tree->visualRect(list.Index("/a")).topLeft() + QPoint(-8, 5));
  EXPECT_EQ(Events.Take(), (Texts{"ListFocused", "TitleColorAsked", "MouseReleased"}));
  EXPECT_FALSE(list.Control.Rows().StateOf(list.Row("/a")).IsExpanded);

  Platform.Files.At("/d").ReadFault = fakes::MemoryFileSystem::Denied();
  for (const char* path : {"/f", "/d"}) {  // empty, and shut
    list.Tree->expand(list.Index(path));
    Settle();
    EXPECT_FALSE(list.Tree->model()->hasChildren(list.Index(path)));
  }
  EXPECT_FALSE(list.Tree->isExpanded(list.Index("/d")));
}

TEST_F(ListerWidgetTest, MouseSelectsByGapAndFrame) {
  List list(*this, 100);
  list.Show("/d");  // e, one, three, two
  list.Click(list.Gap("/d/one.txt"));
  list.Click(list.Gap("/d/three.txt"));
  EXPECT_EQ(list.Selected(), "one.txt three.txt ");

  // From the space behind the names, with the columns scrolled sideways.
  list.Tree->horizontalScrollBar()->setValue(7);
  const QPoint start = list.At("/d/two.txt", 180), end(350, 1);
  list.Mouse(QEvent::MouseButtonPress, start);
  list.Mouse(QEvent::MouseMove, start + QPoint(2, 2));  // a tremble
  EXPECT_EQ(list.Control.Input().Action(), lister::MouseAction::None);
  const QRect spot(QPoint(250, start.y() - 3), QSize(1, 1));
  const QRgb before = list.Tree->viewport()->grab(spot).toImage().pixel(0, 0);
  list.Mouse(QEvent::MouseMove, end);
  EXPECT_EQ(list.Control.Input().Action(), lister::MouseAction::Band);
  EXPECT_NE(list.Tree->viewport()->grab(spot).toImage().pixel(0, 0), before);
  EXPECT_EQ(list.Selected(), "e one.txt three.txt two.txt ");
  list.Press(Qt::Key_Escape);
  Settle();
  EXPECT_EQ(list.Selected(), "one.txt three.txt ");
  list.Mouse(QEvent::MouseButtonRelease, end);

  // The row goes before its turn comes; a menu takes the release; both leave the mouse working.
  SendMouse(*list.Tree->viewport(), QEvent::MouseButtonPress, list.At("/d/one.txt", 40),
            Qt::RightButton);
  Platform.Files.Remove("/d/one.txt");
  list.Control.RefreshList();
  Settle();
  list.Mouse(QEvent::MouseButtonPress, list.At("/d/three.txt", 40), Qt::RightButton);
  QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QApplication::sendEvent(list.Tree->viewport(), &key);
  Settle();
  const std::string click = "RightClicked /d/three.txt";
  EXPECT_EQ(Events.Take("RightClicked"), (Texts{"RightClicked ", click, click}));
  list.Click(list.At("/d/two.txt", 40));
  EXPECT_EQ(list.Selected(), "two.txt ");
}

TEST_F(ListerWidgetTest, KeysAndWheelKeepTheirOrderAndPileNothingUp) {
  struct : QObject {
    std::vector<int> Keys;
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::KeyPress) Keys.push_back(static_cast<QKeyEvent*>(event)->key());
      return false;
    }
  } window;
  for (int number = 0; number < 50; ++number) {
    Platform.Files.AddFile("/many/f" + std::to_string(10 + number));
  }
  List list(*this, 100);
  list.Window.installEventFilter(&window);
  list.Show("/many");
  const auto current = [&] { return list.Control.Rows().PathOf(list.Control.Rows().CurrentRow()); };
  list.Press(Qt::Key_F, Qt::NoModifier, "f");
  list.Press(Qt::Key_3, Qt::NoModifier, "3");
  list.Press(Qt::Key_Down);
  for (int count = 0; count < 30; ++count) list.Press(Qt::Key_Down, Qt::NoModifier, "", true);
  Settle();
  EXPECT_EQ(current(), "/many/f31");
  list.Press(Qt::Key_End, Qt::ShiftModifier);
  list.Press(Qt::Key_K, Qt::ControlModifier, "\v");
  list.Press(Qt::Key_F7);
  Settle();
  EXPECT_EQ(current(), "/many/f59");
  EXPECT_EQ(list.Control.Input().SelectedRanges().at(0).First, 21);
  EXPECT_EQ(window.Keys, std::vector<int>({Qt::Key_F7, Qt::Key_K}));  // nothing else

  for (const int angle : {-50, -50, -50, 40, 60, 60, 240}) TurnWheel(*list.Tree->viewport(), angle);
  Settle();
  const std::string up = "WheelTurned 120";
  EXPECT_EQ(Events.Take("Wheel"), (Texts{"WheelTurned -120", up, up, up}));
  list.Control.WheelScroll(true);
  EXPECT_LT(list.Control.View->VisibleRows().Last, 49);
}

TEST_F(ListerWidgetTest, ToolbarOffersExtensionsAndGivesWay) {
  List list(*this, 100);
  list.Show("/d");
  auto* const field = list.Widget.findChild<QLineEdit*>();
  auto* const extensions = list.Widget.findChild<QComboBox*>();
  Platform.Files.AddFile("/d/a.MD");
  list.Control.RefreshList();
  extensions->showPopup();
  ASSERT_EQ(extensions->count(), 3);
  EXPECT_EQ(extensions->itemText(1) + extensions->itemText(2), ".md (1).txt (3)");
  extensions->setCurrentIndex(1);
  extensions->hidePopup();
  emit extensions->activated(1);
  Settle();
  EXPECT_EQ(list.Control.Rows().ChildCount(lister::RootRow), 2);
  EXPECT_EQ(extensions->currentText(), ".md");
  // As a screen reader sets a text.
  QAccessible::queryAccessibleInterface(field)->setText(QAccessible::Value, "a*");
  EXPECT_EQ(list.Control.Shown().Filter.Text(), "a*");

  // Bookmarks by mouse: those that are empty cannot be chosen.
  auto* const bookmarks = list.Widget.findChildren<QToolButton*>().last();
  EXPECT_EQ(bookmarks->accessibleName(), "Bookmarks of pane 1");
  const auto choose = [&](const char* folder, const char* caption) {
    Events.Bookmark = folder;
    bookmarks->click();
    auto* const menu = list.Widget.findChild<QMenu*>();
    QAction* const last = menu->actions().last();
    EXPECT_EQ(last->text(), caption);
    Events.Take();
    last->trigger();
    menu->close();
    Settle();
    return Events.Take();
  };
  EXPECT_EQ(choose("(empty)", "1&0  (empty)\tCtrl+0"), Texts{});
  EXPECT_EQ(choose("/gone & away", "1&0  /gone && away\tCtrl+0").back(),
            "StatusMessage Cannot open /gone & away: it is no longer there");
  EXPECT_EQ(choose("/f", "1&0  /f\tCtrl+0").back(), "OpenChildFolder /f in /");

  const auto buttons =
      list.Widget.findChildren<QToolButton*>(QString(), Qt::FindChildrenRecursively);
  const auto shown = [&] { return std::ranges::count_if(buttons, &QWidget::isVisible); };
  const auto all = shown();
  list.Widget.resize(180, 300);
  EXPECT_TRUE(!extensions->isVisible() && field->isVisible() && shown() == all);
  list.Widget.resize(100, 300);
  EXPECT_TRUE(field->width() >= 50 && shown() < all);
  list.Widget.resize(180, 70);
  EXPECT_TRUE(!field->isVisible() && list.Tree->height() >= 60);
}

TEST_F(ListerWidgetTest, ScreenReadersSeeTheSelectionThroughASort) {
  List list(*this, 100);
  QAccessible::setActive(true);
  list.Show("/d");
  list.Click(list.Gap("/d/one.txt"));
  list.Click(list.Gap("/d/three.txt"));
  for (const char* word : {"asc", "des"}) {
    const int before = list.Index("/d/one.txt").row();
    list.Control.SortCommand(word);
    EXPECT_EQ(list.Index("/d/one.txt").row() == before, word[0] == 'a');
    EXPECT_EQ(list.Tree->currentIndex(), list.Index("/d/three.txt"));
    const QAccessibleInterface* access = QAccessible::queryAccessibleInterface(list.Tree);
    std::string selected;
    for (int row = 0; row < 4; ++row) {
      const auto* cell =
          const_cast<QAccessibleInterface*>(access)->tableInterface()->cellAt(row, 0);
      if (cell->state().selected) selected += cell->text(QAccessible::Name).toStdString() + " ";
    }
    EXPECT_EQ(selected, word[0] == 'a' ? "one.txt three.txt " : "three.txt one.txt ");
  }
  QAccessible::setActive(false);
  EXPECT_EQ(MarksText({.Larger = true, .Newer = true}), "Newer and larger than in the other list");
}

TEST_F(ListerWidgetTest, RefreshKeepsScrollSelectionAndCursor) {
  const auto path = [](int number) { return "/many/f" + std::to_string(1000 + number); };
  for (int number = 0; number < 500; ++number) Platform.Files.AddFile(path(number));
  List list(*this, 100);
  list.Show("/many");
  list.Control.Rows().MoveCurrent(list.Row(path(200)));
  for (int count = 0; count < 5; ++count) list.Press(Qt::Key_Down, Qt::ShiftModifier);
  Settle();
  list.Tree->verticalScrollBar()->setValue(300);
  // One of those selected, and many everywhere.
  for (const int step : {0, 1}) {
    if (step == 0) Platform.Files.Remove(path(202));
    for (int number = 0; step == 1 && number < 500; number += 3) {
      if (number == 300) continue;
      Platform.Files.AddFile(path(number) + "x");
      if (number > 210) Platform.Files.Remove(path(number));
    }
    Platform.Watches.Notify("/many");
    Settle();
    EXPECT_EQ(list.PathAt(list.Tree->indexAt(QPoint(1, 1))), path(300)) << step;
    EXPECT_EQ(list.PathAt(list.Tree->currentIndex()), path(205)) << step;
    EXPECT_EQ(std::ranges::count(list.Selected(), ' '), 5);
  }
  // A list at its top stays there.
  list.Tree->verticalScrollBar()->setValue(0);
  Platform.Files.AddFile("/many/0");
  Platform.Watches.Notify("/many");
  EXPECT_EQ(list.PathAt(list.Tree->indexAt(QPoint(1, 1))), "/many/0");
}

TEST_F(ListerWidgetTest, TakesOverWhatChangesWhileItReadsHidesAndIdles) {
  List list(*this, 100);
  const auto comes = [&](const char* path) {
    const QDeadlineTimer limit(10000);
    while (list.Row(path) == lister::NoRow && !limit.hasExpired()) Settle();
    return !limit.hasExpired();
  };
  list.Show("/f");
  Platform.Clock.TickStep = 60;
  Platform.Pump.Post([&] {
    Platform.Files.AddFile("/d/late.txt");
    Platform.Watches.Notify("/d");
  });
  std::string folder = "/d";
  list.Control.LoadFolderContents(folder, true);
  Platform.Clock.TickStep = 0;
  EXPECT_TRUE(comes("/d/late.txt"));
  list.Control.WatchStop();
  list.Widget.hide();
  Platform.Files.AddFile("/d/hidden");
  list.Widget.show();
  Settle();
  EXPECT_NE(list.Row("/d/hidden"), lister::NoRow);
  Platform.Files.AddFile("/d/idle");
  EXPECT_TRUE(comes("/d/idle"));
}

TEST_F(ListerWidgetTest, HeadingsGoBothWaysWithoutEchoes) {
  List list(*this, 100);
  const auto same = [&] {
    for (int heading = 0; heading < lister::HeadingCount; ++heading) {
      const lister::Heading& entry =
          list.Control.Shown().Table[static_cast<lister::HeadingId>(heading)];
      EXPECT_EQ(entry.Index, list.Header->visualIndex(heading)) << heading;
      EXPECT_EQ(entry.Active, !list.Header->isSectionHidden(heading)) << heading;
      if (!entry.Active) continue;
      const auto id = static_cast<lister::HeadingId>(heading);
      const lister::ColumnWidths widths =
          WidthsIn(list.Control.Shown().Table, ToTwips(list.Tree->viewport()->width()));
      EXPECT_EQ(ToPixels(widths[static_cast<std::size_t>(id)]), list.Header->sectionSize(heading))
          << heading;
    }
  };
  list.Show("/d");
  same();
  EXPECT_EQ(list.Header->length(), list.Tree->viewport()->width());
  list.Widget.resize(600, 300);
  Settle();
  same();
  const int date = list.Header->sectionSize(3);
  list.Header->resizeSection(0, 123);
  EXPECT_EQ(ToPixels(list.Control.Shown().Table[lister::HeadingId::DateLastModified].Width), date);
  list.Widget.resize(500, 300);  // from now on the widths are the user's
  Settle();
  EXPECT_EQ(list.Control.Shown().Table[lister::HeadingId::Name].Width, 123 * 15);
  list.Header->resizeSection(1, 1);
  same();
  list.Header->moveSection(list.Header->visualIndex(3), 0);  // others move up by one
  EXPECT_EQ(list.Control.Shown().Table[lister::HeadingId::DateLastModified].Index, 0);
  EXPECT_EQ(list.Control.Shown().Table[lister::HeadingId::Name].Index, 1);
  same();
  list.Control.SetHeadingProperty(2, "Index", base::Value(std::int32_t{0}));
  list.Control.SetHeadingProperty(4, "active", base::Value(true));
  list.Control.SetHeadingProperty(3, "Width", base::Value(std::int32_t{100}));
  list.Control.SetHeadingProperty(2, "Width", base::Value(std::int32_t{2147483647}));
  same();

  QContextMenuEvent click(QContextMenuEvent::Mouse, QPoint(5, 5), QPoint());
  QApplication::sendEvent(list.Header->viewport(), &click);
  auto* const menu = list.Header->findChild<QMenu*>();
  ASSERT_NE(menu, nullptr);
  for (int place = 0; place < lister::HeadingCount; ++place) {
    QAction* const entry = menu->actions().at(place);
    EXPECT_EQ(entry->isChecked(), !list.Header->isSectionHidden(list.Header->logicalIndex(place)));
    EXPECT_EQ(entry->isEnabled(), entry->text() != "Name");
    if (entry->text() == "Size") entry->trigger();
  }
  menu->close();
  Settle();
  EXPECT_FALSE(list.Control.HeadingActive("Size"));
  same();
}

TEST_F(ListerWidgetTest, TheNewestCursorReachesTheControlOnceAndOutlivesItsRows) {
  List list(*this, 0);
  list.Show("/");
  Events.Take();
  list.Tree->setCurrentIndex(list.Index("/a"));
  list.Tree->setCurrentIndex(list.Index("/d"));
  EXPECT_TRUE(Events.Told.empty());  // never from inside the view
  Settle();
  EXPECT_EQ(Events.Take(), Texts{"FolderSelected 0"});

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
  ASSERT_NE(list.Control.Rows().CurrentRow(), lister::NoRow);
  EXPECT_EQ(ListerModel::RowOf(list.Tree->currentIndex()), list.Control.Rows().CurrentRow());
}

TEST_F(ListerWidgetTest, ALowListKeepsItsRowsAndTellsWhatHidesThem) {
  List list(*this, 100);
  list.Show("/d");
  auto* const filter = list.Widget.findChild<QLineEdit*>();
  const auto* const status = list.Widget.findChild<QLabel*>({}, Qt::FindDirectChildrenOnly);
  const auto shown = [&] {
    Settle();
    return std::string(filter->isVisible() ? "filter " : "") +
           (status->isVisible() ? "status" : "");
  };
  const int row = list.Tree->visualRect(list.Index("/d/one.txt")).height();
  const int rows = list.Header->height() + 4 * row;
  EXPECT_EQ(shown(), "filter status");
  list.Widget.resize(400, rows + filter->parentWidget()->height() + 2);
  EXPECT_EQ(shown(), "filter ");
  list.Widget.resize(400, rows + 2);
  EXPECT_EQ(shown(), "");
  EXPECT_GE(list.Tree->viewport()->height(), 4 * row);
  list.Control.ShowStatus("news");
  EXPECT_EQ(shown(), "status");
  list.Control.ShowStatus("");
  list.Widget.EnterControls();
  EXPECT_EQ(shown(), "filter ");
  filter->setText("zz");
  list.Tree->setFocus();
  EXPECT_EQ(shown(), "filter ");
  filter->setFocus();
  filter->setText("");  // to type another one
  EXPECT_EQ(shown(), "filter ");
  filter->setText("zz");
  list.Tree->setFocus();
  auto* const clear = list.Widget.findChild<QPushButton*>();
  EXPECT_TRUE(clear->isVisible() && !list.Index("/d/one.txt").isValid());
  clear->click();
  EXPECT_EQ(shown(), "");
  EXPECT_TRUE(!clear->isVisible() && list.Index("/d/one.txt").isValid() && list.Tree->hasFocus());
}

TEST_F(ListerWidgetTest, DrivesAndStatus) {
  List list(*this, 0);
  list.Show("/");
  auto* const drives = list.Widget.findChild<QComboBox*>();
  EXPECT_EQ(drives->currentText(), "System");
  ASSERT_EQ(drives->count(), 2);
  emit drives->activated(1);
  Settle();
  EXPECT_EQ(Events.Take("Drive"), Texts{"DriveSelected 0"});
  EXPECT_EQ(drives->currentText() + drives->toolTip(), "Disk/media/disk");

  // The wheel over the closed list is not for it.
  TurnWheel(*drives, 120);
  Settle();
  EXPECT_TRUE(Events.Take("Drive").empty());

  // A drive whose volume has gone is shown by its path, and not as another one.
  Platform.Drives.Volumes.pop_back();
  list.Control.View->DrivesChanged();
  EXPECT_EQ(drives->currentText(), "/media/disk");

  const std::string text(300, 'x');
  list.Control.ShowStatus(text + "\n<b>\xFF");
  const auto* status = list.Widget.findChild<QLabel*>();
  EXPECT_LT(status->text().size(), 300);
  EXPECT_EQ(status->accessibleDescription(), ToQString(text) + QString::fromUtf8("␊<b>\uFFFD"));
  EXPECT_TRUE(status->toolTip().contains("&lt;b&gt;"));
}

TEST_F(ListerWidgetTest, ALegendTellsTheMarksAsFarAsThereIsRoom) {
  List list(*this, 100);
  list.Show("/d");
  std::vector<lister::CompareRecord> records{{"one.txt", "1", ""}};
  std::int32_t mode = 1;
  list.Control.CompareAgainst(records, mode);
  const auto* status = list.Widget.findChild<QLabel*>();
  list.Widget.resize(1200, 300);
  const QList<QAbstractButton*> entries = status->findChildren<QAbstractButton*>();
  const QWidget* const legend = entries.front()->parentWidget();
  EXPECT_EQ(status->text(), status->accessibleDescription());
  const int whole = legend->width();
  list.Widget.resize(whole * 3 / 2, 300);
  EXPECT_TRUE(legend->isVisible() && legend->width() < whole);
  EXPECT_GE(legend->x(), status->width() / 2);
  EXPECT_LT(status->fontMetrics().horizontalAdvance(status->text()), legend->x());
  EXPECT_EQ(legend->accessibleName(), "Marks: only here, smaller");

  // What bears a mark is selected by it, as far as it is on show.
  const auto entry = [&entries](const char* word) -> QAbstractButton& {
    return **std::ranges::find(entries, QString(word), &QAbstractButton::text);
  };
  list.Control.User().SetFilterText("*e.txt");
  entry("smaller").click();
  Settle();
  EXPECT_EQ(list.Selected(), "one.txt ");
  PressKey(entry("only here"), Qt::Key_Space, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(list.Selected(), "one.txt three.txt ");
  list.Control.User().SetFilterText("");
  PressKey(entry("only here"), Qt::Key_Space);
  Settle();
  EXPECT_EQ(list.Selected(), "e three.txt two.txt ");
  EXPECT_EQ(list.PathAt(list.Tree->currentIndex()), "/d/e");

  // The keyboard gets to what a narrow list leaves out.
  list.Widget.resize(whole * 3 / 4, 300);
  list.Control.EnterMarks();
  PressKey(entry("only here"), Qt::Key_Right);
  EXPECT_TRUE(entry("smaller").isVisible() && entry("smaller").hasFocus());
}

TEST_F(ListerWidgetTest, IconsTellItemsApartAsFarAsTheSettingsSay) {
  const QByteArray home = qgetenv("HOME");
  qputenv("HOME", "/d");
  Platform.Files.AddFile("/d/song.mp3");
  Platform.Files.AddFolder("/d/Music");
  List files(*this, 100), folders(*this, 0);
  files.Show("/d");
  folders.Show("/");
  const auto same = [](const List& list, const char* one, const char* other) {
    const auto keyOf = [&list](const char* path) {
      return list.Index(path).data(Qt::DecorationRole).value<QIcon>().cacheKey();
    };
    return keyOf(one) == keyOf(other);
  };
  for (const bool shows : {true, false, true}) {
    for (List* const list : {&files, &folders}) {
      list->Control.SetProperty("ShowFileIcons", shows);
      list->Control.SetProperty("ShowFolderIcons", !shows);
    }
    EXPECT_EQ(same(files, "/d/song.mp3", "/d/one.txt"), !shows);
    EXPECT_EQ(same(files, "/d/Music", "/d/e"), shows);
    EXPECT_EQ(same(folders, "/d", "/f"), shows);
  }
  qputenv("HOME", home);
}

}  // namespace
}  // namespace tarnwell::ui
