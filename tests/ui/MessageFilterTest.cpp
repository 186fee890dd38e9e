#include "Test.h"
#include "TestApplication.h"
#include "fakes/FakePlatform.h"
#include "ui/services/MessageFilter.h"

namespace tarnwell::ui {
namespace {

struct FilterLines : platform::LogFile {
  void Append(std::string_view line) override { Text += std::string(line.substr(24)) + "\n"; }
  std::string Text;
};

TEST(MessageFilter, NamesControlsAndKindsOfKeysButNothingTyped) {
  QApplication& application = TestApplication();
  FilterLines file;
  const fakes::FakeClock clock;
  tools::MessageLog log(file, clock);
  std::optional<MessageFilter> filter(std::in_place, application, log);
  QWidget form;
  form.setObjectName("frmTest");
  auto* const edit = new QLineEdit(&form);
  edit->setAccessibleName("New Name:");
  auto* const secret = new QLineEdit(&form);
  secret->setEchoMode(QLineEdit::Password);
  secret->setObjectName("txtSecret");
  auto* const label = new QLabel("/home/somebody/diary", &form);
  label->setAccessibleName(label->text());
  auto* const button = new QPushButton("&Rename", &form);
  form.show();
  Settle();
  file.Text.clear();
  PressKey(*edit, Qt::Key_Q, Qt::ShiftModifier, "Q");
  PressKey(*edit, Qt::Key_Escape, Qt::ShiftModifier);
  PressKey(*secret, Qt::Key_W, {}, "w");
  SendMouse(*label, QEvent::MouseButtonPress, {3, 4});
  button->click();
  std::string lines;
  std::istringstream all(file.Text);
  for (std::string line; std::getline(all, line);) {
    if (line.find("Key") + line.find("Mouse") != 2 * line.npos || line.ends_with("ed")) {
      lines += line + "\n";
    }
  }
  EXPECT_EQ(lines,
            "frmTest\tNew Name:\tKeyPress key\n"
            "frmTest\tNew Name:\ttextChanged\n"
            "frmTest\tNew Name:\tKeyPress Shift+Escape\n"
            "frmTest\t\tKeyPress Shift+Escape\n"
            "frmTest\tQLabel\tMouseButtonPress LeftButton 3,4\n"
            "frmTest\t\tMouseButtonPress LeftButton 3,4\n"
            "frmTest\tRename\tclicked\n");
  filter.reset();
  file.Text.clear();
  form.hide();
  button->click();
  EXPECT_EQ(file.Text, "");
}

}  // namespace
}  // namespace tarnwell::ui
