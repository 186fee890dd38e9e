#include <QMenu>

#include "TestApplication.h"
#include "lists/TestLists.h"
#include "ui/forms/FindWindow.h"
#include "ui/forms/QtFormHost.h"

namespace tarnwell::ui {
namespace {

class FindWindowTest : public testing::Test, public lists::TestLists {
 protected:
  FindWindowTest() {
    TestApplication();
    Shown.Bind<tools::frmFind>([](tools::frmFind& form) {
      return std::make_unique<FindWindow>(form,
                                          [](QDialog& window) { return new QWidget(&window); });
    });
    OpenPane(0, "C:\\docs");
    Open();
  }
  ~FindWindowTest() override {
    Shown.Unload(Form);
    Settle();
  }
  void Open() {
    Form.ShowOver(Space.Form);
    Settle();
    Window = dynamic_cast<QWidget*>(Form.View);
  }
  QLineEdit* Field(const char* name) {
    for (QLineEdit* each : Window->findChildren<QLineEdit*>()) {
      if (each->accessibleName() == QLatin1String(name)) return each;
    }
    return nullptr;
  }

  QtFormHost Shown;
  fakes::FakeDialogs Dialogs;
  tools::FoundLists Lists{Space, Nav, Platform.Files, Platform.Drives};
  tools::frmFind Form{
      {Shown,
       Platform.Search,
       Platform.User,
       Dialogs,
       Messages,
       {Platform.Files.Syntax(), Platform.Clock, Platform.Forms, platform::CompileRegex()}},
      Lists};
  QWidget* Window = nullptr;
};

TEST_F(FindWindowTest, BeginsByEnterStopsByEscapeAndOffersAgain) {
  EXPECT_EQ(Window->focusWidget(), Field("Name"));
  EXPECT_EQ(Field("Look in")->nextInFocusChain(), ButtonOf(*Window, "Choose..."));
  Field("Name")->setText("*.txt");
  Field("Size from")->setText("x");
  Settle();
  EXPECT_EQ(Field("Size from")->accessibleDescription(), "\"x\" is no size.");
  PressKey(*Field("Name"), Qt::Key_Return);
  EXPECT_EQ(Platform.Search.Running, 0);
  Field("Size from")->clear();
  Settle();
  PressKey(*Field("Name"), Qt::Key_Return);
  Settle();
  EXPECT_EQ(Platform.Search.Running, 1);
  EXPECT_TRUE(ButtonOf(*Window, "Stop")->isEnabled());
  const QSize size = Window->minimumSizeHint() + QSize(9, 9);
  Window->resize(size);
  Settle();
  PressKey(*Window, Qt::Key_Escape);
  EXPECT_TRUE(Platform.Search.Running == 0 && Form.View != nullptr);
  PressKey(*Window, Qt::Key_Escape);
  Settle();
  EXPECT_EQ(Form.View, nullptr);
  // It comes back as it was.
  Open();
  EXPECT_EQ(Window->size(), size);
  EXPECT_EQ(Field("Name")->text(), "*.txt");
  Field("Name")->clear();
  QMenu* const searches = ButtonOf(*Window, "Recent")->menu();
  emit searches->aboutToShow();
  EXPECT_EQ(searches->actions().at(0)->text(), "*.txt in C:\\docs");
  searches->actions().at(0)->trigger();
  Settle();
  EXPECT_EQ(Field("Name")->text(), "*.txt");
}

}  // namespace
}  // namespace tarnwell::ui
