#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "fileops/NamePattern.h"
#include "fileops/RenamePlan.h"
#include "fileops/RenameRules.h"

namespace tarnwell::fileops {
namespace {

const base::PathSyntax& Posix = base::PathSyntax::Posix();

std::string NameBy(std::string_view pattern, const NameSubject& subject, std::size_t number = 0,
                   const NameCounter& counter = {}) {
  NamePattern read;
  NamePattern::Fault fault;
  return read.Read(pattern, fault) ? read.NameOf(subject, counter, number) : "! " + fault.Text;
}

TEST(NamePatternTest, MakesNamesOfFields) {
  const NameSubject photo{
      .Name = "b\u00e4r.tar.gz", .Parent = "{trip}", .Modified = {2026, 1, 5, 4, 3, 2}};
  EXPECT_EQ(NameBy("{parent} {counter}.{ext}", photo, 2, {.Start = 8, .Step = 2, .Digits = 3}),
            "{trip} 012.gz");
  EXPECT_EQ(NameBy("{date}_{time} {year}{month}{day}-{hour}{minute}{second}", photo),
            "2026-01-05_04-03-02 20260105-040302");
  EXPECT_EQ(NameBy("{{{part 2-4}}}|{part -3-}|{part 6-}|{part 3}|{part 9-}", photo),
            "{\u00e4r.}|tar|ar|r|");
  EXPECT_EQ(NameBy("{counter}", photo, 3, {.Start = 1, .Step = -2, .Digits = 2}), "-05");
  EXPECT_EQ(NameBy("{name}.{ext}", photo), photo.Name);
  // Without an extension there is no dot for it; folders and names that begin with it have none.
  EXPECT_EQ(NameBy("{name} x.{ext}", {.Name = ".profile"}), ".profile x");
  EXPECT_EQ(NameBy("{name}+.{ext}", {.Name = "a.b", .IsFolder = true}), "a.b+");
  for (const char* const kept : {"a.\xff\xfe", "a.", "a..", ".", ".b."})
    EXPECT_EQ(NameBy("{name}.{ext}", {.Name = kept}), kept);
  for (const char* const wrong : {"{nam}", "{name", "a}b", "{part 0}", "{part 5-2}", "{part -2-4}",
                                  "{part 99999999999}", "{part}", "{}"}) {
    EXPECT_EQ(NameBy(wrong, photo).front(), '!') << wrong;
  }
}

TEST(RenameRulesTest, ReplacesAndGivesCase) {
  RenameRules rules;
  rules.Find = "\u00c4b";
  rules.Replace = "ab\u00e4b";
  const auto nameBy = [&](const std::string& name, bool isFolder = false) {
    NameRules read;
    std::string fault;
    EXPECT_TRUE(read.Read(rules, fault)) << fault;
    return read.NameOf({.Name = name, .IsFolder = isFolder}, 0);
  };
  EXPECT_EQ(nameBy("x\u00e4B\u00c4\u00c4b.\u00e4b"), "xab\u00e4b\u00c4ab\u00e4b.\u00e4b");
  EXPECT_EQ(nameBy("a.\u00c4b", true), "a.ab\u00e4b");
  rules.MatchesCase = rules.TakesExtension = true;
  EXPECT_EQ(nameBy("\u00e4b.\u00c4b"), "\u00e4b.ab\u00e4b");
  rules = {};
  rules.CaseOfName = NameCase::Words;
  rules.CaseOfExtension = NameCase::Small;
  EXPECT_EQ(nameBy("don't STOP (\u00e9t\u00e9) 2nd-day\xff.TXT"),
            "Don't Stop (\u00c9t\u00e9) 2nd-Day\xff.txt");
  rules.CaseOfName = NameCase::First;
  rules.CaseOfExtension = NameCase::Capitals;
  EXPECT_EQ(nameBy("(the END of.it.gz"), "(The end of.it.GZ");
}

TEST(RenamePlanTest, FindsAFreeNameForTheTimeBetween) {
  std::set<std::string> taken;
  const auto isFree = [&](const std::string& name) { return taken.insert(name).second; };
  EXPECT_EQ(NameBetween({"/d", "a.txt", ""}, isFree), "a (being renamed).txt");
  EXPECT_EQ(NameBetween({"/d", "a.txt", ""}, isFree), "a (being renamed 2).txt");
  std::string longest = "x";
  while (longest.size() < LongestName) longest += "\u00e4";
  const std::string cut = NameBetween({"/d", longest, ""}, isFree);
  EXPECT_TRUE(cut.size() <= LongestName && cut.ends_with("\u00e4 (being renamed)")) << cut;
}

TEST(RenamePlanTest, TellsWhatSpeaksAgainstAName) {
  const std::vector<RenameWish> wishes{{"/d", "a", ""},
                                       {"/d", "b", "x/y"},
                                       {"/d", "c", std::string(256, 'n')},
                                       {"/d", "e", "n"},
                                       {"/d", "f", "n"},
                                       {"/d", "g", "there"},
                                       {"/d", "h", "g"},
                                       {"/other", "e", "there"},
                                       {"/d", "i", "I"},
                                       {"/d", "k", "k"},
                                       {"/d", std::string("l"), "k"}};
  const auto isTaken = [&](const std::string& folder, const std::string& name) {
    return folder == "/d" &&
           (name == "there" || std::ranges::count(wishes, name, &RenameWish::Name));
  };
  using enum RenameFault;
  EXPECT_EQ(FaultsOf(wishes, Posix, isTaken),
            (std::vector<RenameFault>{Empty, NotAName, TooLong, SameAsNew, SameAsNew, Taken, None,
                                      None, None, None, Taken}));
  EXPECT_EQ(
      FaultsOf({{"C:\\d", "a", "A"}, {"C:\\d", "b", "a"}}, base::PathSyntax::Windows(), isTaken),
      (std::vector<RenameFault>{SameAsNew, SameAsNew}));
}

// Folders are values here: what lies in them goes with them.
TEST(RenamePlanTest, GoesInAnOrderThatWorks) {
  std::mt19937 random(7);
  for (int round = 0; round < 500; ++round) {
    std::map<std::string, int> disk;  // item numbers by their paths
    std::vector<RenameWish> wishes;
    std::map<int, std::string> wanted;
    int number = 0;
    for (const std::string folder : {"/", "/d0", "/d0/d1"}) {
      std::vector<std::string> names;
      for (int at = 0; at < 6; ++at) names.push_back("d" + std::to_string(at));
      std::vector<std::string> renamed = names;
      std::ranges::shuffle(renamed, random);
      if (random() % 2 == 0) renamed[random() % 6] = "new";
      for (std::size_t at = 0; at < names.size(); ++at) {
        disk[Posix.Join(folder, names[at])] = number;
        wanted[number++] = renamed[at];
        wishes.push_back({folder, names[at], renamed[at]});
      }
    }
    std::ranges::shuffle(wishes, random);
    for (const platform::PlacedItem& step :
         StepsOf(wishes, Posix, [&](const RenameWish&) { return "aside"; })) {
      ASSERT_TRUE(disk.contains(step.From)) << round << step.From;
      ASSERT_FALSE(disk.contains(step.To)) << round << step.To;
      std::map<std::string, int> after;
      for (const auto& [path, item] : disk) {
        after[Posix.IsWithin(path, step.From) ? step.To + path.substr(step.From.size()) : path] =
            item;
      }
      disk = std::move(after);
    }
    for (const auto& [path, item] : disk) EXPECT_EQ(Posix.LastComponent(path), wanted[item]);
    ASSERT_EQ(disk.size(), wanted.size());
  }
}

}  // namespace
}  // namespace tarnwell::fileops
