#include "TestApplication.h"
#include "fakes/FakeForms.h"
#include "ui/forms/OperationDialogs.h"

namespace tarnwell::ui {
namespace {

TEST(OperationDialogsTest, RenameKeepsWhatIsNotEditedByteForByte) {
  TestApplication();
  fakes::FakeFormHost host;
  fileops::popRename form(host);
  form.Load();
  const std::string name = "\uFEFFa\x01\n\xFF\u202E\u2401\uFFFD.txt";
  form.txtDest.Text = form.txtSource.Text = name;
  const auto window = WindowOf(form);
  window->Sync();
  const auto boxes = window->Widget().findChildren<QLineEdit*>();
  ASSERT_EQ(boxes.size(), 2);
  EXPECT_EQ(boxes[0]->text(), ToShownQString(name));
  QLineEdit& edit = *boxes[1];
  edit.setCursorPosition(5);
  PressKey(edit, Qt::Key_Backspace, {}, "\b");  // the stray byte
  EXPECT_EQ(form.txtDest.Text, "\uFEFFa\x01\n\u202E\u2401\uFFFD.txt");
  edit.undo();
  edit.end(false);
  PressKey(edit, Qt::Key_B, {}, "b");
  EXPECT_EQ(form.txtDest.Text, name + "b");
  edit.setText("as assistive technology does");
  EXPECT_EQ(form.txtDest.Text, "as assistive technology does");
  form.txtDest.Text.assign(40'000, 'x');  // more than the box takes
  window->Sync();
  EXPECT_EQ(form.txtDest.Text.size(), 40'000U);
}

TEST(OperationDialogsTest, EnterPressesTheButtonThatTheFormSays) {
  TestApplication();
  fakes::FakeFormHost host;
  fileops::popDelete form(host);
  form.Load();
  std::swap(form.cmdDelete.Default, form.cmdCancel.Default);
  const auto window = WindowOf(form);
  window->Sync();
  window->Show(nullptr);
  const QPushButton* const button = ButtonOf(window->Widget(), "Cancel");
  ASSERT_NE(button, nullptr);
  EXPECT_TRUE(button->isDefault() && button == window->Widget().focusWidget());
  window->Close();
}

}  // namespace
}  // namespace tarnwell::ui
