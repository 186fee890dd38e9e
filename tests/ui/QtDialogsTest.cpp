#include "Test.h"
#include "TestApplication.h"
#include "fakes/TestFile.h"
#include "ui/services/QtDialogs.h"

namespace tarnwell::ui {
namespace {

// Does so in the next dialog, once it is there.
template <typename Dialog>
void InDialog(std::function<void(Dialog&)> react) {
  QTimer::singleShot(0, qApp, [react = std::move(react)] {
    auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    react(*dialog);
  });
}

class QtDialogsTest : public testing::Test {
 protected:
  QtDialogsTest() { TestApplication(); }

  IconSource Icons{QString()};
  QtDialogs Dialogs{Icons};
};

TEST_F(QtDialogsTest, LeavesWhatOtherProgramsPutAsideInTheColourDialog) {
  const QTemporaryDir home;
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, home.path());
  QSettings common(QSettings::UserScope, QStringLiteral("QtProject"));
  platform::CustomColours own{};
  own[2] = base::Rgb(1, 2, 3);
  base::Colour live = 0;
  const auto ask = [&] {
    InDialog<QColorDialog>([](QColorDialog& dialog) {
      EXPECT_EQ(dialog.currentColor(), QColor(9, 8, 7));
      EXPECT_EQ(QColorDialog::customColor(2), QColor(1, 2, 3));
      QColorDialog::setCustomColor(0, Qt::red);
      dialog.setCurrentColor(QColor(4, 5, 6));
      dialog.reject();
    });
    return Dialogs.AskColour({base::Rgb(9, 8, 7), own, [&](base::Colour shown) { live = shown; }});
  };
  EXPECT_FALSE(ask());
  EXPECT_EQ(live, base::Rgb(4, 5, 6));
  EXPECT_EQ(own[0], base::Rgb(255, 0, 0));
  common.sync();
  EXPECT_TRUE(common.allKeys().isEmpty());
  common.setValue(QStringLiteral("Qt/customColors/0"), QColor(Qt::green).rgb());
  common.sync();
  ask();
  common.sync();
  EXPECT_EQ(common.value(QStringLiteral("Qt/customColors/0")).toUInt(), QColor(Qt::green).rgb());
}

TEST_F(QtDialogsTest, AsksForANameByteForByteWhollyOnTheScreen) {
  const std::string name = "a\xFF\n.";
  QWidget below;
  below.show();
  below.activateWindow();
  InDialog<QInputDialog>([](QInputDialog& dialog) {
    EXPECT_TRUE(dialog.screen()->availableGeometry().contains(dialog.frameGeometry()));
    EXPECT_TRUE(dialog.findChild<QLineEdit*>()->hasSelectedText());
    dialog.accept();
  });
  EXPECT_EQ(Dialogs.AskText({"t", "p", name, platform::ScreenPlace{1'000'000, -5'000}}), name);
}

TEST_F(QtDialogsTest, AsksForAFileInTheMiddleWithoutTheHourglass) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  InDialog<QFileDialog>([](QFileDialog& dialog) {
    const QPoint off = dialog.frameGeometry().center() - dialog.screen()->geometry().center();
    EXPECT_LT(off.manhattanLength(), 60);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(dialog.selectedFiles().constFirst().endsWith(QLatin1String("/a.csv")));
    dialog.reject();
  });
  QWidget below;
  below.setGeometry(0, 0, 50, 50);
  below.show();
  below.activateWindow();
  EXPECT_FALSE(Dialogs.AskSaveFile({"t", "Listing", "*.csv", "csv", "a.csv", "/", true}));
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  QApplication::restoreOverrideCursor();
}

}  // namespace
}  // namespace tarnwell::ui
