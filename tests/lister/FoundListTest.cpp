#include "ListFixture.h"

namespace tarnwell::lister {
namespace {

using platform::ItemKind;

// What was found below C:\box: two names twice.
class FoundItems : public ListFixture {
 protected:
  FoundItems() : ListFixture(102) {
    for (const char* const file : {"C:\\box\\z\\b.txt", "C:\\box\\a\\b.txt", "C:\\box\\m\\c.log",
                                   "C:\\box\\a10", "C:\\box\\m\\deep\\a9"}) {
      Platform.Files.AddFile(file, file);
    }
  }
  void Show() {
    List.ShowFound("C:\\box\\");
    List.AddFound({{"z\\b.txt"}, {"m\\c.log"}, {"m\\deep", ItemKind::Folder}});
    List.AddFound({{"a\\b.txt"}, {"a10"}, {"m\\deep\\a9"}});
  }
  // By the names that people see, with the folders as far as those were searched.
  Texts Paths() const {
    Texts paths;
    for (int at = 0; at < Rows.ChildCount(RootRow); ++at) {
      paths.push_back(Rows.PathOf(Rows.Child(RootRow, at)).substr(7));
    }
    return paths;
  }
};

TEST_F(FoundItems, ComeIntoTheirPlacesByTheirOwnNames) {
  Load();
  Show();
  EXPECT_EQ(Paths(), Texts({"m\\deep", "m\\deep\\a9", "a10", "a\\b.txt", "z\\b.txt", "m\\c.log"}));
  EXPECT_EQ(Names(), Texts({"deep", "a9", "a10", "b.txt", "b.txt", "c.log"}));
  const RowId second = Rows.Child(RootRow, 4);
  EXPECT_EQ(Rows.CellText(second, HeadingId::Path), "C:\\box\\z");
  EXPECT_EQ(Rows.CellText(second, HeadingId::Extension), "txt");
  EXPECT_EQ(Rows.CellText(second, HeadingId::Size), "14");
  EXPECT_TRUE(List.Shown().Table.IsShown(HeadingId::Path));
  EXPECT_TRUE(List.Shown().Status.starts_with("Found below C:\\box: 6 items"))
      << List.Shown().Status;

  List.User().SetFilterText("b*");  // no folder's name counts
  EXPECT_EQ(Paths(), Texts({"a\\b.txt", "z\\b.txt"}));
  List.User().SetFilterText("");
  Input.TypeText("c");
  EXPECT_EQ(Rows.PathOf(Rows.CurrentRow()), "C:\\box\\m\\c.log");
  List.AddSortKey(0, "sPath", "des");
  EXPECT_EQ(Paths().at(2), "m\\deep\\a9");

  for (const bool byKey : {false, true}) EXPECT_EQ(List.TargetFolder(byKey), "");
  EXPECT_EQ(List.PasteFolder() + List.User().DropTarget(NoRow), "");
  EXPECT_EQ(List.User().DropTarget(Rows.Child(RootRow, 0)), "C:\\box\\m\\deep");

  Load();  // the same folder, as such
  EXPECT_EQ(Names(), Texts({"a", "m", "z", "a10"}));
  EXPECT_FALSE(List.ShowsFound() || List.Shown().Table.IsShown(HeadingId::Path));
  EXPECT_EQ(List.TargetFolder(), "C:\\box\\");
  List.AddFound({{"a\\b.txt"}});  // too late
  EXPECT_EQ(Names().size(), 4U);
}

TEST_F(FoundItems, AreLookedAtAgainAndFollowWhatMovedThem) {
  Show();
  Platform.Files.Remove("C:\\box\\a\\b.txt");
  Platform.Files.At("C:\\box\\z\\b.txt").Content = "more than it was";
  List.CatchUp();
  EXPECT_EQ(Names().size(), 6U);
  List.RefreshList();
  EXPECT_EQ(Paths(), Texts({"m\\deep", "m\\deep\\a9", "a10", "z\\b.txt", "m\\c.log"}));
  EXPECT_EQ(Rows.CellText(Row(RootRow, "b.txt"), HeadingId::Size), "16");

  const RowId deep = Row(RootRow, "a9");
  Rows.MoveCurrent(deep);
  Platform.Files.Rename("C:\\box\\m", "C:\\box\\n");
  Platform.Files.Rename("C:\\box\\a10", "C:\\a10");
  Platform.Files.AddFile("C:\\box\\copy");
  List.FollowMoved({{"C:\\box\\m", "C:\\box\\n"},
                    {"C:\\box\\a10", "C:\\a10"},
                    {"C:\\box\\z\\b.txt", "C:\\box\\copy"}});
  EXPECT_EQ(Paths(), Texts({"n\\deep", "n\\deep\\a9", "z\\b.txt", "n\\c.log"}));
  EXPECT_EQ(Rows.CurrentRow(), deep);
  // Taken back.
  Platform.Files.Rename("C:\\a10", "C:\\box\\a10");
  List.FollowMoved({{"C:\\a10", "C:\\box\\a10"}});
  EXPECT_EQ(Paths().at(2), "a10");
  Platform.Files.Remove("C:\\box\\a10");
  List.RefreshList();

  // At most once for an operation, and when its bracket has closed.
  Platform.OpenBrackets = 1;
  Platform.Files.Remove("C:\\box\\z");
  const int looks = Platform.Files.Looks;
  List.RefreshList();
  List.RefreshList();
  EXPECT_EQ(Platform.Files.Looks, looks);
  Platform.OpenBrackets = 0;
  List.LookAtDisk(LookReason::Operation);
  EXPECT_EQ(View.CatchUps, std::vector<int>({0}));
  List.CatchUp();
  EXPECT_EQ(Platform.Files.Looks, looks + 3);
  EXPECT_EQ(Paths(), Texts({"n\\deep", "n\\deep\\a9", "n\\c.log"}));
}

TEST_F(FoundItems, AreOneWhereOneTookThePlaceOfAnother) {
  Show();
  Platform.Files.Remove("C:\\box\\a\\b.txt");
  Platform.Files.Rename("C:\\box\\z\\b.txt", "C:\\box\\b.txt");
  List.FollowMoved(
      {{"C:\\box\\a\\b.txt", "C:\\box\\b.txt"}, {"C:\\box\\z\\b.txt", "C:\\box\\b.txt"}});
  EXPECT_EQ(Paths(), Texts({"m\\deep", "m\\deep\\a9", "a10", "b.txt", "m\\c.log"}));
}

}  // namespace
}  // namespace tarnwell::lister
