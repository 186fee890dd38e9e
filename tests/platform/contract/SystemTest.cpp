#include "SystemServices.h"

namespace tarnwell::platform {
namespace {

TEST(ClockContract, GivesTheTimeOfTheZoneInThatYear) {
  const auto told = [](std::int64_t moment) {
    const LocalTime time = InCentralEurope(moment);
    std::ostringstream text;
    for (const int part : {time.Year, time.Month, time.Day, time.Hour, time.Minute, time.Second})
      text << part << " ";
    return text.str();
  };
  EXPECT_EQ(told(1'709'164'799'999'999'999), "2024 2 29 0 59 59 ");  // 2024-02-28 23:59:59 UTC
  EXPECT_EQ(told(1'719'792'000'000'000'000), "2024 7 1 2 0 0 ");
  EXPECT_EQ(told(-1), "1970 1 1 0 59 59 ");
}

TEST(ClockContract, TellsTheTimeAndMeasuresSpans) {
  const TestedClock clock;
  EXPECT_LE(std::abs(clock.Now() / 1'000'000'000 - std::time(nullptr)), 1);
  const auto start = std::chrono::steady_clock::now();
  const std::int64_t first = clock.Ticks();
  std::int64_t last = first;
  while (last < first + 20) {
    const std::int64_t now = clock.Ticks();
    ASSERT_GE(now, last);
    last = now;
  }
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(19));
}

std::string KeyIn(const Collation& order, const std::string& text) {
  std::string key;
  order.AppendWeights(text, key);
  EXPECT_TRUE(std::ranges::all_of(key, [](unsigned char byte) { return byte >= 2; })) << text;
  return key;
}

TEST(CollationContract, TakesTheLettersOfALanguage) {
  const TestedLanguages languages;
  const Collation &english = languages.English, &danish = languages.Danish;
  for (const char* const sign : {" a", "-x", "_"}) {
    EXPECT_LT(KeyIn(english, ""), KeyIn(english, sign));
    EXPECT_LT(KeyIn(english, sign), KeyIn(english, "1"));
  }
  const char* const rising[] = {"1",  "a",  "a-b", "a–c", "ab", "äc", "ad", "az", "b",
                                "éa", "eb", "œ",   "p",   "ßa", "st", "z",  "ж",  "한"};
  for (std::size_t at = 1; at < std::size(rising); ++at) {
    EXPECT_LT(KeyIn(english, rising[at - 1]), KeyIn(english, rising[at])) << rising[at];
  }
  EXPECT_EQ(KeyIn(english, "e\u0301te\u0301"), KeyIn(english, "été"));  // composed or not
  EXPECT_EQ(KeyIn(english, "été"), KeyIn(english, "ete"));
  const std::string longText(2000, 'x');
  EXPECT_EQ(KeyIn(english, longText + "é" + longText), KeyIn(english, longText + "e" + longText));
  EXPECT_EQ(KeyIn(danish, "aarhus"), KeyIn(danish, "århus"));
}

TEST(UserSettingsContract, KeepsNumbersAndTextsApartFromEachOther) {
  const TestedSettings place;
  const auto settings = place.Open();
  const auto number = [&] { return place.Open()->ReadNumber("Options", "A b", 7); };
  EXPECT_EQ(number(), 7);
  EXPECT_TRUE(settings->WriteNumber("Options", "A b", -1) && number() == -1);
  const auto texts = [&] { return place.Open()->ReadTexts("Some Places", "Recent"); };
  EXPECT_TRUE(texts().empty());
  for (const std::vector<std::string>& row :
       {std::vector<std::string>{"smb://a/ä €", "", "b;c\\"}, {"d"}, {}}) {
    EXPECT_TRUE(settings->WriteTexts("Some Places", "Recent", row));
    EXPECT_EQ(texts(), row);
  }
  EXPECT_EQ(number(), -1);
  EXPECT_EQ(settings->ReadNumber("Some Places", "Recent", 3), 3);
}

TEST(DrivesContract, OffersTheDefaultDriveAndFindsTheOneOfHome) {
  const TestedDrives drives;
  const std::vector<Drive> all = drives.List();
  const auto has = [&](std::string_view name) {
    return std::ranges::count(all, name, &Drive::Name) == 1;
  };
  const base::PathSyntax& syntax = base::PathSyntax::Native();
  EXPECT_TRUE(has(syntax.DefaultDrive));
  EXPECT_EQ(drives.DriveOf(syntax.DriveRoot(syntax.DefaultDrive)), syntax.DefaultDrive);
  EXPECT_TRUE(std::filesystem::is_directory(drives.HomeFolder()));
  EXPECT_TRUE(has(drives.DriveOf(drives.HomeFolder())));
}

class SystemInfoContract : public testing::Test {
 protected:
  SystemInfoContract() {
    std::filesystem::create_directories(program_.Places.ExecutableFolder);
    std::filesystem::create_directories(syntax_.Join(program_.DataFolder, "skins"));
    for (const char* const name : {"a.twk", "b.twk"}) Put(SkinIn(program_.DataFolder, name), name);
    Put(syntax_.Join(program_.DataFolder, "TIPOFDAY.TXT"), "tips");
  }
  std::string SkinIn(const std::string& folder, const std::string& name) const {
    return syntax_.Join(syntax_.Join(folder, "skins"), name);
  }
  std::string Tips(const std::string& folder) const {
    return Get(syntax_.Join(folder, "TIPOFDAY.TXT"));
  }
  TestedSystemInfo Start() const { return TestedSystemInfo(program_.Places); }

  InstalledProgram program_;
  const base::PathSyntax& syntax_ = base::PathSyntax::Native();
};

TEST_F(SystemInfoContract, FillsTheUsersFolderAtFirstStartOnly) {
  const std::string& folder = program_.UserFolder;
  EXPECT_EQ(Start().ProgramFolder(), folder);
  EXPECT_EQ(Start().DataFolder(), program_.DataFolder);
  EXPECT_EQ(Get(SkinIn(folder, "a.twk")) + Get(SkinIn(folder, "b.twk")) + Tips(folder),
            "a.twkb.twktips");
  std::filesystem::remove(SkinIn(folder, "a.twk"));
  Put(SkinIn(folder, "b.twk"), "mine");
  EXPECT_TRUE(Start().FolderTrouble());
  EXPECT_FALSE(std::filesystem::exists(SkinIn(folder, "a.twk")));
  EXPECT_EQ(Get(SkinIn(folder, "b.twk")), "mine");
}

// So that each release can tell the skins of the one before from what the user has changed.
TEST_F(SystemInfoContract, RenewsSkinsThatAreAsTheyCame) {
  Start();
  for (const auto& entry : std::filesystem::directory_iterator(TARNWELL_TESTS "/../data/skins")) {
    Put(SkinIn(program_.UserFolder, "a.twk"), Get(entry.path().string()));
    Start();
    EXPECT_EQ(Get(SkinIn(program_.UserFolder, "a.twk")), "a.twk") << entry.path();
  }
}

TEST_F(SystemInfoContract, FinishesAFirstStartCutShort) {
  program_.Root.Make({"own/.skins-unfinished/a.twk=a", "own/TIPOFDAY.TXT=mine"});
  const std::string folder = program_.Root / "own";
  program_.Places.TarnwellHome = syntax_.AddSeparator(folder);
  EXPECT_EQ(Start().ProgramFolder(), folder);
  EXPECT_EQ(Get(SkinIn(folder, "b.twk")) + Tips(folder), "b.twkmine");
  EXPECT_FALSE(std::filesystem::exists(syntax_.Join(folder, ".skins-unfinished")));
}

TEST_F(SystemInfoContract, PrefersTarnwellHomeThenAWritableFolderOfItsOwn) {
  const std::string& beside = program_.Places.ExecutableFolder;
  std::filesystem::create_directory(syntax_.Join(beside, "skins"));
  EXPECT_EQ(Start().ProgramFolder(), beside);
  EXPECT_EQ(Tips(beside), "tips");
  program_.Places.TarnwellHome = program_.Root / "new/own";
  EXPECT_EQ(Start().ProgramFolder(), program_.Root / "new/own");
  EXPECT_EQ(Get(SkinIn(program_.Root / "new/own", "a.twk")), "a.twk");

  program_.Root.Make({"file="});
  program_.Places.TarnwellHome = program_.Root / "file/own";
  EXPECT_FALSE(Start().FolderTrouble().Reason.empty());
  EXPECT_EQ(Start().SkinFolder(), syntax_.Join(program_.DataFolder, "skins"));
  EXPECT_EQ(Start().FolderOf("TIPOFDAY.TXT"), program_.DataFolder);
  EXPECT_EQ(Start().FolderOf("ring6full.gif"), program_.Root / "file/own");  // nowhere
}

const std::string firstLogLine = "# Tarnwell message log\n";

TEST(LogFileContract, KeepsTheNewerHalfFromTheStartOfALine) {
  const TempFolder folder;
  const std::string path = folder / "_MsgLog.txt";
  EXPECT_FALSE(TestedLogFile::Open(nullptr, folder.Path()));
  EXPECT_FALSE(TestedLogFile::Open("0", folder.Path()));
  EXPECT_EQ(folder.Names(), "");
  const auto log = TestedLogFile::Open("1", folder.Path(), 100);
  for (int line = 10; line < 70; ++line) {
    log->Append("line " + std::to_string(line));
    const std::string text = Get(path);
    EXPECT_LE(text.size(), 100U);
    EXPECT_TRUE(text.starts_with(firstLogLine + "line ")) << text;
    EXPECT_TRUE(text.ends_with("line " + std::to_string(line) + "\n")) << text;
    EXPECT_GE(std::ranges::count(text, '\n'), std::min(line - 8, 8));
  }
  EXPECT_EQ(folder.Names(), "_MsgLog.txt ");
}

TEST(LogFileContract, LeavesAloneWhatIsNoLogOfItsOwn) {
  const TempFolder folder;
  folder.Make({"user.usr=settings", "folder/", "empty=", "cut=" + firstLogLine + "half"});
  std::filesystem::create_hard_link(folder / "empty", folder / "second");
  for (const char* const name : {"user.usr", "folder", "empty", "x/y"}) {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(TestedLogFile::Open((folder / name).c_str(), "")) << name;
    EXPECT_EQ(std::ranges::count(testing::internal::GetCapturedStderr(), '\n'), 1) << name;
  }
  EXPECT_EQ(Get(folder / "user.usr"), "settings");
  EXPECT_EQ(folder.Names(), "cut empty folder second user.usr ");

  const auto log = TestedLogFile::Open((folder / "cut").c_str(), "");
  log->Append("next");
  EXPECT_EQ(Get(folder / "cut"), firstLogLine + "half\nnext\n");
  EXPECT_FALSE(TestedLogFile::Open((folder / "cut").c_str(), ""));  // another run's
}

}  // namespace
}  // namespace tarnwell::platform
