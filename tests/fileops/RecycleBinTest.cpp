#include "fileops/frmRecycleBin.h"
#include "fileops/popDelete.h"
#include "lists/TestLists.h"

namespace tarnwell::fileops {
namespace {

using platform::TrashedItem;
using platform::TrashState;
using workspace::Texts;

TrashedItem Item(std::uint64_t id, const std::string& name, std::int64_t deleted,
                 std::uint64_t size) {
  return {.Id = id,
          .Name = name,
          .Folder = "C:\\Data",
          .Place = "C:\\Trash\\files\\" + name,
          .Deleted = deleted * 1'000'000'000,
          .Size = size,
          .IsSizeKnown = true};
}

std::string NamesOf(const TrashRows& rows) {
  std::string names;
  for (std::size_t row = 0; row < rows.Count(); ++row) names += rows[row].Name + " ";
  return names;
}

class RecycleBinTest : public testing::Test, public lists::TestLists {
 protected:
  RecycleBinTest() {
    Platform.Trash.Items = {Item(1, "a10.txt", 3, 7), Item(2, "a9.txt", 1, 900),
                            Item(3, "Photos", 2, 0)};
    Platform.Trash.Items[2].Kind = platform::ItemKind::Folder;
    Platform.Trash.Items[2].IsSizeKnown = false;
    Platform.Files.AddFile("C:\\Data\\other");
    // What a trash tells comes as messages do.
    Platform.Pump.Post([this] { Platform.Trash.Settle(); });
  }
  void Open() {
    Bin.ShowOver(Space.Form);
    Platform.Trash.Settle();
    Bin.ShowNews();
  }
  // The user, at the next question.
  void Answer(const std::function<void(popDelete&)>& answer) {
    Host.OnModal = [=](forms::Form& form) { answer(dynamic_cast<popDelete&>(form)); };
  }
  std::string Asked() {
    std::string asked;
    for (const auto& request : Platform.Operation.Requests) asked += InOneLine(request);
    Platform.Operation.Requests.clear();
    return asked;
  }

  TrashServices Services{Host,
                         Platform.Files,
                         Platform.Drives,
                         Platform.Trash,
                         Platform.Operation,
                         Platform.Pump,
                         Messages,
                         {Platform.Forms, Platform.Clock}};
  EmptyCommand Empty{Space, Services};
  std::string Opened;
  frmRecycleBin Bin{Space,          Services, Platform.Order,
                    Platform.Items, Empty,    [this](const std::string& path) { Opened = path; }};
};

TEST_F(RecycleBinTest, SortsFiltersAndSelects) {
  Open();
  EXPECT_EQ(NamesOf(Bin.Rows()), "a10.txt Photos a9.txt ");
  Bin.HeadingClick(TrashColumn::Name);
  EXPECT_EQ(NamesOf(Bin.Rows()), "a9.txt a10.txt Photos ");
  Bin.HeadingClick(TrashColumn::Name);
  EXPECT_EQ(NamesOf(Bin.Rows()), "Photos a10.txt a9.txt ");
  Bin.HeadingClick(TrashColumn::Size);
  EXPECT_EQ(NamesOf(Bin.Rows()), "a9.txt a10.txt Photos ");
  EXPECT_EQ(Bin.lblStatus.Caption, "3 items, at least 907 bytes");
  EXPECT_FALSE(Bin.cmdRestore.Enabled);

  Bin.Select(0, 1, true);
  EXPECT_EQ(Bin.lblStatus.Caption, "2 of 3 items selected, 907 bytes");
  Bin.FilterTyped("A1*");
  EXPECT_EQ(NamesOf(Bin.Rows()), "a10.txt ");
  Bin.FilterTyped("");
  // What was out of sight is not selected any more.
  EXPECT_EQ(Bin.Rows().SelectedIds(), std::vector<std::uint64_t>{1});
  Platform.Trash.TakeOut(1);
  Bin.ShowNews();
  EXPECT_EQ(Bin.Rows().Selected().Items, 0U);
  EXPECT_EQ(Bin.lblStatus.Caption, "2 items, at least 900 bytes");
}

// The rows that came one by one are those that came all at once.
TEST_F(RecycleBinTest, KeepsTheOrderWhateverComesAndGoes) {
  std::mt19937 random(7);
  for (const bool descending : {false, true}) {
    for (std::size_t column = 0; column < TrashColumnCount; ++column) {
      TrashRows few(Platform.Order), all(Platform.Order);
      few.Sort(static_cast<TrashColumn>(column), descending);
      all.Sort(static_cast<TrashColumn>(column), descending);
      std::map<std::uint64_t, TrashedItem> items;
      for (int step = 0; step < 300; ++step) {
        const std::uint64_t id = 1 + random() % 40;
        if (random() % 4 == 0) {
          few.Drop({id});
          items.erase(id);
          continue;
        }
        items[id] = Item(id, "n" + std::to_string(random() % 5), random() % 5, random() % 5);
        few.Take({Item(id, "before", 9, 9), items[id]});
      }
      std::vector<TrashedItem> atOnce;
      for (const auto& [id, item] : items) atOnce.push_back(item);
      for (std::uint64_t id = 1000; id < 1300; ++id) atOnce.push_back(Item(id, "z", 0, 0));
      all.Take(atOnce);
      for (std::uint64_t id = 1000; id < 1300; ++id) all.Drop({id});
      EXPECT_EQ(NamesOf(few), NamesOf(all)) << column << descending;
      EXPECT_EQ(few.All().Bytes, all.All().Bytes);
    }
  }
}

TEST_F(RecycleBinTest, PutsBackAndDeletesWhatIsStillThere) {
  Platform.Trash.Items[1].State = TrashState::LeadsOut;
  Open();
  Bin.HeadingClick(TrashColumn::Name);
  Bin.Select(0, 0, true);
  EXPECT_FALSE(Bin.cmdRestore.Enabled);
  EXPECT_FALSE(Bin.cmdOpenFolder.Enabled);
  EXPECT_EQ(Bin.lblNote.Caption,
            "The record of this item names a folder outside its volume: it cannot be restored, "
            "only deleted.");
  Bin.cmdRestoreClick();
  EXPECT_EQ(Asked(), "");
  Bin.Select(1, 1, true);
  Bin.cmdRestoreClick();
  EXPECT_EQ(Asked(), "1 C:\\Trash\\files\\a10.txt;> C:\\Data\\a10.txt;");

  Answer([this](popDelete& dialog) {
    EXPECT_TRUE(dialog.cmdCancel.Default);
    EXPECT_EQ(dialog.txtSource.Text, "2 items, 907 bytes");
    Platform.Trash.TakeOut(1);
    Bin.ShowNews();
    dialog.cmdDeleteClick();
  });
  Bin.cmdDeleteClick();
  EXPECT_EQ(Asked(), "3 C:\\Trash\\files\\a9.txt;> ;");
  Answer([](popDelete& dialog) { dialog.cmdCancelClick(); });
  Bin.cmdDeleteClick();
  // The program is asked to end while the question is open.
  Answer([this](popDelete& dialog) {
    Host.Unload(Bin);
    dialog.cmdDeleteClick();
  });
  Bin.cmdDeleteClick();
  EXPECT_EQ(Asked(), "");
  EXPECT_EQ(Platform.Trash.Views, 0);
}

TEST_F(RecycleBinTest, OpensTheFolderAndTellsWhereItIsGone) {
  Open();
  Bin.Select(0, 0, true);
  Bin.cmdOpenFolderClick();
  EXPECT_EQ(Opened, "C:\\Data");
  TrashedItem moved = Platform.Trash.Items[0];
  moved.Folder = "C:\\Gone";
  Platform.Trash.Tell(moved);
  Bin.ShowNews();
  Opened.clear();
  Bin.cmdOpenFolderClick();
  EXPECT_EQ(Opened, "");
  EXPECT_EQ(Messages.Texts, Texts{"The folder C:\\Gone is no longer there."});
  Bin.cmdPropertiesClick();
  EXPECT_EQ(Platform.Items.Properties, (std::vector<Texts>{{"C:\\Trash\\files\\a10.txt"}}));
}

TEST_F(RecycleBinTest, EmptiesWhatItAskedAbout) {
  std::string root = "D:\\";
  Messages.OnMessage = [this] {
    EXPECT_EQ(Host.ScreenPointer(), forms::MousePointer::Hourglass);
    EXPECT_EQ(Space.Form.Toolbar1.MousePointer, forms::MousePointer::Hourglass);
    Platform.Trash.Tell(Item(4, "late", 9, 9));
    Platform.Trash.TakeOut(3);
  };
  Messages.Result = "YES";
  Empty.EmptyRecycleBin(root);
  EXPECT_EQ(Platform.Trash.Drive, "D");
  EXPECT_EQ(Messages.Texts.at(0),
            "Do you want to delete everything in the recycle bin for good?\r\n\r\n"
            "3 items, at least 907 bytes");
  const std::string asked = Asked();
  EXPECT_NE(asked.find("a10.txt"), std::string::npos);
  EXPECT_EQ(asked.find("late"), std::string::npos);
  EXPECT_EQ(asked.find("Photos"), std::string::npos);
  EXPECT_EQ(Host.ScreenPointer(), forms::MousePointer::Default);
  EXPECT_EQ(Space.Form.Toolbar1.MousePointer, forms::MousePointer::Default);
  EXPECT_EQ(Platform.Trash.Views, 0);

  // An error, when all is over; and with NO nothing is done.
  Messages.OnMessage = {};
  Platform.Operation.Holds = true;
  Platform.Operation.OnRun = [](const platform::OperationRequest&) { return 13; };
  for (const char* answer : {"YES", "NO"}) {
    Messages.Result = answer;
    Platform.Pump.Post([this] { Platform.Trash.Settle(); });
    Empty.EmptyRecycleBin(root = "");
    EXPECT_EQ(Platform.Trash.Drive, "");
    EXPECT_EQ(Host.ScreenPointer(), forms::MousePointer::Default);
    Platform.Operation.Finish();
  }
  EXPECT_EQ(Messages.Texts.size(), 4U);
  EXPECT_EQ(Messages.Texts.at(2),
            "An error occurred and the recycle bin may not have been emptied.");
  EXPECT_EQ(Platform.Operation.Requests.size(), 1U);
  // What another operation works in is not asked about.
  Platform.Operation.Refused = base::ItemList(Platform.Operation.Requests.at(0).Items).First();
  Platform.Pump.Post([this] { Platform.Trash.Settle(); });
  Empty.EmptyRecycleBin(root);
  EXPECT_EQ(Messages.Texts.at(4), "Refused 3");
  EXPECT_EQ(Platform.Operation.Requests.size(), 1U);
  EXPECT_EQ(Host.ScreenPointer(), forms::MousePointer::Default);
}

TEST_F(RecycleBinTest, SaysNothingOfATrashThatIsEmptyAndTellsOfOneThatCannotBeRead) {
  std::string all;
  Platform.Trash.Items.clear();
  Empty.EmptyRecycleBin(all);
  EXPECT_EQ(Messages.Texts, Texts{});
  Platform.Trash.Troubles = {{"D:\\Trash", {13, "access is denied"}}};
  Platform.Pump.Post([this] { Platform.Trash.Settle(); });
  Empty.EmptyRecycleBin(all);
  EXPECT_EQ(Messages.Texts,
            Texts{"An error occurred and the recycle bin may not have been emptied."});
  Open();
  EXPECT_EQ(Bin.lblNote.Caption, "The trash D:\\Trash cannot be read: access is denied.");
  // One that never answers is given up.
  Platform.Pump.Post([this] { Empty.GiveUp(); });
  Empty.EmptyRecycleBin(all);
  EXPECT_EQ(Messages.Texts.size(), 1U);
}

}  // namespace
}  // namespace tarnwell::fileops
