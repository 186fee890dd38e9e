#include "TestApplication.h"
#include "fakes/FakePlatform.h"
#include "ui/properties/ApplicationChooser.h"
#include "ui/properties/QtItemWindows.h"

namespace tarnwell::ui {
namespace {

using namespace std::chrono_literals;
using platform::ItemFacts;
using platform::ItemKind;
using platform::PermissionChange;

// Folders that are never counted to their end, unless the count is let go.
struct SlowFiles : fakes::MemoryFileSystem {
  SlowFiles() : MemoryFileSystem(base::PathSyntax::Posix()) {}
  mutable std::atomic<bool> MayEnd = false;
  mutable std::atomic<int> Counting = 0;

  base::Status MeasureFolder(const std::string&, const GoOn& goOn,
                             platform::FolderTotal& total) const override {
    ++Counting;
    total.Bytes = 12'900'000;
    total.Files = 345;
    total.Folders = 1;
    while (goOn(total) && !MayEnd) std::this_thread::sleep_for(1ms);
    --Counting;
    return {};
  }
};

struct FakeInspector : platform::ItemInspector {
  mutable std::mutex Mutex;
  mutable std::map<std::string, ItemFacts> Items;
  mutable std::string Asked;  // of SetPermissions
  std::string Refused;        // path whose permissions cannot be changed

  base::Status ReadFacts(const std::string& path, ItemFacts& facts) const override {
    const std::lock_guard lock(Mutex);
    const auto found = Items.find(path);
    if (found == Items.end()) return {2, "No such file"};
    facts = found->second;
    return {};
  }
  base::Status ReadVolume(const std::string&, platform::VolumeFacts& volume) const override {
    volume = {"/", "ext4", {1, 2}};
    return {};
  }
  void SetPermissions(const std::string& path, const PermissionChange& change, bool inside,
                      const GoOn&, platform::PermissionOutcome& outcome) const override {
    const std::lock_guard lock(Mutex);
    char text[64];
    std::snprintf(text, sizeof text, " +%o-%o%s ", change.Set, change.Clear, inside ? "*" : "");
    Asked += path + text;
    if (path == Refused) {
      ++outcome.Failed;
      outcome.Troubles.push_back({path, {1, "Not permitted"}});
      return;
    }
    Items[path].Mode = (Items[path].Mode & ~change.Clear) | change.Set;
  }
};

class PropertiesWindowTest : public testing::Test {
 protected:
  PropertiesWindowTest() : Icons((TestApplication(), QStringLiteral(TARNWELL_TESTS "/../data"))) {
    Put("/a/file", 0640);
    Put("/a/other", 0600);
    Put("/a/sub", 0755).Kind = ItemKind::Folder;
  }
  ItemFacts& Put(const std::string& path, std::uint32_t mode) {
    ItemFacts& facts = Inspector.Items[path];
    facts.Type = "text";
    facts.Size = 1000;
    facts.Owner = "tom";
    facts.Mode = mode;
    return facts;
  }
  static std::vector<PropertiesWindow*> Open() {
    std::vector<PropertiesWindow*> open;
    for (QWidget* const each : QApplication::topLevelWidgets()) {
      auto* const window = dynamic_cast<PropertiesWindow*>(each);
      if (window != nullptr && window->isVisible()) open.push_back(window);
    }
    return open;
  }
  PropertiesWindow& Show(const std::vector<std::string>& paths) {
    Windows.ShowProperties(paths);
    const auto open = Open();
    PropertiesWindow& window = **std::ranges::find(open, paths, &PropertiesWindow::Paths);
    Until([&] { return Fact(window, "Owner") != ""; });
    return window;
  }
  static void Until(const std::function<bool()>& reached) {
    QElapsedTimer time;
    for (time.start(); !reached() && time.elapsed() < 5000;) {
      QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    EXPECT_TRUE(reached());
  }
  template <typename Widget>
  static Widget& Named(const PropertiesWindow& window, const QString& name) {
    for (Widget* const each : window.findChildren<Widget*>()) {
      if (each->accessibleName() == name || QString(each->text()).remove('&') == name) return *each;
    }
    throw std::runtime_error("no " + name.toStdString());
  }
  static QCheckBox& Box(const PropertiesWindow& window, const QString& name) {
    return Named<QCheckBox>(window, name);
  }
  static std::string Fact(const PropertiesWindow& window, const QString& caption) {
    for (const QLabel* const each : window.findChildren<QLabel*>()) {
      if (each->accessibleName().startsWith(caption + ": ")) return each->text().toStdString();
    }
    return "";
  }

  SlowFiles Files;
  FakeInspector Inspector;
  fakes::FakeClock Clock;
  fakes::FakeNumberForms Forms;
  IconSource Icons;
  QtItemWindows Windows{{{base::PathSyntax::Posix(), Clock, Forms, Icons}, Files, Inspector},
                        [](const std::string&) {}};
};

TEST_F(PropertiesWindowTest, StandsOnTheScreenAndAppliesOnlyWhatWasTouched) {
  const LargeFont large(40);
  PropertiesWindow& one = Show({"/a/file"});
  Until([&] { return one.height() <= one.screen()->availableGeometry().height(); });
  EXPECT_TRUE(one.rect().contains(ButtonOf(one, "OK")->geometry()));
  EXPECT_EQ(one.windowTitle(), "Properties of file");
  EXPECT_TRUE(Box(one, "Owner: Write").isChecked() && !Box(one, "Others: Read").isChecked());
  EXPECT_TRUE(Box(one, "Apply to items inside").isHidden());
  EXPECT_FALSE(ButtonOf(one, "Apply")->isEnabled());
  Box(one, "Group: Write").click();
  EXPECT_TRUE(ButtonOf(one, "Apply")->isEnabled());
  Box(one, "Group: Write").click();
  EXPECT_FALSE(ButtonOf(one, "Apply")->isEnabled());
  Box(one, "Others: Read").click();
  ButtonOf(one, "Apply")->click();
  Until([&] { return Box(one, "Owner: Read").isEnabled(); });
  EXPECT_FALSE(ButtonOf(one, "Apply")->isEnabled());
  EXPECT_TRUE(Box(one, "Others: Read").isChecked());
  EXPECT_EQ(Inspector.Asked, "/a/file +4-20 ");
  ButtonOf(one, "OK")->click();  // nothing is left to do
  Until([] { return Open().empty(); });

  Put("/a/link", 0777).WhyFixed = "A link";
  Inspector.Asked.clear();
  PropertiesWindow& many = Show({"/a/file", "/a/other", "/a/link", "/a/gone", "/a/sub"});
  EXPECT_EQ(many.windowTitle(), "Properties of 5 items");
  EXPECT_EQ(Box(many, "Group: Read").checkState(), Qt::PartiallyChecked);
  EXPECT_EQ(Box(many, "Others: Write").checkState(), Qt::Unchecked);
  // The others' go back to how they were: they differ.
  for (const char* name : {"Group: Read", "Group: Read", "Others: Read", "Others: Read",
                           "Others: Read", "Apply to items inside"}) {
    Box(many, name).click();
  }
  Inspector.Refused = "/a/other";
  ButtonOf(many, "OK")->click();
  Until([&] { return Box(many, "Owner: Read").isEnabled(); });
  EXPECT_EQ(Inspector.Asked, "/a/file +0-40* /a/other +0-40* /a/gone +0-40* /a/sub +0-40* ");
  ASSERT_EQ(Open().size(), 1U);
  const auto texts = many.findChildren<ReadOnlyText*>();
  EXPECT_TRUE(std::ranges::count(texts, "/a/other: Not permitted", &ReadOnlyText::toPlainText));
  PressKey(many, Qt::Key_Escape);
  EXPECT_TRUE(Open().empty());

  Put("/a/a[*]", 0644).WhyFixed = "Only tom";
  PropertiesWindow& fixed = Show({"/a/a[*]"});
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&fixed)->text(QAccessible::Name),
            "Properties of a[*]");
  EXPECT_FALSE(Box(fixed, "Owner: Read").isEnabled());
  EXPECT_TRUE(Box(fixed, "Owner: Read").isChecked());
  const QLabel& why = Named<QLabel>(fixed, "Only tom");
  EXPECT_TRUE(why.isVisibleTo(why.parentWidget()));
}

TEST_F(PropertiesWindowTest, CountsLiveAndClosesInTheMiddleOfIt) {
  PropertiesWindow& window = Show({"/a/sub", "/a/file"});
  Until([&] { return Fact(window, "Contents") == "346 files, 2 folders, counting..."; });
  EXPECT_EQ(Fact(window, "Size"), "12.3 MiB (12,901,000 bytes)");
  Windows.ShowProperties({"/a/sub", "/a/file"});
  PropertiesWindow& other = Show({"/a/sub"});
  EXPECT_EQ(Open().size(), 2U);
  Until([&] { return Files.Counting == 2; });
  other.close();
  EXPECT_EQ(Open().size(), 1U);
  Until([&] { return Files.Counting == 1; });
  Files.MayEnd = true;
  Until([&] { return Fact(window, "Contents") == "346 files, 2 folders"; });
  Files.MayEnd = false;
  Show({"/a/sub"});
  Until([&] { return Files.Counting == 1; });
  Windows.CancelAndWait();
  EXPECT_EQ(Files.Counting, 0);
}

TEST_F(PropertiesWindowTest, ChoosesAnApplicationOrACommand) {
  const LargeFont large(40);
  ApplicationChooser chooser("/a/file", "text",
                             {{"v", "Viewer", "", false}, {"\xff", "Editor", "", true}},
                             {base::PathSyntax::Posix(), Clock, Forms, Icons});
  const auto boxes = chooser.findChildren<QLineEdit*>();
  const auto box = [&](const QString& name) -> QLineEdit& {
    return **std::ranges::find(boxes, name, &QLineEdit::accessibleName);
  };
  auto* const list = chooser.findChild<QListWidget*>();
  for (int row = 0; row < list->count(); ++row) {
    const QFontMetrics letters(list->item(row)->font());
    EXPECT_GE(list->sizeHintForRow(row), letters.height());
  }
  QCheckBox& always = *chooser.findChild<QCheckBox*>();
  always.click();
  ASSERT_TRUE(chooser.Chosen());
  EXPECT_TRUE(chooser.Chosen()->Id == "\xff" && chooser.Chosen()->AlwaysUse);
  box("Search").setText("vIEW");
  EXPECT_EQ(chooser.Chosen()->Id, "v");
  box("Search").setText("nothing");
  EXPECT_FALSE(chooser.Chosen());
  box("Search").clear();
  box("Command").setText(" less -R ");
  EXPECT_TRUE(chooser.Chosen()->Id.empty() && chooser.Chosen()->Command == "less -R");
  EXPECT_FALSE(chooser.Chosen()->AlwaysUse || always.isEnabled());
}

}  // namespace
}  // namespace tarnwell::ui
