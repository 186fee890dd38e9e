#include "TestRun.h"
#include "base/Text.h"
#include "shell/MessageBox.h"

namespace tarnwell::shell {
namespace {

class MessageBoxTest : public testing::Test {
 protected:
  MessageBoxTest() {
    Main.Left = 1500;
    Main.Top = 1000;
    Main.Width = 9000;
    Main.Height = 6000;
    Host.OnModal = [this](forms::Form& form) {
      EXPECT_EQ(Host.ScreenPointer(), forms::MousePointer::Arrow);
      if (Reaction) Reaction(dynamic_cast<popMsgBox&>(form));
    };
    Host.SetScreenPointer(forms::MousePointer::Hourglass);
  }
  ~MessageBoxTest() override {
    EXPECT_EQ(Host.ScreenPointer(), forms::MousePointer::Hourglass);
    EXPECT_FALSE(Host.IsOpen("popMsgBox"));
  }

  fakes::FakeFormHost Host;
  forms::Form Main{"Master"}, Options{"frmOptions"}, Twin{"FRMOPTIONS"};
  MessageBox Box{Host, Main};
  std::function<void(popMsgBox&)> Reaction;
};

TEST_F(MessageBoxTest, OffersTheButtonsOfTheKindAndGivesTheWordPressed) {
  const std::vector<Texts> shown = {{"OK"}, {"No", "Yes"}, {"Cancel", "No", "Yes"}, {"OK"}};
  for (std::size_t kind = 0; kind < shown.size(); ++kind) {
    for (std::size_t button = 0; button < shown[kind].size(); ++button) {
      Reaction = [&](popMsgBox& box) {
        EXPECT_EQ(Box.MessageResult(), "");
        EXPECT_EQ(box.lblText.Text + box.Caption, "Text?Tarnwell");
        for (std::size_t i = 0; i < box.Buttons.size(); ++i) {
          EXPECT_EQ(box.Buttons[i].Visible, i < shown[kind].size());
          EXPECT_EQ(box.Buttons[i].Caption, i < shown[kind].size() ? shown[kind][i] : "");
        }
        box.ButtonClick(button);
      };
      Box.Message("Text?", static_cast<forms::MessageKind>(kind));
      EXPECT_EQ(Box.MessageResult(), base::AsciiUpper(shown[kind][button]));
    }
  }
  // Without a button, or without a window, no word is left, not even the last one's.
  Reaction = {};
  for (const bool refuses : {false, true}) {
    Host.Refuses = refuses;
    Box.Message("Text?", forms::MessageKind::YesNo);
    EXPECT_EQ(Box.MessageResult(), "");
  }
}

TEST_F(MessageBoxTest, StandsInTheMiddleOfItsParent) {
  Options.Left = 15000;
  Host.Open(Options);
  Host.Open(Twin);
  for (const std::string parent : {"", "FRMoptions", "frmTips", "frmOption"}) {
    const bool options = parent == "FRMoptions";
    Reaction = [options](popMsgBox& box) {
      EXPECT_TRUE(box.Left == (options ? 15000 : 3750) && box.Top == (options ? 0 : 3100));
    };
    Box.Message("Text", forms::MessageKind::Ok, parent);
  }
}

}  // namespace
}  // namespace tarnwell::shell
