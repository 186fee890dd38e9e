#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "fakes/FakePlatform.h"
#include "lister/CellText.h"
#include "lister/ListerControl.h"
#include "lister/MergeRows.h"
#include "lister/NoView.h"

namespace tarnwell::lister {
namespace {

using platform::ItemKind;

const fakes::FakeCollation Letters;
const NameOrder Names(Letters);

class Rows : public testing::Test {
 protected:
  // Names that have much in common: case, numbers, zeros before them, bytes that are no UTF-8.
  std::string RandomName(std::size_t longest = 5) {
    static const std::vector<std::string> parts = {
        "a", "A", "b", "0", "7", "12", ".", ".tXt", " ", "\xC3\xA4", "\xFE", "picture number "};
    std::string name;
    for (auto left = 1 + Random() % longest; left > 0; --left)
      name += parts[Random() % parts.size()];
    return name;
  }
  FileRows RandomRows(std::size_t count) {
    std::set<std::string> names;
    while (names.size() < count) names.insert(RandomName() + std::to_string(Random() % count));
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
    const auto time = [&] { return (static_cast<std::int64_t>(Random() % 5) - 2) * 1'000'000'007; };
    const FileRow& item = rows.Row(row);
    rows.SetAttributes(row, {.Kind = item.Kind,
                             .IsLink = item.IsLink,
                             .IsHidden = item.IsHidden,
                             .Size = 250 + Random() % 9,
                             .Modified = time(),
                             .Created = time(),
                             .Accessed = time(),
                             .Mode = static_cast<std::uint32_t>(Random() % 4 * 0111)});
    if (item.IsFolder() && Random() % 2 == 0) rows.SetFolderSize(row, Random() % 4 << 62);
    if (Random() % 2 == 0) rows.SetNotes(row, ItemColour::Red, RandomName());
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
  const auto time = [](std::int64_t value) { return std::pair(value != 0, value); };
  switch (heading) {
    case HeadingId::Name:
      return Names.Compare(rows.Name(left), rows.Name(right));
    case HeadingId::Extension:
      return Names.Compare(extension(one), extension(other));
    case HeadingId::Size:
      return compare(std::pair(one.HasSize(), one.Size), std::pair(other.HasSize(), other.Size));
    case HeadingId::DateLastModified:
      return compare(time(one.Modified), time(other.Modified));
    case HeadingId::DateCreated:
      return compare(time(one.Created), time(other.Created));
    case HeadingId::DateLastAccessed:
      return compare(time(one.Accessed), time(other.Accessed));
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

TEST_F(Rows, KeepWhatIsKnownOfThemOverAnyChange) {
  struct Item {
    std::int64_t Modified = 0;
    std::uint64_t FolderSize = 0;  // 0: not measured
    std::string Comment;
    bool IsSelected = false;
    RowId Row = NoRow;
    bool IsFolder() const { return FolderSize > 0; }
  };
  std::map<std::string, Item> items;  // what there should be
  FileRows rows;
  NoView view;
  NameFilter filter;
  const auto attributes = [](const Item& item) {
    return platform::ItemAttributes{.Kind = item.IsFolder() ? ItemKind::Folder : ItemKind::File,
                                    .Modified = item.Modified};
  };
  const auto entry = [&](const auto& known) {
    return platform::FolderEntry{.Name = known.first, .Kind = attributes(known.second).Kind};
  };
  for (int round = 0; round < 300; ++round) {
    const bool many = round % 7 == 0;
    std::vector<RowId> changed;
    std::vector<RowId> gone;
    std::set<std::string> goneNames;
    for (int change = many ? 300 : 4; change > 0; --change) {
      const std::string name = RandomName(2);  // so few that they meet again
      const auto found = items.find(name);
      if (goneNames.contains(name)) continue;
      if (found == items.end()) {
        Item& item = items[name];
        item.FolderSize = Random() % 3 == 0 ? 5 : 0;
      } else if (Random() % 2 == 0) {
        if (found->second.Row != NoRow) gone.push_back(found->second.Row);
        items.erase(found);
        goneNames.insert(name);
      } else {
        found->second.Modified = static_cast<std::int64_t>(Random() % 3);
        if (found->second.Row != NoRow) changed.push_back(found->second.Row);
      }
    }
    const std::vector<std::string> texts = {"", "b", "*1*", "a*;.t", "none of these"};
    if (round % 3 == 0) filter.SetText(texts[Random() % texts.size()]);
    filter.SetExtension(round % 11 == 0 ? "txt" : "");
    if (round % 2 == 0) {  // all is read again
      FileRows fresh;
      for (const auto& known : items) fresh.Add(entry(known));
      std::vector<RowId> partners = rows.PairWith(fresh);
      fresh.TakeOver(rows, partners);
      fresh.SetOrder(fresh.Sorted({}, Names));
      fresh.Filter(filter);
      MergeRows(rows, std::move(fresh), std::move(partners), view);
    } else {  // what is named alone
      std::erase_if(changed, [&](RowId row) { return std::count(gone.begin(), gone.end(), row); });
      for (auto& known : items) {
        if (known.second.Row == NoRow) changed.push_back(rows.Store(entry(known)));
      }
      std::vector<RowId> order = rows.Reordered(changed, {}, Names);
      std::erase_if(order, [&](RowId row) { return std::count(gone.begin(), gone.end(), row); });
      ArrangeRows(rows, order, filter, view);
    }

    ASSERT_EQ(rows.All(), rows.Sorted({}, Names));
    ASSERT_EQ(rows.All().size(), items.size());
    RowTotals expected;
    for (auto& [name, item] : items) {
      const RowId row = rows.Find(name);
      ASSERT_TRUE(rows.IsUsed(row));
      EXPECT_TRUE(item.Row == NoRow || item.Row == row) << name;
      item.Row = row;
      const bool isShown = filter.Takes(name, item.IsFolder());
      ASSERT_EQ(rows.Has(row), isShown);
      EXPECT_TRUE(!isShown || rows.At(rows.PositionOf(row)) == row);
      item.IsSelected = item.IsSelected && isShown;
      EXPECT_EQ(rows.Row(row).IsSelected, item.IsSelected);
      EXPECT_EQ(rows.Comment(row), item.Comment);
      // The folder's size goes with the first look that finds another date.
      const bool sizeStays = rows.Row(row).HasFolderSize && rows.Row(row).Modified == item.Modified;
      rows.SetAttributes(row, attributes(item));
      EXPECT_EQ(rows.Row(row).HasFolderSize, sizeStays) << name;
      if (item.IsFolder()) rows.SetFolderSize(row, item.FolderSize);
      if (isShown) {
        rows.SetSelected(row, item.IsSelected = Random() % 2 == 0);
        expected.Selected += item.IsSelected;
        expected.SelectedBytes += item.IsSelected ? item.FolderSize : 0;
        expected.Folders += item.IsFolder();
        expected.Bytes += item.FolderSize;
        ++expected.Items;
      }
      if (Random() % 4 == 0) {
        rows.SetNotes(row, ItemColour::Blue, item.Comment = Random() % 2 == 0 ? RandomName() : "");
      }
    }
    const auto numbers = [](const RowTotals& totals) {
      return std::tuple(totals.Items, totals.Folders, totals.Bytes, totals.Selected,
                        totals.SelectedBytes);
    };
    EXPECT_EQ(numbers(rows.Totals()), numbers(expected));
    EXPECT_EQ(rows.SelectedCount(), expected.Selected);
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

}  // namespace
}  // namespace tarnwell::lister
