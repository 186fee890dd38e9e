#include "FolderServices.h"
#include "TempFolder.h"

namespace tarnwell::platform {
namespace {

namespace fs = std::filesystem;

const auto onwards = [](const FolderTotal&) { return true; };

std::map<std::string, FolderEntry> EntriesOf(const std::string& folder) {
  std::map<std::string, FolderEntry> entries;
  const base::Status status = TestedFiles().ReadFolder(folder, [&](const FolderEntry& entry) {
    entries[std::string(entry.Name)] = entry;
    ItemAttributes own;
    if (entry.Attributes != nullptr) {
      EXPECT_TRUE(TestedFiles().ReadAttributes(folder, std::string(entry.Name), own));
      EXPECT_TRUE(own.Size == entry.Attributes->Size && own.Kind == entry.Attributes->Kind &&
                  own.Modified == entry.Attributes->Modified && own.Kind == entry.Kind &&
                  own.Mode == entry.Attributes->Mode);
    }
    return true;
  });
  EXPECT_TRUE(status) << status.Reason;
  return entries;
}

TEST(FileSystem, ReadsAndWritesWholeFiles) {
  const TempFolder folder;
  TestedFiles files;
  folder.Make({"sub/", "old=old content"});
  const std::string big(3'000'000, 'x');
  const std::pair<std::string, std::string> written[] = {
      {"-rf", ""},
      {"old", big},
      {"100% 'odd', ~ $x \u00e9\u4e2d\U0001F600", "a\r\n\0b"},
      {std::string(255, 'x'), "new"}};
  for (const auto& [name, content] : written) {
    ASSERT_TRUE(files.WriteFile(folder / name, content)) << name;
  }
  const auto entries = EntriesOf(folder.Path());
  EXPECT_EQ(entries.size(), 1 + std::size(written));  // and nothing with a temporary name
  EXPECT_EQ(entries.at("sub").Kind, ItemKind::Folder);
  for (const auto& [name, content] : written) {
    ASSERT_TRUE(entries.contains(name)) << name;
    EXPECT_EQ(entries.at(name).Kind, ItemKind::File);
    std::string found;
    ItemAttributes attributes;
    EXPECT_TRUE(files.ReadFile(folder / name, found) && found == content) << name;
    EXPECT_TRUE(files.ReadAttributes(folder.Path(), name, attributes));
    EXPECT_EQ(attributes.Size, content.size());
  }
  std::string content = "as it was";
  EXPECT_FALSE(files.ReadFile(folder / "sub", content));
  EXPECT_FALSE(files.ReadFile(folder / "missing", content));
  EXPECT_EQ(content, "as it was");
  for (const char* bad : {"sub", "sub/", "missing/file", "", "old/file"}) {
    EXPECT_FALSE(files.WriteFile(folder / bad, "x")) << bad;
  }
  // Cut at its NUL, this would be the name of a file that exists.
  const std::string cut = folder / std::string("old\0x", 5);
  EXPECT_TRUE(!files.RemoveFile(cut) && !files.WriteFile(cut, "") && !files.Exists(cut));
  EXPECT_FALSE(files.RemoveFile(folder / "sub"));
  EXPECT_TRUE(files.RemoveFile(folder / "-rf") && !files.Exists(folder / "-rf"));
  EXPECT_FALSE(files.RemoveFile(folder / "-rf").Reason.empty());
  EXPECT_EQ(Get(folder / "old"), big);
}

TEST(FileSystem, TellsOfItems) {
  const TempFolder folder;
  const TestedFiles files;
  folder.Make({"file=12345", "sub/file="});
  ItemAttributes attributes;
  ASSERT_TRUE(files.ReadAttributes(folder.Path(), "file", attributes));
  const std::int64_t age = std::chrono::duration_cast<std::chrono::nanoseconds>(
                               std::chrono::system_clock::now().time_since_epoch())
                               .count() -
                           attributes.Modified;
  EXPECT_TRUE(age > -60'000'000'000 && age < 600'000'000'000) << age;
  EXPECT_TRUE(!attributes.IsLink && !attributes.IsBroken && attributes.Size == 5);
  for (const std::string& path : {folder.Path(), folder / "sub"}) {
    ASSERT_TRUE(files.ReadAttributes(path, "", attributes));
    EXPECT_TRUE(attributes.Kind == ItemKind::Folder && attributes.Size == 0);
  }
  EXPECT_FALSE(files.ReadAttributes(folder.Path(), "missing", attributes));
  EXPECT_TRUE(files.FolderExists(folder / "sub") && files.Exists(folder / "sub/file"));
  EXPECT_FALSE(files.FolderExists(folder / "file") || files.Exists(folder / "file/x"));
  EXPECT_EQ(files.ReadLink(folder / "file"), "");

  base::Status status;
  const auto opened = files.OpenFolder(folder.Path(), status);
  std::string names;
  const auto takeOne = [&](const FolderEntry& entry) {
    names += entry.Name;
    return false;
  };
  EXPECT_TRUE(opened->Read(takeOne) && (names == "file" || names == "sub"));
  EXPECT_TRUE(opened->Read(takeOne) && (names == "filesub" || names == "subfile"));
  EXPECT_TRUE(opened->Read(takeOne) && names.size() == 7) << names;
  EXPECT_TRUE(opened->ReadAttributes("file", attributes) && attributes.Size == 5);
  EXPECT_FALSE(opened->ReadAttributes(fs::path("sub/file").make_preferred().string(), attributes));
  for (const char* none : {"file", "missing"}) {
    EXPECT_EQ(files.OpenFolder(folder / none, status), nullptr);
    EXPECT_FALSE(status.Reason.empty());
  }
  Space space;
  EXPECT_TRUE(files.ReadSpace(folder.Path(), space) && space.Free <= space.Total);
  EXPECT_GT(space.Total, 0U);
}

TEST(FileSystem, KeepsNotesAndTheTimesOfItems) {
  const TempFolder folder;
  TestedFiles files;
  folder.Make({"file=12345", "sub/"});
  ItemAttributes before, after;
  fs::last_write_time(PathOf(folder / "file"),
                      fs::file_time_type::clock::now() - std::chrono::hours(50));
  files.ReadAttributes(folder.Path(), "file", before);
  base::Status status =
      files.WriteExtendedAttribute(folder / "file", ExtendedAttribute::Comment, "a comment");
  if (status.Reason == "This file system keeps no colours and comments") GTEST_SKIP();
  ASSERT_TRUE(status) << status.Reason;
  EXPECT_TRUE(files.WriteExtendedAttribute(folder / "sub", ExtendedAttribute::Colour, "blue"));
  for (const char* word : {"dark green", "red"}) {
    EXPECT_TRUE(files.WriteExtendedAttribute(folder / "file", ExtendedAttribute::Colour, word));
  }
  const auto opened = files.OpenFolder(folder.Path(), status);
  const auto noteOf = [&](const std::string& name, ExtendedAttribute note) {
    std::string text = "old";
    EXPECT_TRUE(opened->ReadExtendedAttribute(name, note, text));
    return text;
  };
  EXPECT_EQ(noteOf("file", ExtendedAttribute::Colour), "red");
  files.ReadAttributes(folder.Path(), "file", after);
  EXPECT_TRUE(after.Modified == before.Modified && after.Size == 5);
  EXPECT_EQ(noteOf("sub", ExtendedAttribute::Colour), "blue");
  EXPECT_EQ(noteOf("sub", ExtendedAttribute::Comment), "");
  for (int twice = 0; twice < 2; ++twice) {
    EXPECT_TRUE(files.WriteExtendedAttribute(folder / "sub", ExtendedAttribute::Colour, ""));
    EXPECT_EQ(noteOf("sub", ExtendedAttribute::Colour), "");
  }
  EXPECT_EQ(folder.Names(), "file sub ");
  EXPECT_FALSE(files.WriteExtendedAttribute(folder / "none", ExtendedAttribute::Colour, "red"));
}

TEST(FileSystem, SaysWhatToDoWhereANameOrTargetCannotBe) {
  const TempFolder folder;
  TestedFiles files;
  folder.Make({"file=", "sub/"});
  EXPECT_TRUE(files.MakeFolder(folder / "new"));
  for (const char* taken : {"file", "sub"}) {
    EXPECT_TRUE(files.MakeFolder(folder / taken).Reason.ends_with("Type another name."));
    EXPECT_TRUE(files.Rename(folder / "new", folder / taken).Reason.ends_with("another name."));
  }
  EXPECT_TRUE(files.MakeFolder(folder / "missing/x").Reason.starts_with("The item, or its"));
  EXPECT_TRUE(files.Rename(folder / "none", folder / "x").Reason.starts_with("The item, or its"));
  EXPECT_FALSE(files.MakeFolder(folder / std::string(256, 'n')));
  for (const char* good : {"", "a/b/", "a/../b"})
    EXPECT_TRUE(files.CheckTarget(folder / good)) << good;
  for (const char* bad : {"file", "file/a/b"}) {
    EXPECT_EQ(files.CheckTarget(folder / bad).Reason,
              "\"file\" is no folder. Type the path of a folder.");
  }
  EXPECT_EQ(folder.Names(), "file new sub ");
}

TEST(FileSystem, RenamesAndReplacesNothing) {
  const TempFolder folder;
  TestedFiles files;
  folder.Make({"one=1", "two=2", "sub/file=3", "Case="});
  EXPECT_FALSE(files.Rename(folder / "one", folder / "two"));
  EXPECT_FALSE(files.Rename(folder / "sub", folder / "two"));
  EXPECT_TRUE(files.Rename(folder / "one", folder / "sub/moved"));
  EXPECT_TRUE(files.Rename(folder / "sub", folder / "Other \u00e9"));
  EXPECT_TRUE(files.Rename(folder / "Case", folder / "cASE"));
  EXPECT_TRUE(files.Rename(folder / "two", folder / "two"));
  EXPECT_EQ(folder.Names(), "Other \u00e9 cASE two ");
  EXPECT_EQ(Get(folder / "Other \u00e9/moved") + Get(folder / "Other \u00e9/file"), "13");
  EXPECT_EQ(Get(folder / "two"), "2");
}

TEST(FileSystem, MeasuresEachFileOnce) {
  const TempFolder folder;
  const TestedFiles files;
  folder.Make({"ten=0123456789", "a/b/five=12345", "a/c/", "empty/"});
  fs::create_hard_link(PathOf(folder / "ten"), PathOf(folder / "a/c/ten again"));
  FolderTotal total;
  EXPECT_TRUE(files.MeasureFolder(folder.Path(), onwards, total));
  EXPECT_TRUE(total.Bytes == 15 && total.OnDisk >= 15) << total.Bytes << " " << total.OnDisk;
  EXPECT_TRUE(total.Files == 3 && total.Folders == 4 && total.Unreadable == 0);
  CountedFiles counted;
  for (const char* name : {"a", "a/c"}) {
    total = {};
    total.Counted = &counted;
    EXPECT_TRUE(files.MeasureFolder(folder / name, onwards, total));
    EXPECT_EQ(total.RepeatedBytes, std::string(name) == "a" ? 0U : 10U);
  }
  EXPECT_EQ(total.Bytes, 10U);
  for (int number = 0; number < 300; ++number) {
    folder.Make({"a/c/" + std::to_string(number) + "=", "empty/" + std::to_string(number) + "/"});
  }
  for (const char* name : {"a", "empty"}) {
    int asked = 0;
    FolderTotal part;
    const auto twice = [&](const FolderTotal&) { return ++asked < 2; };
    EXPECT_TRUE(files.MeasureFolder(folder / name, twice, part));
    EXPECT_TRUE(asked == 2 && part.Files + part.Folders < 300) << asked;
  }
  EXPECT_FALSE(files.MeasureFolder(folder / "ten", {}, total));
  EXPECT_FALSE(files.MeasureFolder(folder / "none", {}, total).Reason.empty());
}

// Notes the sizes of items "0", "1" and so on, which are as large as they are called.
struct WantedNumbers : WantedAttributes {
  explicit WantedNumbers(int count, int most) : Most(most), Told(static_cast<std::size_t>(count)) {}

  std::size_t Count() const override { return Told.size(); }
  bool Next(std::string_view& name, int& number) override {
    number = Named;
    if (number == static_cast<int>(Count())) return false;
    name = Name = std::to_string(Named++);
    return true;
  }
  void Take(int number, const base::Status& status, const ItemAttributes& attributes) override {
    EXPECT_EQ(static_cast<bool>(status), number % 100 != 99) << number;
    EXPECT_EQ(++Told[static_cast<std::size_t>(number)], 1) << number;
    EXPECT_EQ(attributes.Size, status ? static_cast<std::uint64_t>(number) : 0U);
    ++Taken;
  }
  bool GoesOn(bool) override { return Taken < Most; }

  const int Most;
  std::vector<int> Told;  // how often
  std::string Name;
  int Named = 0, Taken = 0;
};

TEST(FileSystem, TellsManyAttributesOnceEach) {
  const TempFolder folder;
  constexpr int few = 200, many = 1500;
  for (int number = 0; number < many; ++number) {
    if (number % 100 == 99) continue;
    Put(folder / std::to_string(number), "");
    fs::resize_file(PathOf(folder / std::to_string(number)), static_cast<unsigned>(number));
  }
  base::Status status;
  const auto opened = TestedFiles().OpenFolder(folder.Path(), status);
  for (const int count : {few, many}) {
    WantedNumbers all(count, count), some(count, count / 2);
    opened->ReadManyAttributes(all);
    EXPECT_EQ(all.Taken, count);
    opened->ReadManyAttributes(some);
    EXPECT_EQ(some.Taken, count / 2);
  }
}

TEST(FileSystem, WorksDeeperThanMostProgramsDo) {
  const TempFolder folder;
  TestedFiles files;
  std::string deep, name(100, 'x');
  for (int level = 0; level < 6; ++level) {
    deep += (level == 0 ? "" : "/") + name;
    ASSERT_TRUE(files.MakeFolder(folder / deep));
  }
  std::string content;
  ItemAttributes attributes;
  const std::string file = deep + "/file";
  EXPECT_TRUE(files.WriteFile(folder / file, "one") && files.WriteFile(folder / file, "deep"));
  EXPECT_TRUE(files.Rename(folder / file, folder / (deep + "/other")));
  EXPECT_TRUE(files.ReadFile(folder / (deep + "//other"), content) && content == "deep");
  EXPECT_TRUE(files.FolderExists(folder / deep) && files.CheckTarget(folder / (deep + "/a/b")));
  EXPECT_EQ(EntriesOf(folder / deep).size(), 1U);
  EXPECT_TRUE(files.ReadAttributes(folder / deep, "other", attributes) && attributes.Size == 4);
  FolderTotal total;
  EXPECT_TRUE(files.MeasureFolder(folder.Path(), onwards, total));
  EXPECT_TRUE(total.Bytes == 4 && total.Folders == 6);
  Space space;
  EXPECT_TRUE(files.ReadSpace(folder / deep, space));
  EXPECT_TRUE(files.RemoveFile(folder / (deep + "/other")));
}

}  // namespace
}  // namespace tarnwell::platform
