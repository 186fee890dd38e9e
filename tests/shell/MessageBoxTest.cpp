#include "fakes/FakeForms.h"
#include "shell/MessageBox.h"
#include "shell/popMsgBox.h"

namespace tarnwell::shell {
namespace {

// What the buttons give is shown by the tests of the real window.
TEST(MessageBoxTest, StandsInTheMiddleOfItsParentAndTakesThePointerForAWhile) {
  using forms::MousePointer;
  fakes::FakeFormHost host;
  forms::Form main{"Master"}, options{"frmOptions"}, twin{"FRMOPTIONS"};
  main.Left = 1500;
  main.Top = 1000;
  main.Width = 9000;
  main.Height = 6000;
  options.Left = 15000;
  host.Open(options);
  host.Open(twin);
  host.SetScreenPointer(MousePointer::Hourglass);
  MessageBox box(host, main);
  for (const std::string parent : {"", "FRMoptions", "frmTips", "refused"}) {
    const bool isOptions = parent == "FRMoptions", isRefused = parent == "refused";
    host.Refuses = isRefused;
    host.OnModal = [&](forms::Form& form) {
      EXPECT_EQ(host.ScreenPointer(), MousePointer::Arrow);
      EXPECT_TRUE(form.Left == (isOptions ? 15000 : 3750) && form.Top == (isOptions ? 0 : 3100));
      dynamic_cast<popMsgBox&>(form).ButtonClick(1);
    };
    box.Message("Text?", forms::MessageKind::YesNo, parent);
    EXPECT_EQ(box.MessageResult(), isRefused ? "" : "YES");  // not the word of the one before
    EXPECT_EQ(host.ScreenPointer(), MousePointer::Hourglass);
    EXPECT_FALSE(host.IsOpen("popMsgBox"));
  }
}

}  // namespace
}  // namespace tarnwell::shell
