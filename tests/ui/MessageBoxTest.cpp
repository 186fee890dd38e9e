#include "Test.h"
#include "TestApplication.h"
#include "shell/MessageBox.h"
#include "shell/popMsgBox.h"
#include "ui/forms/MsgBoxWindow.h"
#include "ui/forms/QtFormHost.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {
namespace {

using forms::MessageKind;

// The message box of the core in its real window; each test reacts to the window once it is shown.
class MessageBoxTest : public testing::Test {
 protected:
  MessageBoxTest() {
    TestApplication();
    Host.Bind<shell::popMsgBox>([this](shell::popMsgBox& form) -> std::unique_ptr<FormWindow> {
      return std::make_unique<MsgBoxWindow>(form, Icons, [this, &form] { Host.Unload(form); });
    });
  }
  ~MessageBoxTest() override {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  const std::string& Ask(MessageKind kind, std::function<void(QDialog&)> react) {
    QTimer::singleShot(0, qApp, [react = std::move(react)] {
      auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      react(*box);
    });
    Messages.Message(Text, kind);
    EXPECT_TRUE(Host.OpenForms().empty());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    return Messages.MessageResult();
  }

  static void Press(QDialog& box, int key) {
    PressKey(box.focusWidget() != nullptr ? *box.focusWidget() : box, key);
  }

  IconSource Icons{QStringLiteral(TARNWELL_TESTS "/../data")};
  QtFormHost Host;
  forms::Form Main{"Master"};
  std::string Text = "Well?";
  shell::MessageBox Messages{Host, Main};
};

TEST_F(MessageBoxTest, EachWayOfClosingGivesItsWord) {
  const auto enter = [](QDialog& box) { Press(box, Qt::Key_Return); };
  const auto escape = [](QDialog& box) { Press(box, Qt::Key_Escape); };
  const auto yes = [](QDialog& box) { ButtonOf(box, "Yes")->click(); };
  const auto choose = [](QDialog& box) {
    EXPECT_EQ(ButtonOf(box, "Cancel"), nullptr);
    EXPECT_LT(ButtonOf(box, "Yes")->x(), ButtonOf(box, "No")->x());
    ButtonOf(box, "Yes")->setFocus();
    Press(box, Qt::Key_Return);
  };
  const auto endProgram = [this](QDialog&) {
    const std::vector<forms::Form*> open = Host.OpenForms();
    for (forms::Form* form : open) Host.Unload(*form);
  };
  EXPECT_EQ(Ask(MessageKind::Ok, enter), "OK");
  EXPECT_EQ(Ask(MessageKind::YesNo, enter), "NO");  // the careful answer has the focus
  EXPECT_EQ(Ask(MessageKind::YesNoCancel, enter), "CANCEL");
  EXPECT_EQ(Ask(MessageKind::YesNo, escape), "");
  EXPECT_EQ(Ask(MessageKind::YesNoCancel, [](QDialog& box) { box.close(); }), "");
  EXPECT_EQ(Ask(MessageKind::YesNoCancel, yes), "YES");
  EXPECT_EQ(Ask(MessageKind::YesNo, choose), "YES");
  EXPECT_EQ(Ask(MessageKind::YesNo, endProgram), "");
}

TEST_F(MessageBoxTest, LiesOverItsWindowOnTheScreenAndShowsNamesPlainly) {
  Main.Top = Main.Width = Main.Height = ToTwips(400);
  Text = "<b>a\xFF</b>\r\n\r\nnext";
  Ask(MessageKind::Ok, [](QDialog& box) {
    EXPECT_NEAR(box.geometry().center().y(), 600, 2);
    EXPECT_EQ(box.accessibleDescription(), QString::fromUtf8("<b>a\xEF\xBF\xBD</b>\n\nnext"));
    Press(box, Qt::Key_Return);
  });
  for (int i = 0; i < 500; ++i) Text += "C:\\folder\\file number " + std::to_string(i) + "\r\n";
  Ask(MessageKind::Ok, [](QDialog& box) {
    EXPECT_LT(box.height(), box.screen()->availableGeometry().height());
    EXPECT_TRUE(ButtonOf(box, "OK")->isVisible());
    Press(box, Qt::Key_Return);
  });
}

}  // namespace
}  // namespace tarnwell::ui
