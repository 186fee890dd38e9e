#include "fakes/FakeForms.h"
#include "fakes/FakePlatform.h"
#include "fakes/TestFile.h"
#include "tools/frmHelp.h"
#include "tools/frmTip.h"

namespace tarnwell::tools {
namespace {

const std::string TipsPath = "C:\\Tarnwell\\TIPOFDAY.TXT";
const std::string Switch = "Options/Show Tips at Startup";

class TipsTest : public testing::Test, public fakes::FakePlatform {
 protected:
  TipsTest() { Files.AddFolder("C:\\Tarnwell"); }
  // What the form shows at first of a file with that content.
  std::string Shown(const std::string& content) {
    Files.AddFile(TipsPath, content);
    Tips.cmdOKClick();
    Tips.ForceShow = true;
    Tips.ShowOver(Main);
    return Tips.lblTipText.Text;
  }
  std::string Next() {
    Tips.cmdNextTipClick();
    return Tips.lblTipText.Text;
  }
  // The same, and the three that follow.
  std::string Run(const std::string& content) {
    std::string text = Shown(content);
    for (int i = 0; i < 3; ++i) text += "|" + Next();
    return text;
  }

  fakes::FakeFormHost Host;
  fakes::FakeMessenger Messages;
  settings::ReadMarkers Markers;
  int Helped = 0;
  forms::Form Main{"Master"};
  frmTip Tips{{Host, Files, Clock, User, Messages, Markers, [this] { ++Helped; }}, "C:\\Tarnwell"};
};

TEST_F(TipsTest, ShowsEveryLineInTurnFromTheFirstOrFromOneByLot) {
  EXPECT_EQ(Run("\xEF\xBB\xBFone\r\n\nthree"), "one||three|one");
  EXPECT_EQ(Run("one\rtwo\r"), "one|two|one|two");
  EXPECT_EQ(Run("only\n"), "only|only|only|only");
  const std::string none = "There are no tips in TIPOFDAY.TXT.";
  EXPECT_EQ(Run(""), none + "|" + none + "|" + none + "|" + none);
  EXPECT_EQ(Shown("\xFF" + std::string(9000, 'x')), "\xFF" + std::string(4999, 'x') + "...");
  Markers.FirstTips = false;
  std::set<std::string> seen;
  for (Clock.Time = 0; Clock.Time < 60; ++Clock.Time) seen.insert(Shown("a\nb\nc"));
  EXPECT_EQ(seen, (std::set<std::string>{"a", "b", "c"}));
}

// More would scroll, and an empty line would be an empty window.
TEST(TipLinesTest, ThoseOfTheProgramFitTheirWindow) {
  const TipLines tips(fakes::ReadTestFile("../data/TIPOFDAY.TXT"));
  EXPECT_GE(tips.Count(), 40);
  for (int number = 1; number <= tips.Count(); ++number) {
    const std::string_view tip = tips.At(number);
    EXPECT_TRUE(tip.size() > 20 && tip.size() <= 250 && base::ForDisplay(tip) == tip) << tip;
  }
}

TEST_F(TipsTest, TellsWhatIsWrongWithItsFile) {
  const std::string missing =
      "That the TIPOFDAY.TXT file was not found? \r\n\r\nCreate a text file named TIPOFDAY.TXT "
      "using NotePad with 1 tip per line. Then place it in the same directory as the application. ";
  Tips.ShowOver(Main);
  EXPECT_EQ(Tips.lblTipText.Text, missing);
  EXPECT_TRUE(Next() == missing && !Tips.LoadTips(""));
  Tips.cmdOKClick();
  Files.AddFolder(TipsPath);
  Tips.ShowOver(Main);
  EXPECT_EQ(Tips.lblTipText.Text, missing + "\r\n" + TipsPath + ": Is a directory.");
}

TEST_F(TipsTest, KeepsItsSwitchAtOnceAndTellsWhereItCannot) {
  Tips.chkLoadTipsAtStartupClick(false);
  EXPECT_EQ(User.Numbers[Switch], 0);
  Tips.ShowOver(Main);
  EXPECT_TRUE(Host.Told.empty());
  Shown("tip");
  EXPECT_TRUE(Host.IsOpen("frmTip") && !Tips.chkLoadTipsAtStartup.Checked);
  User.WriteFault = {30, "C:\\conf: Read-only"};
  Tips.chkLoadTipsAtStartupClick(true);
  EXPECT_EQ(Messages.Texts.size(), 1U);
  EXPECT_FALSE(Tips.chkLoadTipsAtStartup.Checked);
  Tips.UserKeyDown(13, 0);
  Tips.UserKeyDown(112, 0);
  EXPECT_EQ(Helped, 1);
  Tips.cmdOKClick();
  Host.Told.clear();
  Tips.ShowOver(Main);  // only the menu's way asks for it
  EXPECT_TRUE(Host.Told.empty());
}

TEST(HelpTest, StacksItsLabelsAndScrollsWhatDoesNotFit) {
  fakes::FakeFormHost host;
  forms::Form main("Master");
  frmHelp help(host, [] {});
  help.ShowOver(main);
  base::Twips each = 400;
  const auto heightOf = [&](const HelpLabel& label) {
    EXPECT_EQ(label.Width, 5910);
    return each;
  };
  help.Resize(6000, 3000, heightOf);
  EXPECT_EQ(help.lbltxt[20].Top, 20 * 430);
  EXPECT_EQ(help.VScroll1.Max, 3000 - 20 * 430 - 400);
  EXPECT_TRUE(help.VScroll1.Visible && help.VScroll1.Left == 5700 && help.lbltxt[20].Visible);
  const std::pair<HelpScroll, int> ways[] = {
      {HelpScroll::LineDown, -195}, {HelpScroll::PageDown, -3195}, {HelpScroll::LineUp, -3000},
      {HelpScroll::Bottom, -6000},  {HelpScroll::PageDown, -6000}, {HelpScroll::PageUp, -3000}};
  for (const auto& [way, top] : ways) {
    help.Scroll(way);
    EXPECT_TRUE(help.Picture1.Top == top && help.VScroll1.Value == top) << top;
  }
  help.Resize(6000, 8000, heightOf);
  EXPECT_EQ(help.Picture1.Top, -1000);
  each = 10;
  help.Resize(6000, 8000, heightOf);
  EXPECT_TRUE(!help.VScroll1.Visible && help.Picture1.Top == 0 && help.VScroll1.Max == 0);
}

}  // namespace
}  // namespace tarnwell::tools
