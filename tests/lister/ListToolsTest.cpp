#include "ListFixture.h"
#include "lister/rows/Comparison.h"
#include "lister/rows/FileRows.h"

namespace tarnwell::lister {
namespace {

class ListTools : public ListFixture {
 protected:
  explicit ListTools(ListId id = 102) : ListFixture(id) {
    fakes::MemoryFileSystem& files = Platform.Files;
    files.AddFile("C:\\box\\one\\a", std::string(10, 'x'));
    files.AddFile("C:\\box\\one\\deep\\b", std::string(20, 'x'));
    files.AddFile("C:\\box\\two\\c", std::string(5, 'x'));
    files.AddFile("C:\\box\\two\\d");
    files.AddFolder("C:\\box\\shut").ReadFault = files.Denied();
    files.AddLink("C:\\box\\way", "C:\\box\\one");
    files.AddFile("C:\\box\\file", "text");
    files.AddFolder("C:\\other\\one");
  }

  // As far as they are known.
  std::string Sizes() const {
    std::string sizes;
    for (int at = 0; at < Rows.ChildCount(RootRow); ++at) {
      const RowId row = Rows.Child(RootRow, at);
      const std::string size = Rows.CellText(row, HeadingId::Size);
      if (!size.empty() && size != "?")
        sizes += Rows.CellText(row, HeadingId::Name) + " " + size + " ";
    }
    return sizes;
  }
  std::string Written() {
    std::string content;
    Platform.Files.ReadFile("C:\\out.csv", content);
    return content;
  }
};

TEST_F(ListTools, AttributesThatComeWithTheNamesAreTakenForWhatTheyAre) {
  Platform.Files.ListsAttributes = true;
  Load();
  List.CalculateFolderSizes();
  Load("C:\\other");
  Platform.Files.At("C:\\box\\one").Modified = 1;
  Platform.Files.Looks = 0;
  for (const std::string content : {"longer", "longest"}) {
    Platform.Files.At("C:\\box\\file").Content = content;
    Load();
    EXPECT_EQ(Sizes(), "two 5 file " + std::to_string(content.size()) + " ");
  }
  EXPECT_EQ(Platform.Files.Looks, 2);  // at the link, each time
  Platform.Files.At("C:\\box\\two").Modified++;
  List.RefreshList();
  EXPECT_EQ(Sizes(), "file 7 ");
}

TEST_F(ListTools, MeasureFoldersAndKeepWhatTheyFound) {
  Load();
  List.SortCommand("asc");
  List.AddSortKey(0, "sSize", "asc");
  List.CancelRequested = true;  // left over from a key that came with nothing to stop
  List.CalculateFolderSizes();
  EXPECT_EQ(Sizes(), "two 5 one 30 file 4 ");
  EXPECT_EQ(Rows.CellText(Row(RootRow, "shut"), HeadingId::Size), "?");
  EXPECT_EQ(List.Shown().Status,
            "Sizes: 2 folders, 5 items, 35 bytes. Cannot read C:\\box\\shut: Permission denied");
  EXPECT_FALSE(List.CancelRequested);

  Load("C:\\other");
  Platform.Files.At("C:\\box\\one").Modified = 1;
  Platform.Files.AddFile("C:\\box\\two\\c", std::string(7, 'x'));
  Load();
  EXPECT_EQ(Sizes(), "two 5 file 4 ");
  List.RefreshList();
  View.Pointed = Row(RootRow, "two");
  List.CalculateItemSize();
  EXPECT_EQ(List.Shown().Status, "Size of two: 2 items, 7 bytes");
  EXPECT_EQ(Sizes(), "two 7 file 4 ");
  Platform.Files.At("C:\\box\\two").Modified++;
  List.RefreshList();
  EXPECT_EQ(Sizes(), "file 4 ");
  View.Pointed = Row(RootRow, "two");
  List.CalculateItemSize();
  for (const char* name : {"file", "way", ""}) {
    View.Pointed = Row(RootRow, name);
    List.CalculateItemSize();
    EXPECT_EQ(List.Shown().Status, "Size of two: 2 items, 7 bytes") << name;
  }

  Load("C:\\other");
  Platform.Clock.TickStep = 60;
  PostAt(1, [&] { List.CalculateFolderSizes(); });
  Load();  // measures nothing: whoever asked for it is not to wait
  EXPECT_EQ(Sizes(), "two 7 file 4 ");
  EXPECT_EQ(View.CatchUps, std::vector<int>{0});
  List.CatchUp();
  EXPECT_EQ(Sizes(), "two 7 one 30 file 4 ");

  // The wish goes with the read that it waited for.
  PostAt(1, [&] { List.CalculateFolderSizes(), List.CancelRequested = true; });
  Load("C:\\other");
  List.CatchUp();
  EXPECT_EQ(List.Shown().Status.substr(0, 15) + Sizes(), "Reading stopped");
}

// At each of the moments that there are.
TEST_F(ListTools, MeasuringGivesWayToWhatComesInBetween) {
  Platform.Clock.TickStep = 60;
  constexpr int moments = 8;
  const auto run = [&](auto message, auto check) {
    for (int moment = 1; moment <= moments && !HasFailure(); ++moment) {
      SCOPED_TRACE(moment);
      Platform.Files.At("C:\\box\\one").Modified++;  // what is known from before does not count
      Platform.Files.At("C:\\box\\two").Modified++;
      Load("C:\\other");
      Load();
      PostAt(moment, message);
      Platform.Pump.Calls = 0;
      List.CalculateFolderSizes();
      View.Check();
      check(moment);
    }
  };
  run([&] { List.CancelRequested = true; },
      [&](int moment) {
        EXPECT_EQ(Sizes(), moment > 4 ? "one 30 file 4 " : "file 4 ");
        EXPECT_FALSE(List.CancelRequested);
        EXPECT_EQ(Platform.Pump.Calls, moment);
      });
  // Escape and a change on disk in one go: the read must not swallow the key.
  run([&] { List.CancelRequested = true, Platform.Watches.Notify("C:\\box"); },
      [&](int) { EXPECT_EQ(List.Shown().Status.substr(0, 13), "Sizes stopped"); });
  run([&] { Load("C:\\other"), List.CalculateFolderSizes(); },
      [&](int) { EXPECT_EQ(Sizes(), "one 0 "); });
  run([&] { View.Pointed = Row(RootRow, "one"), List.CalculateItemSize(); },
      [&](int) {
        EXPECT_EQ(List.Shown().Status, "Size of one: 3 items, 30 bytes");
        EXPECT_EQ(Platform.Pump.Calls, moments + 4);
      });
  run(
      [&] {  // the row goes, and another one takes its number
        Platform.Files.At("C:\\box\\two").IsHidden = true;
        List.RefreshList();
        Platform.Files.AddFolder("C:\\box\\new");
        List.RefreshList();
      },
      [&](int) {
        EXPECT_EQ(Sizes(), "one 30 file 4 ");
        Platform.Files.At("C:\\box\\two").IsHidden = false;
        Platform.Files.Remove("C:\\box\\new");
      });
  Load();
  PostAt(6, [&] { List.Terminate(); });
  Platform.Pump.Calls = 0;
  List.CalculateFolderSizes();
  EXPECT_EQ(Platform.Pump.Calls, 6);
}

struct TreeTools : ListTools {
  TreeTools() : ListTools(2) {}
};

TEST_F(TreeTools, MeasureTheFoldersOnShowAndListThem) {
  Platform.Files.AddFolder("C:\\a,\"b\"");
  LoadDrive();
  const RowId top = Rows.Child(RootRow, 0);
  Rows.Expand(top);
  const RowId box = Row(top, "box");
  Rows.Expand(box);
  const auto size = [&](RowId row) { return Rows.CellText(row, HeadingId::Size); };
  View.Pointed = Row(box, "two");
  List.CalculateItemSize();
  EXPECT_EQ(size(Row(box, "two")) + size(Row(box, "one")), "5");
  List.CalculateFolderSizes();
  EXPECT_EQ(size(top) + " " + size(box) + size(Row(box, "way")), "\u2265 39 \u2265 39");
  EXPECT_TRUE(SizeNote(Rows, Row(box, "two")).empty() && !SizeNote(Rows, box).empty());

  List.SetHeadingProperty(static_cast<int>(HeadingId::Size), "active", base::Value(true));
  ASSERT_TRUE(List.SaveListing("C:\\out.csv"));
  EXPECT_EQ(Written(),
            "Name,Size,Path\r\nC:\\\\,39,\r\n\"a,\"\"b\"\"\",0,C:\\\\\r\nbox,39,C:\\\\\r\none,30,C:"
            "\\\\box\r\n"
            "shut,,C:\\\\box\r\ntwo,5,C:\\\\box\r\nway,,C:\\\\box\r\nother,0,C:\\\\\r\n");

  // A folder that has changed since is not shown with its old size.
  Platform.Files.At("C:\\box").Modified = 1;
  List.RefreshList();
  EXPECT_EQ(size(box) + size(Row(box, "two")), "5");

  Platform.Clock.TickStep = 60;
  PostAt(3, [&] { LoadDrive("D"); });
  List.CalculateFolderSizes();
  EXPECT_EQ(Names(), Texts{"D:\\"});
  EXPECT_EQ(size(Rows.Child(RootRow, 0)), "");
  PostAt(1, [&] { List.CalculateFolderSizes(); });
  LoadDrive("C");
  View.CatchUps.clear();
  List.CatchUp();
  EXPECT_EQ(size(Rows.Child(RootRow, 0)), "\u2265 170");  // and the listing

  Platform.Files.ExtendedAttributeFault = {95, "Operation not supported"};
  Events.Take();
  std::int32_t count = 0;
  List.SetItemColor("red", count);
  EXPECT_EQ(Events.Take(),
            Texts{"StatusMessage Cannot keep the colour of C:\\: Operation not supported"});
}

TEST_F(ListTools, ListingsHoldAnyNameAndAreWrittenWholeOrNotAtAll) {
  fakes::MemoryFileSystem& files = Platform.Files;
  files.AddFile("C:\\odd\\a,b", std::string(1234567, 'x')).Modified = 86'400'000'000'000;
  files.AddFile("C:\\odd\\q\"x.Txt");
  files.AddFile("C:\\odd\\new\nline");
  files.AddFile("C:\\odd\\\xff\xc3\xa4");
  for (const char* name : {"=1+1", "+,", "-", "@", "\t", "\r", "'"}) {
    files.AddFile("C:\\odd\\" + std::string(name)).AttributesFault = files.Denied();
  }
  files.AddFile("C:\\odd\\ lead").AttributesFault = files.Denied();
  Platform.Forms.GroupMark = Platform.Forms.DateMark = ".";  // nothing to a listing
  Load("C:\\odd");
  List.MoveHeading("headright");
  ASSERT_TRUE(List.SaveListing("C:\\out.csv"));
  const std::string whole =
      "Extension,Name,Size,Date Modified\r\n,\"'\t\",,\r\n,\"'\r\",,\r\n,\" lead\",,\r\n,'',,\r\n"
      ",\"'+,\",,\r\n,'-,,\r\n,'=1+1,,\r\n,'@,,\r\n,\"a,b\",1234567,1970-01-02 "
      "00:00:00\r\n"
      ",\"new\nline\",0,1970-01-01 00:00:00\r\nTxt,\"q\"\"x.Txt\",0,1970-01-01 00:00:00\r\n"
      ",\\xFF\xc3\xa4,0,1970-01-01 00:00:00\r\n";
  EXPECT_EQ(Written(), whole);

  files.WriteFault = {28, "No space left on device"};
  EXPECT_FALSE(List.SaveListing("C:\\out.csv"));
  EXPECT_EQ(List.Shown().Status,
            "Cannot write the listing to C:\\out.csv: No space left on device");
  files.WriteFault = {};
  Platform.Clock.TickStep = 60;
  for (int moment = 1; moment <= 5; ++moment) {
    PostAt(moment, [&] { List.CancelRequested = true; });
    EXPECT_FALSE(List.SaveListing("C:\\out.csv")) << moment;
    PostAt(moment, [&] { Load(); });
    EXPECT_FALSE(List.SaveListing("C:\\out.csv")) << moment;
    Load("C:\\odd");
    EXPECT_FALSE(List.CancelRequested);
  }
  EXPECT_EQ(Written(), whole);

  // Size, the last but one on show, after extension and name; hidden headings are passed over.
  for (int step = 0; step < 9; ++step) List.ChooseHeading("headright");
  List.ChooseHeading("headleft");
  for (const char* wanted : {"asc", "des", "asc"}) {
    std::string key, direction;
    List.TurnSort();
    EXPECT_TRUE(List.GetSortKey(0, key, direction));
    EXPECT_EQ(key + direction, std::string("sSize") + wanted);
  }
}

TEST_F(ListTools, ColoursAreKeptWithWhatTakesThem) {
  for (const char* name : {"gone", "lost"}) Platform.Files.AddFile("C:\\box\\" + std::string(name));
  List.SetProperty("ShowColor", true);
  Load();
  for (const char* name : {"one", "file", "gone", "lost"}) {
    Rows.MoveCurrent(Row(RootRow, name));
    List.SpaceKey();
  }
  for (const char* name : {"gone", "lost"}) Platform.Files.Remove("C:\\box\\" + std::string(name));
  // The colours of one, two and file on disk, and of file in the list; then what has changed.
  const auto colours = [&](const char* word) {
    std::int32_t count = 0;
    Texts changed, all;
    for (const ColouredItem& item : List.SetItemColor(word, count))
      changed.push_back(item.Path + ": " + item.Before + " > " + item.After);
    for (const char* name : {"one", "two", "file"}) {
      all.push_back(Platform.Files.At("C:\\box\\" + std::string(name))
                        .ExtendedAttributes[platform::ExtendedAttribute::Colour]);
    }
    EXPECT_EQ(Rows.StateOf(Row(RootRow, "file")).Colour, ColourOfWord(all.back()));
    all.insert(all.end(), changed.begin(), changed.end());
    return all;
  };
  Events.Take();
  EXPECT_EQ(colours("dark green"),
            (Texts{"dark green", "", "dark green", "C:\\box\\one:  > dark green",
                   "C:\\box\\file:  > dark green"}));
  EXPECT_EQ(Events.Take(), Texts{"StatusMessage Cannot keep the colour of gone: No such file or "
                                 "directory (and 1 more)"});
  Platform.Clock.TickStep = 60;
  PostAt(2, [&] { List.CancelRequested = true; });
  EXPECT_EQ(colours("default"), (Texts{"", "", "dark green", "C:\\box\\one: dark green > "}));
  EXPECT_FALSE(List.CancelRequested);
  EXPECT_EQ(List.Shown().Status, "Colours stopped: 1 of 4 items done");
  EXPECT_EQ(colours("default"), (Texts{"", "", "", "C:\\box\\file: dark green > "}));
  EXPECT_EQ(List.Shown().Status, "7 items (4 folders), 4 bytes. 4 selected, 4 bytes");
}

// Against a slow one that says the rules once more.
TEST(Comparison, MarksWhatASlowOneMarks) {
  std::mt19937 random(7);
  const auto pick = [&](int count) { return static_cast<int>(random() % count); };
  const auto fill = [&](FileRows& rows) {
    for (RowId row = 1, count = pick(12); row <= count; ++row) {
      const std::string names[] = {"a", "A", "b", "\xc3\xa4", "\xc3\x84", "\xff"};
      const auto kind = pick(3) == 0 ? platform::ItemKind::Folder : platform::ItemKind::File;
      rows.Add({.Name = names[pick(6)], .Kind = kind});
      const auto size = static_cast<std::uint64_t>(pick(3));
      const std::int64_t modified =
          pick(4) == 0 ? platform::UnknownTime : (pick(4) - 1) * 700'000'000LL;  // -1 to 1 s
      if (pick(5) > 0) rows.SetAttributes(row, {.Kind = kind, .Size = size, .Modified = modified});
    }
    return std::vector<CompareMarks>(rows.All().size(), {.OnlyHere = true});
  };
  const auto marks = [](const FileRows& rows) {
    std::vector<CompareMarks> all;
    for (const RowId row : rows.All()) all.push_back(rows.Row(row).Marks);
    return all;
  };
  const auto compare = [](auto left, auto right) { return (left > right) - (left < right); };
  const auto seconds = [](const FileRow& row) {
    return row.Modified < 0 ? -1 : row.Modified / 1'000'000'000;
  };
  for (int round = 0; round < 800 && !testing::Test::HasFailure(); ++round) {
    const auto& syntax = round % 2 ? base::PathSyntax::Posix() : base::PathSyntax::Windows();
    const std::int32_t mode = round / 2 % 4;
    FileRows here, there;
    std::vector<CompareMarks> wantHere = fill(here), wantThere = fill(there);
    int missing = static_cast<int>(there.All().size());
    for (const RowId l : here.All()) {
      for (const RowId r : there.All()) {
        const FileRow &left = here.Row(l), &right = there.Row(r);
        CompareMarks &one = wantHere[l - 1], &other = wantThere[r - 1];
        if (!other.OnlyHere || left.Kind != right.Kind) continue;
        if (!syntax.Same(here.Name(l), there.Name(r))) continue;
        const bool known = left.HasAttributes && right.HasAttributes && !left.IsFolder();
        const bool dated =
            left.Modified != platform::UnknownTime && right.Modified != platform::UnknownTime;
        const int size = known && (mode & 1) ? compare(left.Size, right.Size) : 0;
        const bool byDate = known && dated && (mode & 2);
        const int date = byDate ? compare(seconds(left), seconds(right)) : 0;
        one = {.Larger = size > 0, .Smaller = size<0, .Newer = date> 0, .Older = date < 0};
        other = {.Larger = size<0, .Smaller = size> 0, .Newer = date<0, .Older = date> 0};
        --missing;
        break;
      }
    }
    if (pick(2) == 0) here.SetShown({});  // as by a filter: what it hides is compared too
    std::vector<CompareRecord> records = MakeRecords(there, syntax);
    for (CompareRecord& record : records) record.State |= 0x700;  // of an earlier comparison
    records.emplace_back().State = 9;
    const CompareCounts found = MarkRows(here, records, mode, syntax);
    // An item may have gone since the records were made.
    const auto place = records.begin() + pick(static_cast<int>(records.size()));
    if (pick(2) == 0) records.insert(place, {"gone", "", ""});
    const CompareCounts own = MarkOwnRows(there, records, syntax);
    EXPECT_EQ(std::pair(found.Missing, found.All.OnlyHere),
              std::pair(own.All.OnlyHere, own.Missing));
    EXPECT_EQ(found.Missing, missing);
    EXPECT_EQ(marks(here), wantHere) << round;
    EXPECT_EQ(marks(there), wantThere) << round;
  }
}

TEST_F(ListTools, ComparisonsAreToldInTheStatusLine) {
  Load();
  std::vector<CompareRecord> records = List.CompareRecords();
  std::int32_t mode = 3;
  List.CompareAgainst(records, mode);
  EXPECT_EQ(List.Shown().Status, "Compared: all 1 file the same, 4 folders of the same name");
  records[0].Name += "?";
  Platform.Files.AddFile("C:\\box\\file", "longer");
  Platform.Files.AddFile("C:\\box\\more");
  List.RefreshList();
  List.CompareAgainst(records, mode);
  EXPECT_EQ(
      List.Shown().Status,
      "Compared: 2 only here, 1 missing, 1 differ (1 larger here), 3 folders of the same name");

  List.User().SetFilterText("o*");
  List.CompareAgainst(records, mode);
  EXPECT_EQ(List.Shown().Status,
            "Compared: 0 of 2 only here, 1 missing, 0 of 1 differ (0 of 1 larger here), "
            "1 of 3 folders of the same name");
  List.User().SetFilterText("");

  // The kinds go with the rows that have them, and the view learns it.
  List.WatchStart();
  EXPECT_EQ(View.Marks, (CompareMarks{.OnlyHere = true, .Larger = true}));
  Platform.Files.AddFile("C:\\box\\file", "longest");
  Platform.Watches.Notify("C:\\box", {{"file"}, false, false});
  EXPECT_EQ(View.Marks, CompareMarks{.OnlyHere = true});
  List.CompareAgainst(records, mode);
  Platform.Files.Remove("C:\\box\\file");
  Platform.Watches.Notify("C:\\box", {{"file"}, false, false});
  EXPECT_EQ(View.Marks, CompareMarks{.OnlyHere = true});
  const std::string text = List.Shown().Status;
  List.RefreshList();
  EXPECT_EQ(View.Marks, CompareMarks{});
  EXPECT_EQ(List.Shown().Status, text);
}

}  // namespace
}  // namespace tarnwell::lister
