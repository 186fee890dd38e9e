#include "settings/TestProgram.h"
#include "settings/frmOptions.h"

namespace tarnwell::settings {
namespace {

class OptionsTest : public testing::Test, public TestProgram {
 protected:
  frmOptions Dialog{Space, *this, CurrentSkin, Host};
};

TEST_F(OptionsTest, ClicksTakeEffectAtOnceAndResendBothIconSettings) {
  Start();
  const lister::ListSettings& told = Space.Lists.Files(0).Shown().Settings;
  workspace::ProgramSettings& settings = Space.Settings;
  settings.ShowFileIcons = false;
  settings.ShowFolderIcons = true;
  settings.MinimizeToTaskBar = false;
  Host.Open(Dialog);
  const auto boxes = [this] {
    std::string text;
    for (const forms::CheckBox& box : Dialog.chk) text += box.Checked ? 'x' : '-';
    return text;
  };
  EXPECT_EQ(boxes(), "-xx--x");
  EXPECT_TRUE(!told.ShowFileIcons && told.ShowFolderIcons && Dialog.optMin[1].Selected);
  Dialog.Check(1, false);
  Dialog.Check(2, false);
  Dialog.Check(4, true);
  EXPECT_EQ(boxes(), "x--xx-");
  EXPECT_TRUE(told.ShowFileIcons && !told.ShowFolderIcons);
  EXPECT_TRUE(Space.Form.Menus["mnuColorOn"].Checked);
  settings.ShowFolderIcons = true;
  Dialog.Check(0, false);
  EXPECT_TRUE(told.ShowFolderIcons && !settings.ShowFileIcons);
  Dialog.txtNumColor.Text = "7";
  Dialog.Select(0);
  EXPECT_TRUE(settings.MinimizeToTaskBar && !settings.OperationsInWindow);
  Dialog.SelectOperations(1);
  Dialog.Close();
  Host.Open(Dialog);
  EXPECT_EQ(Dialog.txtNumColor.Text, "50");
  EXPECT_TRUE(settings.OperationsInWindow && Dialog.optOperations[1].Selected);

  const struct {
    const char* Text;
    int Count, Told;
  } cases[] = {{"12.5", 12, 12}, {" 13.5 ", 14, 14}, {"", 50, 14},
               {"-0.4", 50, 14}, {"-3", 50, 14},     {"ten", 50, 14},
               {"0", 0, 0},      {"3e9", 50, 0},     {"1e999", 50, 0}};
  for (const auto& each : cases) {
    Dialog.txtNumColor.Text = each.Text;
    Dialog.Apply();
    EXPECT_TRUE(settings.FileCountMax == each.Count && told.FileCountMax == each.Told) << each.Text;
    const bool isBad = each.Count != each.Told;
    EXPECT_EQ(Dialog.txtNumColor.Text, isBad ? "50" : each.Text);
  }
  EXPECT_TRUE(Messages.Texts.empty());
}

}  // namespace
}  // namespace tarnwell::settings
