#include "fakes/FakePlatform.h"
#include "lister/rows/ColumnRoom.h"
#include "lister/rows/FileRows.h"
#include "lister/rows/MergeRows.h"
#include "lister/rows/NameFilter.h"
#include "lister/rows/NameOrder.h"
#include "lister/rows/NoView.h"

namespace tarnwell::lister {
namespace {

using platform::ItemKind;

const fakes::FakeCollation Letters;
const NameOrder Names(Letters);

class Rows : public testing::Test {
 protected:
  // Names that have much in common: case, numbers, zeros before them, bytes that are no UTF-8.
  std::string RandomName() {
    static const std::vector<std::string> parts = {
        "a", "A", "b", "0", "7", "12", ".", ".tXt", " ", "\xC3\xA4", "\xFE", "picture number "};
    std::string name;
    for (auto left = 1 + Random() % 5; left > 0; --left) name += parts[Random() % parts.size()];
    return name;
  }
  FileRows RandomRows(std::size_t count) {
    std::set<std::string> names;
    while (names.size() < count) {
      const std::string name = RandomName() + "x";
      std::string number = std::to_string(Random() % count);
      names.insert(name + number);
      if (Random() % 8 == 0) names.insert(name + number.insert(0, 1, '0'));  // of equal rank
    }
    std::vector<std::string> shuffled(names.begin(), names.end());
    std::shuffle(shuffled.begin(), shuffled.end(), Random);
    FileRows rows;
    for (const std::string& name : shuffled) {
      const RowId row = rows.Add({.Name = name,
                                  .Kind = Random() % 4 == 0 ? ItemKind::Folder : ItemKind::File,
                                  .IsLink = Random() % 8 == 0,
                                  .IsHidden = Random() % 2 == 0});
      if (Random() % 8 != 0) Change(rows, row);
    }
    return rows;
  }
  void Change(FileRows& rows, RowId row) {
    const auto time = [&] {
      const auto number = static_cast<std::int64_t>(Random() % 6) - 2;
      return number > 2 ? platform::UnknownTime : number * 1'000'000'007;
    };
    const FileRow& item = rows.Row(row);
    rows.SetAttributes(row, {.Kind = item.Kind,
                             .IsLink = item.IsLink,
                             .IsHidden = item.IsHidden,
                             .Size = 250 + Random() % 9,
                             .Modified = time(),
                             .Created = time(),
                             .Accessed = time(),
                             .Mode = static_cast<std::uint32_t>(Random() % 4 * 0111)});
    if (item.IsFolder() && Random() % 2 == 0) rows.SetFolderSize(row, {Random() % 4 << 62});
    if (Random() % 2 == 0) rows.SetExtendedAttributes(row, ItemColour::Red, RandomName());
  }

  std::mt19937_64 Random{7};
};

// The order by one heading, said as plainly as can be.
int CompareBy(HeadingId heading, const FileRows& rows, RowId left, RowId right) {
  const FileRow &one = rows.Row(left), &other = rows.Row(right);
  const auto compare = [](auto a, auto b) { return (a > b) - (a < b); };
  const auto extension = [&](const FileRow& row) {
    return row.IsFolder() ? "" : std::string(ExtensionOf(rows.NameOf(row)));
  };
  const auto type = [&](const FileRow& row) {
    return TypeText(rows.NameOf(row), row.Kind, row.IsLink);
  };
  const auto known = [](const FileRow& row, auto value) {
    return std::pair(row.HasAttributes, value);
  };
  switch (heading) {
    case HeadingId::Name:
      return Names.Compare(rows.Name(left), rows.Name(right));
    case HeadingId::Extension:
      return Names.Compare(extension(one), extension(other));
    case HeadingId::Size:
      return compare(std::pair(one.HasSize(), one.Size), std::pair(other.HasSize(), other.Size));
    case HeadingId::DateLastModified:
      return compare(one.Modified, other.Modified);
    case HeadingId::DateCreated:
      return compare(one.Created, other.Created);
    case HeadingId::DateLastAccessed:
      return compare(one.Accessed, other.Accessed);
    case HeadingId::FileType:
      return Names.Compare(type(one), type(other));
    case HeadingId::Attributes:
      return compare(AttributeText(one), AttributeText(other));
    case HeadingId::Comments:
      return Names.Compare(rows.Comment(left), rows.Comment(right));
    case HeadingId::Path:
      return 0;
    case HeadingId::Permissions:
      return compare(known(one, one.Mode), known(other, other.Mode));
  }
  return 0;
}

TEST_F(Rows, StandInTheOrderOfAllKeys) {
  for (int round = 0; round < 2 * HeadingCount; ++round) {
    std::vector<SortKey> keys = {{HeadingId(round % HeadingCount), round >= HeadingCount}};
    for (auto more = Random() % 3; more > 0; --more) {
      keys.push_back({HeadingId(Random() % HeadingCount), Random() % 2 == 0});
    }
    // Now and then enough rows for groups to be dealt out.
    FileRows rows = RandomRows(round % 6 == 0 ? 3000 : 200);
    const auto before = [&](RowId left, RowId right) {
      if (rows.Row(left).IsFolder() != rows.Row(right).IsFolder()) {
        return rows.Row(left).IsFolder();
      }
      for (const SortKey& key : keys) {
        const int order = CompareBy(key.Heading, rows, left, right);
        if (order != 0) return key.Descending ? order > 0 : order < 0;
      }
      return Names.Before(rows.Name(left), rows.Name(right));
    };
    std::vector<RowId> expected = rows.All();
    std::sort(expected.begin(), expected.end(), before);
    ASSERT_EQ(rows.Sorted(keys, Names), expected) << round;
    rows.SetOrder(expected);
    ASSERT_EQ(rows.Order(), expected);

    // Rows that change find their place among the others.
    std::vector<RowId> changed(Random() % 20);
    for (RowId& row : changed) {
      row = rows.At(static_cast<int>(Random() % 200));
      Change(rows, row);
    }
    std::sort(expected.begin(), expected.end(), before);
    ASSERT_EQ(rows.Reordered(changed, keys, Names), expected) << round;
  }
}

TEST_F(Rows, KeepTheirTotalsAsTheyChange) {
  FileRows rows;
  NoView view;
  NameFilter filter;
  for (int round = 0; round < 3000; ++round) {
    const RowId row =
        rows.Count() == 0 ? NoRow : rows.At(static_cast<int>(Random() % rows.Count()));
    const auto action = rows.All().size() < 5 ? 0 : Random() % 8;
    if (action == 0) {
      FileRows fresh = RandomRows(1 + Random() % 60);
      for (RowId unread = 1; unread < fresh.StoreSize() / 8; ++unread) fresh.SetUnreadable(unread);
      std::vector<RowId> partners = rows.PairWith(fresh);
      fresh.TakeOver(rows, partners);
      fresh.Filter(filter);
      MergeRows(rows, std::move(fresh), std::move(partners), view);
    } else if (action == 1) {
      filter.SetText(std::string(Random() % 2, "ab0."[Random() % 4]));
      std::vector<RowId> all = rows.All();
      all.resize(all.size() - Random() % 3);
      ArrangeRows(rows, std::move(all), filter, view);
    } else if (action == 2) {
      rows.SetShown(Random() % 2 == 0 ? rows.All() : std::vector<RowId>());
    } else if (row != NoRow) {
      if (action < 5) rows.SetSelected(row, Random() % 2 == 0);
      if (action > 5) Change(rows, row);
      if (action == 5) rows.SetUnreadable(row);
    }
    RowTotals totals;
    int unread = 0;
    for (const RowId each : rows.All()) unread += rows.Row(each).IsUnreadable();
    for (const RowId each : rows.Order()) {
      const FileRow& item = rows.Row(each);
      totals.Folders += item.IsFolder();
      totals.Bytes += item.Size;
      totals.Selected += item.IsSelected;
      totals.SelectedBytes += item.IsSelected ? item.Size : 0;
    }
    ASSERT_TRUE(rows.Totals() == totals) << round << " after " << action;
    ASSERT_EQ(rows.UnreadableCount(), unread) << round << " after " << action;
  }
}

TEST_F(Rows, TakeNoRoomForNamesThatAreGone) {
  FileRows rows;
  EXPECT_EQ(rows.Add({.Name = std::string(70'000, 'x')}), NoRow);
  const RowId stays = rows.Store({.Name = "stays"});
  const char* const before = rows.Name(stays).data();
  for (int round = 0; round < 100; ++round) {
    rows.Forget(rows.Store({.Name = std::string(60'000, 'x')}));
  }
  EXPECT_NE(rows.Name(stays).data(), before);
  EXPECT_EQ(rows.Name(stays), "stays");
  EXPECT_EQ(rows.StoreSize(), 2);
}

TEST(NameOrder, PutsNamesAsPeopleExpectThem) {
  // Each name stands before the next one.
  const std::vector<std::string> names = {
      "", "1", "2", "10", "10a", "a", "a 2", "A1", "a01", "a1b", "a2", "a10",
      // Longer than any number, and than what is told of a number at a time.
      "a99999999999999999999998", "a99999999999999999999999", "a" + std::string(249, '9'),
      "a" + std::string(250, '1'), "a" + std::string(500, '1'), "a" + std::string(500, '2'),
      // Letters beyond ASCII, then what is no UTF-8.
      "B", "b.txt", "File9", "file10", "\xC3\xA4", "\xC3\xA4x", "\x80", "\xC3", "\xFF"};
  auto sorted = names;
  std::shuffle(sorted.begin(), sorted.end(), std::mt19937(7));
  std::sort(sorted.begin(), sorted.end(),
            [](const auto& left, const auto& right) { return Names.Before(left, right); });
  EXPECT_EQ(sorted, names);
  EXPECT_EQ(Names.Compare("Read 007", "rEAD 7"), 0);
  EXPECT_EQ(Names.Compare("0", "000"), 0);
}

TEST(NameFilter, TakesByPatterns) {
  const std::string hard(255, 'a');
  const struct {
    std::string Text;
    std::vector<std::string> Taken, Left;
  } cases[] = {
      {"", {"any"}, {}},
      {" PORT ", {"report.txt"}, {"rep.ort"}},
      {"*.txt", {"A.TXT"}, {"a.txt.gz"}},
      {"r*t", {"report"}, {"report.txt2"}},
      {"*a*b*", {"xaxbx"}, {"xbxax"}},
      {"**", {""}, {}},
      {"?", {"\xC3\xA4"}, {}},             // one letter of two bytes
      {"??", {"\xFF\xC3"}, {"\xC3\xA4"}},  // bytes that are no UTF-8
      {"*?\xC3\xA4", {"\xC3\xA4\xC3\xA4"}, {}},
      {"?*", {}, {""}},
      {"n#", {"n5"}, {"nx", "n55"}},
      {"\xC3\x84R", {"B\xC3\xA4r \xFF"}, {}},  // an A with two dots
      {"a*ab", {"aaab"}, {}},
      {"*.c; *.h ;readme", {"x.H", "old README 2"}, {"x.hh"}},
      {"[a-z]", {}, {"b"}},
      {"*a*a*a*a*a*a*a*a*a*a*a*b", {}, {hard}},
      {"*a*a*a*a*a*a*a*a*a*a*a*", {hard}, {}},
  };
  for (const auto& one : cases) {
    NameFilter filter;
    filter.SetText(one.Text);
    for (const bool taken : {true, false}) {
      for (const std::string& name : taken ? one.Taken : one.Left) {
        EXPECT_EQ(filter.Takes(name, false), taken) << one.Text << " " << name;
      }
    }
  }
}

TEST(Headings, GiveTheNameTheRoomThatIsLeft) {
  Headings table(true);
  table.SetNeeds(HeadingId::DateLastModified, {.Column = 2100, .Cell = 2100, .Brief = 1500});
  const auto in = [&table](base::Twips room) {
    const ColumnWidths widths = WidthsIn(table, room);
    return std::vector<base::Twips>(widths.begin(), widths.begin() + 4);
  };
  using Widths = std::vector<base::Twips>;  // name, extension, size, date
  EXPECT_EQ(in(20000), (Widths{15255, 1140, 1500, 2100}));
  EXPECT_EQ(in(8340), (Widths{3600, 1140, 1500, 2100}));
  EXPECT_EQ(in(7700), (Widths{3600, 495, 1500, 2100}));  // a broken pixel is nobody's
  EXPECT_EQ(in(7000), (Widths{3600, 300, 1500, 1590}));
  EXPECT_EQ(in(6000), (Widths{2700, 300, 1500, 1500}));
  EXPECT_EQ(in(4500), (Widths{1620, 300, 1200, 1380}));
  EXPECT_EQ(in(-10), (Widths{1620, 300, 1200, 1200}));
  table.LendsPath = true;
  EXPECT_EQ(in(20000), (Widths{7635, 1140, 1500, 2100}));
  EXPECT_EQ(WidthsIn(table, 20000)[static_cast<std::size_t>(HeadingId::Path)], 7620);
  table.NameSized = true;
  EXPECT_EQ(in(20000), (Widths{3600, 1140, 1500, 2100}));
}

TEST(Headings, HoldValuesToWhatAListCanShow) {
  Headings table(true);
  const auto width = [&](std::int32_t asked) {
    table.SetProperty(2, "WIDTH", asked);
    return std::get<std::int32_t>(table.Property(2, "width"));
  };
  EXPECT_EQ(width(-5), 300);
  EXPECT_EQ(width(2147483647), 30000);
  table.SetProperty(0, "active", false);
  EXPECT_TRUE(table[HeadingId::Name].Active);
  table.SetProperty(2, "active", std::string("False"));
  EXPECT_FALSE(table.IsActive("Size"));
  table.SetProperty(1, "key", std::string("sName"));
  EXPECT_EQ(table[HeadingId::Extension].Key, "sExtension");
  table.SetProperty(1, "Caption", std::string("Ext"));
  EXPECT_EQ(std::get<std::string>(table.Property(1, "Caption")), "Ext");

  EXPECT_THROW(table.SetProperty(2, "Width", std::string("wide")), base::ConversionError);
  EXPECT_THROW(table.SetProperty(2, "Colour", std::int32_t{1}), std::out_of_range);
  EXPECT_THROW(table.SetProperty(HeadingCount, "Width", std::int32_t{1}), std::out_of_range);
  EXPECT_THROW(table.Property(-1, "Width"), std::out_of_range);

  // Every place has one heading.
  for (const std::int32_t place : {2, 11, -1}) table.SetProperty(0, "Index", place);
  EXPECT_EQ(table[HeadingId::Size].Index, 0);
  EXPECT_EQ(table.Order()[2], HeadingId::Name);

  // A whole order comes back heading by heading, as settings hand it in.
  for (int number = 0; number < HeadingCount; ++number) {
    table.SetProperty(number, "Index", std::int32_t{HeadingCount - 1 - number});
  }
  for (int place = 0; place < HeadingCount; ++place) {
    EXPECT_EQ(static_cast<int>(table.Order()[static_cast<std::size_t>(place)]),
              HeadingCount - 1 - place);
  }
}

}  // namespace
}  // namespace tarnwell::lister
