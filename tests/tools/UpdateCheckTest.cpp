#include "fakes/FakeForms.h"
#include "lists/TestLists.h"
#include "tools/UpdateCheck.h"

namespace tarnwell::tools {
namespace {

using workspace::Texts;

class UpdateCheckTest : public testing::Test, public lists::TestLists {
 protected:
  // What the site's text makes the check do: "shown", the last message's first word, or nothing.
  std::string Outcome(const std::string& text, bool asked) {
    Web.Pages["https://site.test/tw_ver/twver.txt"] = text;
    Messages.Texts.clear();
    Check.CheckForUpdate(asked);
    EXPECT_EQ(Space.Form.MousePointer, forms::MousePointer::WestEast);
    if (!Messages.Texts.empty()) return Messages.Texts.back().substr(0, 6);
    if (!IsShown()) return "";
    EXPECT_EQ(Window().TakesKeyboard, asked);
    Window().CloseClick();
    return "shown";
  }
  bool IsShown() { return Host.IsOpen("frmUpdate"); }
  frmUpdate& Window() { return dynamic_cast<frmUpdate&>(*Host.OpenForms().back()); }

  int Opened = 0;  // the site, in a browser
  fakes::FakeWeb Web;
  UpdateCheck Check{
      Space, {Host, Web, Messages, [this] { ++Opened; }}, {4, 0, 42}, "https://site.test"};
};

TEST_F(UpdateCheckTest, TellsOfANewerVersionAlone) {
  Space.Form.MousePointer = forms::MousePointer::WestEast;
  struct Case {
    std::string Text;
    std::string Asked;
    std::string Quiet = {};
  };
  for (const Case& each : {Case{"", "Update"},
                           {"<html><body>Not found, sorry.</body>", "Update"},
                           {std::string(31, '9'), "Update"},
                           {std::string(10'000'000, '4'), "Update"},
                           {"4.00.0042", "Your v"},
                           {"four.one.two", "Your v"},
                           {"40000.0.0", "Your v"},
                           {"5.0.123456789012345678901234\r\n", "shown", "shown"},
                           {" 4.0.43" + std::string(40, ' '), "shown", "shown"},
                           {"4.1.0", "shown", "shown"}}) {
    Space.Settings.OnlineVersion = 0;
    EXPECT_EQ(Outcome(each.Text, false), each.Quiet) << each.Text;
    EXPECT_EQ(Outcome(each.Text, true), each.Asked) << each.Text;
    EXPECT_EQ(Outcome(each.Text, false), "") << each.Text;  // it has been told
  }
  EXPECT_EQ(Space.Settings.OnlineVersion, 400010000);
}

TEST_F(UpdateCheckTest, ShowsTheNewsAndTakesAnAnswer) {
  Web.Pages["https://site.test/tw_ver/twnews.txt"] = "One\nTwo";
  Web.Pages["https://site.test/tw_ver/twver.txt"] = "4.1.0";
  Check.CheckForUpdate(true);
  EXPECT_EQ(Window().txtNews.Text, "One\r\nTwo");
  Window().cmdPassClick();
  EXPECT_TRUE(Messages.Texts.at(0).ends_with("you will be reminded again."));
  Check.CheckForUpdate(true);
  Window().cmdUpdateClick();
  EXPECT_TRUE(!IsShown() && Opened == 1);
  // Each of the two pages, given up: nothing is shown, and nothing is told.
  Messages.Texts.clear();
  Space.Settings.OnlineVersion = 7;
  for (const std::size_t pages : {1U, 2U}) {
    Web.Asked.clear();
    Web.OnOpen = [&] {
      EXPECT_EQ(Host.ScreenPointer(), forms::MousePointer::Hourglass);
      Check.CheckForUpdate(false);  // one is enough
      if (Web.Asked.size() == pages) Check.GiveUp();
    };
    Check.CheckForUpdate(true);
    EXPECT_EQ(Web.Asked.size(), pages);
    EXPECT_FALSE(IsShown() || !Messages.Texts.empty());
    EXPECT_EQ(Space.Settings.OnlineVersion, 7);
  }
  // Nobody has put a site of the program's own there.
  Web = {};
  UpdateCheck other(Space, {Host, Web, Messages, {}}, {}, "https://tw.example/");
  other.CheckForUpdate(false);
  EXPECT_TRUE(Web.Asked.empty());
  other.CheckForUpdate(true);
  EXPECT_EQ(Messages.Texts, (Texts{"Update information could not be obtained from the Tarnwell "
                                   "website (tw.example).\r\n\r\nPlease try again later."}));
}

}  // namespace
}  // namespace tarnwell::tools
