#include "fakes/FakeForms.h"
#include "fuzz/FindProperties.h"
#include "lists/TestLists.h"
#include "tools/frmFind.h"

namespace tarnwell::tools {
namespace {

constexpr std::int64_t Second = 1'000'000'000;

// A place whose clocks go from 02:00 to 03:00 on 2026-03-29 and back on 2026-10-25.
struct SummerClock : fakes::FakeClock {
  platform::LocalTime ToLocal(std::int64_t moment) const override {
    const bool isSummer = moment >= 1774746000 * Second && moment < 1792890000 * Second;
    return FakeClock::ToLocal(moment + (isSummer ? 7200 : 3600) * Second);
  }
};

// Takes all but what holds "(": that one breaks there. Finds by plain text.
struct PlainRegex : platform::Regex {
  platform::RegexOutcome Find(std::string_view text, platform::LineEnds) override {
    if (text == "slow") return platform::RegexOutcome::TooMuch;
    return text.find(Wanted) == text.npos ? platform::RegexOutcome::None
                                          : platform::RegexOutcome::Found;
  }
  bool SetReplacement(std::string_view, platform::RegexFault&) override { return true; }
  platform::RegexOutcome Replace(std::string_view, std::string&) override { return {}; }
  std::string Wanted;
};

class FindTest : public testing::Test {
 protected:
  FindTest() { Clock.Time = 1774800000 * Second; }  // 2026-03-29 18:00

  // The request, with what is wrong in `Faults`.
  platform::SearchRequest Make(const FindSettings& settings) {
    const auto made = MakeFindRequest(settings, Tools, Faults);
    return made ? made->Request : platform::SearchRequest();
  }
  std::string Fault(FindSettings settings) {
    settings.Folder = settings.Folder.empty() ? "C:\\" : settings.Folder;
    EXPECT_EQ(Make(settings).Folder, "");
    std::string all;
    for (const std::string& fault : Faults) all += fault;
    return all;
  }

  SummerClock Clock;
  fakes::FakeNumberForms Numbers;
  platform::RegexOptions Compiled;
  FindTools Tools{base::PathSyntax::Windows(), Clock, Numbers,
                  [this](std::string_view text, const platform::RegexOptions& options,
                         platform::RegexFault& fault) -> std::unique_ptr<platform::Regex> {
                    Compiled = options;
                    fault = {"missing )", std::min(text.find('('), text.size())};
                    if (text.find('(') != text.npos && !options.IsLiteral) return nullptr;
                    auto regex = std::make_unique<PlainRegex>();
                    regex->Wanted = text;
                    return regex;
                  }};
  FindFaults Faults;
};

TEST_F(FindTest, MakesARequestOfWhatIsTyped) {
  Numbers.DecimalMark = ",";
  const auto request = Make({.Folder = "C:\\a\\",
                             .Name = "*.txt; b?",
                             .Text = "one two",
                             .MatchesCase = true,
                             .LargestFile = " 2 ",
                             .SizeFrom = "1,5",
                             .SizeTo = "3",
                             .SizeToUnit = UnitMB,
                             .Depth = SomeLevels,
                             .Levels = "3",
                             .EntersVolumes = true});
  EXPECT_EQ(request.Folder, "C:\\a");
  EXPECT_EQ(request.Content, "one two");
  EXPECT_TRUE(request.MakeContentTest == nullptr && request.EntersVolumes && !request.TakesHidden);
  EXPECT_EQ(request.LargestFile, 2u << 20);
  EXPECT_EQ(request.Sizes, (platform::SearchRange<std::uint64_t>{1536, 3u << 20}));
  EXPECT_EQ(request.Levels, 3u);
  const platform::SearchNameTest takes = request.MakeNameTest();
  EXPECT_TRUE(takes("A.TXT", false) && takes("bc", false) && !takes("bcd", false));
  const auto words = Make({.Folder = "C:\\a", .Text = "(", .IsWholeWords = true});
  EXPECT_TRUE(words.Content.empty() && words.MakeContentTest() != nullptr);
  EXPECT_TRUE(Compiled.IsLiteral && Compiled.IgnoresCase && Compiled.IsWholeWords &&
              Compiled.HasLines);
  FindRequest names =
      *MakeFindRequest({.Folder = "C:\\a", .Name = "b.", .IsNameRegex = true}, Tools, Faults);
  const platform::SearchNameTest finds = names.Request.MakeNameTest();
  EXPECT_TRUE(finds("ab.c", false) && !finds("abc", false) && !finds("slow", false));
  EXPECT_EQ(*names.NamesGivenUp, 1u);
}

TEST_F(FindTest, TellsWhatIsWrongAndWhere) {
  EXPECT_EQ(Fault({.Folder = "a"}), "Type the whole path of the folder.");
  EXPECT_EQ(Fault({.Name = "ab(c", .IsNameRegex = true}),
            "This is no regular expression: missing ), behind \"ab\".");
  EXPECT_EQ(Fault({.Text = "(", .IsTextRegex = true}),
            "This is no regular expression: missing ), at its start.");
  for (const char* size : {"x", "-1", "1e3", ".", "1 2", "9999999999999"}) {
    EXPECT_EQ(Fault({.SizeTo = size}), "\"" + std::string(size) + "\" is no size.");
  }
  EXPECT_EQ(Fault({.SizeFrom = "2", .SizeTo = "1"}), "The first size is larger than the second.");
  EXPECT_NE(Fault({.Depth = SomeLevels, .Levels = "0"}), "");
  EXPECT_NE(Fault({.Text = "a", .FindsFiles = false}), "");
  EXPECT_NE(Fault({.SizeTo = "1", .FindsFiles = false}), "");
  EXPECT_NE(
      Fault(
          {.FindsFiles = false, .FindsFolders = false, .FindsLinks = false, .FindsOthers = false}),
      "");
  EXPECT_EQ(Fault({.Dates = BetweenDates, .DateFrom = "2026-02-02", .DateTo = "2026-02-01"}),
            "The first date is later than the second.");
}

TEST_F(FindTest, ReadsDatesByTheClockOnTheWall) {
  const auto seconds = [this](std::string_view text) {
    const auto range = ReadDate(text, Clock);
    return range ? std::to_string(range->Least / Second) + " " +
                       std::to_string((range->Most + 1) / Second)
                 : "";
  };
  EXPECT_EQ(seconds("1970-01-02"), "82800 169200");
  EXPECT_EQ(seconds("2026-03-29"), "1774738800 1774821600");  // has 23 hours
  EXPECT_EQ(seconds("2026-10-25"), "1792879200 1792969200");  // 25
  EXPECT_EQ(seconds("2024-02-29T13:05"), "1709208300 1709208360");
  EXPECT_EQ(seconds("1969-12-31 23:59:59"), "-3601 -3600");
  for (const char* text :
       {"2026-02-29", "2026-13-01", "2026-1-1", "26-01-01", "2026-01-01 24:00", "2026-01-01 10:60",
        "2026-01-01 1:00", "2026-01-01x", "9999-01-01", ""}) {
    EXPECT_EQ(seconds(text), "") << text;
  }
  EXPECT_EQ(Make({.Folder = "C:\\", .Dates = Today}).Modified.Least, 1774738800 * Second);
  EXPECT_EQ(Make({.Folder = "C:\\", .Dates = Last7Days}).Modified.Least,
            Clock.Time - 7 * 86400 * Second);
}

TEST(RecentSearchesTest, KeepsAllSettingsAndReadsOnlyWhatIsASearch) {
  fakes::FakeUserSettings user;
  RecentSearches recent(user);
  FindSettings odd{.Folder = "/a&b=%\n\xFF",
                   .Name = " ;",
                   .IsNameRegex = true,
                   .LargestFileUnit = UnitGB,
                   .Dates = BetweenDates,
                   .FindsFolders = false};
  for (int i = 0; i < 25; ++i) recent.Add({.Folder = "/" + std::to_string(i)});
  recent.Add(odd);
  recent.Add({.Folder = "/7"});
  ASSERT_EQ(recent.Read().size(), MostRecentSearches);
  EXPECT_EQ(recent.Read()[0].Folder, "/7");
  EXPECT_EQ(recent.Read()[1], odd);
  std::vector<std::string>& kept = user.Texts.begin()->second;
  EXPECT_EQ(kept[0].find_first_not_of("=/&-folder7"), std::string::npos) << kept[0];
  for (const std::string& line : kept) EXPECT_EQ(fuzz::BrokenFindRule(line), "");
  kept = {"",
          "junk",
          "folder=%0",
          "folder=%00",
          "folder=/a&dates=7",
          "folder=/a&files=2",
          "name=x",
          "folder=/a&new=1&dates=6",
          "folder=/a\xFF"};
  ASSERT_EQ(recent.Read().size(), 1u);
  EXPECT_EQ(recent.Read()[0], (FindSettings{.Folder = "/a", .Dates = BetweenDates}));
}

class FindFormTest : public FindTest, public lists::TestLists {
 protected:
  FindFormTest() {
    OpenPane(0, "C:\\docs");
    Connected = false;
    Platform.Files.AddFile("C:\\docs\\sub\\b.txt", "12");
    Platform.Files.AddFile("C:\\docs\\a\\b.txt", "1");
    Form.ShowOver(Main);
  }
  void Tell(std::vector<std::string> names, platform::SearchCounts counts, bool isDone,
            base::Status status = {}) {
    platform::SearchUpdate update;
    update.Counts = counts;
    update.Folder = "C:\\docs\\sub";
    update.Elapsed = std::chrono::milliseconds(500);
    update.IsDone = isDone;
    update.Status = std::move(status);
    for (std::string& name : names) update.Found.push_back({.Name = std::move(name)});
    Platform.Search.Tell(std::move(update));
    while (Form.HasNews()) Form.ShowNews();
  }
  int Rows(lister::ListId list) { return Space.Lists[list].Rows().ChildCount(lister::RootRow); }

  forms::Form Main{"Master"};
  fakes::FakeDialogs Dialogs;
  FoundLists Lists{Space, Nav, Platform.Files, Platform.Drives};
  frmFind Form{{Host, Platform.Search, Platform.User, Dialogs, Messages, Tools}, Lists};
};

TEST_F(FindFormTest, FindsStopsAndShowsInThePane) {
  EXPECT_EQ(Form.Settings.Folder, "C:\\docs");
  Form.Settings.SizeTo = "x";
  Form.Typed();
  EXPECT_FALSE(Form.cmdFind.Enabled);
  Form.cmdFindClick();
  EXPECT_EQ(Platform.Search.Running, 0);
  Form.Settings.SizeTo.clear();
  Form.Typed();
  Form.cmdFindClick();
  Form.cmdFindClick();  // lets go of the first
  EXPECT_EQ(Platform.Search.Running, 1);
  EXPECT_TRUE(Form.cmdStop.Enabled && !Form.cmdShowInPane.Enabled && !Form.cmdNotRead.Visible);
  Tell({"sub\\b.txt", "a\\b.txt"}, {.Folders = 3, .Items = 1500, .Found = 2, .Troubles = 700},
       false);
  EXPECT_EQ(Form.lblStatus.Caption,
            "Searching: 2 items found, 3 folders visited, 1,500 items seen, 3,000 items/s, .5 s");
  EXPECT_EQ(Form.lblNote.Caption, "C:\\docs\\sub");
  EXPECT_EQ(Rows(lister::FoundList), 2);
  EXPECT_EQ(Form.cmdNotRead.Caption, "Not Rea&d (700)...");
  Form.EscapeKey();
  EXPECT_TRUE(Platform.Search.Running == 0 && Host.IsOpen("frmFind"));
  EXPECT_EQ(Form.lblStatus.Caption.substr(0, 8), "Stopped:");
  EXPECT_FALSE(Form.cmdShowInPaneClick());
  EXPECT_EQ(Messages.Texts, std::vector<std::string>{"Choose an item of the list first."});
  lister::ListRows& rows = Space.Lists.Found().Rows();
  rows.MoveCurrent(rows.Child(lister::RootRow, 0));
  const std::string path = rows.PathOf(rows.CurrentRow());
  EXPECT_TRUE(Form.cmdShowInPaneClick());
  const lister::ListRows& shown = Space.Lists.Files(0).Rows();
  EXPECT_EQ(shown.PathOf(shown.CurrentRow()), path);
  EXPECT_EQ(Space.Form.TitleBar[0].Text, path.substr(0, path.rfind('\\') + 1));
  EXPECT_TRUE(Form.cmdListInPaneClick());
  while (Form.HasNews()) Form.ShowNews();
  EXPECT_TRUE(Space.Lists.Files(0).ShowsFound() && Rows(100) == 2);
  Form.EscapeKey();
  EXPECT_TRUE(!Host.IsOpen("frmFind") && Rows(lister::FoundList) == 0);
}

TEST_F(FindFormTest, TellsWhatFailsAndOffersSearchesAgain) {
  Form.Settings.Text = "wanted";
  Form.cmdFindClick();
  const FindSettings searched = Form.Settings;
  Form.Settings = {.Folder = "C:\\else"};
  Tell({}, {}, true, {2, "No such folder"});
  EXPECT_TRUE(Form.lblStatus.Caption.starts_with("Not done: 0 items found, 0 folders"));
  EXPECT_EQ(Form.lblNote.Caption, "C:\\docs cannot be searched: No such folder.");
  EXPECT_EQ(Platform.Search.Running, 0);
  EXPECT_EQ(Form.lstRecent.Items, std::vector<std::string>{"\"wanted\" in C:\\docs"});
  Form.lstRecentClick(0);
  EXPECT_EQ(Form.Settings, searched);
  Form.cmdFindClick();
  Host.Unload(Form);
  EXPECT_EQ(Platform.Search.Running, 0);
  Form.ShowOver(Main);
  EXPECT_EQ(Form.lblStatus.Caption + Form.lblNote.Caption, "");
  Form.ForgetRecent();
  EXPECT_TRUE(Form.lstRecent.Items.empty() && RecentSearches(Platform.User).Read().empty());
}

}  // namespace
}  // namespace tarnwell::tools
