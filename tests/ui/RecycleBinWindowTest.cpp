#include "TestApplication.h"
#include "ui/forms/QtFormHost.h"
#include "ui/forms/RecycleBinWindow.h"
#include "workspace/TestWorkspace.h"

namespace tarnwell::ui {
namespace {

class RecycleBinWindowTest : public testing::Test, public workspace::TestWorkspace {
 protected:
  RecycleBinWindowTest() {
    TestApplication();
    Shown.Bind<fileops::frmRecycleBin>([this](fileops::frmRecycleBin& form) {
      return std::make_unique<RecycleBinWindow>(form, Icons);
    });
    for (std::uint64_t id = 1; id <= 100; ++id) Platform.Trash.Items.push_back(Item(id));
    Bin.ShowOver(Space.Form);
    Tell([this] { Platform.Trash.Settle(); });
    Window = dynamic_cast<QWidget*>(Bin.View);
    List = Window->findChild<QTreeView*>();
    Filter = Window->findChild<QLineEdit*>();
  }
  ~RecycleBinWindowTest() override {
    Shown.Unload(Bin);
    Settle();
  }
  static platform::TrashedItem Item(std::uint64_t id) {
    return {.Id = id,
            .Name = "file " + std::to_string(id),
            .Folder = "/data",
            .Place = "/trash/files/" + std::to_string(id),
            .Deleted = static_cast<std::int64_t>(id),
            .IsSizeKnown = true};
  }
  void Tell(const std::function<void()>& tell) {
    tell();
    Bin.ShowNews();
    Settle();
  }
  QString TextAt(int row) const { return List->model()->index(row, 0).data().toString(); }
  QString CurrentText() const { return TextAt(List->currentIndex().row()); }

  const IconSource Icons{QString()};
  QtFormHost Shown;
  fileops::TrashServices Services{Shown,
                                  Platform.Files,
                                  Platform.Drives,
                                  Platform.Trash,
                                  Platform.Operation,
                                  Platform.Pump,
                                  Messages,
                                  {Platform.Forms, Platform.Clock}};
  fileops::EmptyCommand Empty{Space, Services};
  fileops::frmRecycleBin Bin{Space, Services, Platform.Order, Platform.Items, Empty, {}};
  QWidget* Window = nullptr;
  QTreeView* List = nullptr;
  QLineEdit* Filter = nullptr;
};

TEST_F(RecycleBinWindowTest, KeepsItsPlaceWhileTheTrashChanges) {
  EXPECT_EQ(TextAt(0), "file 100");
  // At the top what comes is in sight.
  Tell([this] { Platform.Trash.Tell(Item(101)); });
  EXPECT_EQ(List->indexAt({1, 1}).row(), 0);
  EXPECT_EQ(List->currentIndex().row(), 0);
  List->setCurrentIndex(List->model()->index(50, 0));
  List->verticalScrollBar()->setValue(45);
  const QString top = List->indexAt({1, 1}).data().toString(), current = CurrentText();
  Tell([this] {
    Platform.Trash.Tell(Item(102));
    Platform.Trash.TakeOut(30);
  });
  EXPECT_EQ(List->indexAt({1, 1}).data().toString(), top);
  EXPECT_EQ(CurrentText(), current);
  EXPECT_EQ(List->selectionModel()->selectedRows().size(), 1);
  EXPECT_EQ(List->selectionModel()->selectedRows().value(0).data().toString(), current);
  // The next one has the cursor, and is not selected.
  const int row = List->currentIndex().row();
  Tell([this] { Platform.Trash.TakeOut(Bin.Rows().SelectedIds().at(0)); });
  EXPECT_EQ(List->currentIndex().row(), row);
  EXPECT_FALSE(List->selectionModel()->hasSelection());
  EXPECT_FALSE(ButtonOf(*Window, "Restore")->isEnabled());
}

TEST_F(RecycleBinWindowTest, FiltersByTypingAndSortsByItsHeadings) {
  PressKey(*List, Qt::Key_7, {}, "7");
  EXPECT_EQ(Filter->text(), "7");
  EXPECT_EQ(Bin.Rows().Count(), 19U);
  PressKey(*Filter, Qt::Key_Down);
  PressKey(*List, Qt::Key_A, Qt::ControlModifier);
  PressKey(*Filter, Qt::Key_Escape);
  EXPECT_EQ(Bin.Rows().Selected().Items, 19U);
  EXPECT_EQ(Bin.Rows().Count(), 100U);
  QWidget& header = *List->header()->viewport();
  SendMouse(header, QEvent::MouseButtonPress, {5, 5});
  SendMouse(header, QEvent::MouseButtonRelease, {5, 5});
  EXPECT_EQ(TextAt(0), "file 1");
  EXPECT_EQ(List->selectionModel()->selectedRows().size(), 19);
  PressKey(*List, Qt::Key_Return);
  EXPECT_EQ(Platform.Items.Properties.at(0).size(), 19U);
  PressKey(*Window, Qt::Key_Escape);
  EXPECT_EQ(Platform.Trash.Views, 0);
}

}  // namespace
}  // namespace tarnwell::ui
