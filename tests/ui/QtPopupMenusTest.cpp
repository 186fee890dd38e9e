#include "Test.h"
#include "TestApplication.h"
#include "ui/services/QtPopupMenus.h"

namespace tarnwell::ui {
namespace {

using platform::ContextEntry;

void Press(QWidget* popup, Qt::Key key) {
  PressKey(*popup, key, {}, key < 128 ? QString(QChar(key)).toLower() : QString());
}

class QtPopupMenusTest : public testing::Test {
 protected:
  QtPopupMenusTest() {
    Window.setCentralWidget(new QWidget);
    Window.resize(600, 400);
    Window.show();
    Menus.SetWindow(&Window);
    Menu = Menus.Create();
    // Number, caption, picture, whether a separator, enabled, the default; children.
    const ContextEntry inner{8, "A && B\tC", "", false, true, false, {}};
    const ContextEntry wide{9, std::string(3000, 'x') + "&y", "", false, true, false, {}};
    for (const ContextEntry& each : {ContextEntry{2, "&Delete", "", false, true, false, {}},
                                     {1, "", "", true, true, false, {}},
                                     {7, "Open Wit&h", "", false, true, false, {inner, wide}},
                                     {5, "&Paste", "", false, false, false, {}},
                                     {3, "Mistake", "", false, true, false, {}},
                                     {4, "&Open", "", false, true, true, {}}}) {
      EXPECT_TRUE(Menu->InsertOnTop(each));
    }
    Menu->Remove(3);
  }
  // What Track gives when `act` is done with the menu that is up.
  int Track(const std::function<void(QMenu&)>& act) {
    QTimer::singleShot(0, &Window, [&act] {
      auto* const shown = qobject_cast<QMenu*>(Popup());
      ASSERT_NE(shown, nullptr);
      act(*shown);
    });
    return Menu->Track(20, 30);
  }
  static QWidget* Popup() { return QApplication::activePopupWidget(); }

  QApplication& App = TestApplication();
  QMainWindow Window;
  const IconSource Icons{QString()};
  QtPopupMenus Menus{Icons};
  std::unique_ptr<platform::PopupMenu> Menu;
};

TEST_F(QtPopupMenusTest, ShowsEntriesAndGivesTheNumberOfTheChosenOne) {
  const int byKeys = Track([this](QMenu& menu) {
    EXPECT_EQ(menu.pos(), Window.centralWidget()->mapToGlobal(QPoint(20, 30)));
    const QList<QAction*> entries = menu.actions();
    ASSERT_EQ(entries.size(), 5);
    EXPECT_EQ(entries[0]->text(), "&Open");
    EXPECT_EQ(menu.defaultAction(), entries[0]);
    EXPECT_FALSE(entries[1]->isEnabled());
    EXPECT_NE(menu.palette().color(QPalette::Disabled, QPalette::Text),
              menu.palette().color(QPalette::Active, QPalette::Text));
    EXPECT_TRUE(entries[3]->isSeparator());
    const QList<QAction*> inner = entries[2]->menu()->actions();
    EXPECT_EQ(inner[0]->text(), QString::fromUtf8("A && B\xE2\x90\x89"
                                                  "C"));
    EXPECT_LT(entries[2]->menu()->sizeHint().width(), Window.screen()->availableSize().width());
    EXPECT_GT(inner[1]->toolTip().size(), 3000);
    const QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&menu);
    EXPECT_EQ(access->child(2)->text(QAccessible::Name), "Open With");
    Press(&menu, Qt::Key_H);
    Press(Popup(), Qt::Key_Return);
  });
  EXPECT_EQ(byKeys, 8);
  EXPECT_EQ(Track([](QMenu& menu) {
              Press(&menu, Qt::Key_P);
              menu.close();
            }),
            0);
  EXPECT_EQ(Track([](QMenu& menu) {
              const QPoint place = menu.actionGeometry(menu.actions()[4]).center();
              for (const auto type :
                   {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
                SendMouse(menu, type, place, Qt::RightButton, type != QEvent::MouseMove);
              }
            }),
            2);
  EXPECT_EQ(Track([](QMenu& menu) { Press(&menu, Qt::Key_Escape); }), 0);
}

TEST_F(QtPopupMenusTest, LendsMenusOfTheSystemItsLook) {
  Window.addToolBar("bar")->setFixedHeight(30);
  Settle();
  QTemporaryDir folder;
  ASSERT_TRUE(QDir(folder.path()).mkdir("icons"));
  QFile file(folder.filePath("icons/half.svg"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(
      "<svg xmlns='http://www.w3.org/2000/svg' width='4' height='4'>"
      "<rect width='4' height='4' fill='#f00' fill-opacity='0.6'/></svg>");
  file.close();
  const IconSource icons(folder.path());
  QtPopupMenus menus(icons);
  menus.SetWindow(&Window);
  const platform::MenuLook look = menus.Look();
  const QPoint corner = Window.centralWidget()->mapTo(&Window, QPoint());
  EXPECT_GE(corner.y(), 30);
  EXPECT_EQ(look.PlaceInWindow(2, 3), std::pair(corner.x() + 2, corner.y() + 3));
  EXPECT_EQ(look.Keys("Rena&me") + look.Keys("Open"), "F2");
  const platform::MenuPicture picture = look.Picture("half", 20);
  ASSERT_EQ(picture.Pixels.size(), 400U);
  const std::uint32_t pixel = picture.Pixels[210];
  EXPECT_NEAR(pixel >> 24, 0x99, 2);
  EXPECT_EQ(pixel & 0xFFFFFF, (pixel >> 24) << 16);  // red, multiplied by the opacity
  EXPECT_EQ(look.Picture("none", 20).Width, 0);
}

TEST_F(QtPopupMenusTest, GivesWayToTheEndOfTheProgram) {
  bool ended = false;
  Menus.CloseThen([&ended] { ended = true; });
  EXPECT_TRUE(std::exchange(ended, false));
  EXPECT_EQ(Track([&](QMenu& menu) {
              Press(&menu, Qt::Key_H);
              Menus.CloseThen([&ended] { ended = true; });
              EXPECT_FALSE(ended);
            }),
            0);
  EXPECT_FALSE(ended);
  QCoreApplication::processEvents();
  EXPECT_TRUE(ended);
  EXPECT_EQ(Popup(), nullptr);
  // The window waits for the menu.
  EXPECT_EQ(Track([this](QMenu&) {
              Window.close();
              EXPECT_TRUE(Window.isVisible());
            }),
            0);
  EXPECT_TRUE(Window.isVisible());
  QCoreApplication::processEvents();
  EXPECT_FALSE(Window.isVisible());
  // And it may take the menu along.
  auto other = std::make_unique<QMainWindow>();
  other->setCentralWidget(new QWidget);
  Menus.SetWindow(other.get());
  Menu = Menus.Create();
  EXPECT_TRUE(Menu->InsertOnTop({1, "x", "", false, true, false, {}}));
  EXPECT_EQ(Track([&other](QMenu&) { other.reset(); }), 0);
  EXPECT_EQ(Menus.Create(), nullptr);
  EXPECT_FALSE(Menu->InsertOnTop({1, "x", "", false, true, false, {}}));
}

}  // namespace
}  // namespace tarnwell::ui
