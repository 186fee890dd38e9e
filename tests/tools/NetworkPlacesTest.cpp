#include "fakes/FakeForms.h"
#include "fakes/FakePlatform.h"
#include "tools/PlaceAddress.h"
#include "tools/frmDisconnect.h"
#include "tools/frmMapDrive.h"

namespace tarnwell::tools {
namespace {

// The address that is connected to, or what is wrong with the typed one.
std::string ReadTyped(const std::string& typed) {
  const ReadAddress read = ReadPlaceAddress(typed, "dav", {"sftp", "smb", "dav", "davs"});
  EXPECT_NE(read.Address.empty(), read.Trouble.empty()) << typed;
  return read.Address + read.Trouble;
}

TEST(PlaceAddressTest, ReadsWhatPeopleTypeAndNamesWhatIsWrong) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {" SSH://ann@host:22/a b/%41ä ", "sftp://ann@host:22/a%20b/%41%C3%A4"},
      {"host/x", "dav://host/x"},
      {"//host", "dav://host"},
      {"https://h", "davs://h"},
      {"\\\\pc\\share\\in", "smb://pc/share/in"},
      {"sftp://[fe80::1%eth0]:2200/", "sftp://[fe80::1%25eth0]:2200/"},
      {"sftp://[fe80::1;x]/", "no name that a server can have"},
      {"sftp://ann:p@[::1]", "sftp://ann@[::1]"},
      {"smb://DOMAIN;ann@pc/c$", "smb://DOMAIN;ann@pc/c$"},
      {"sftp://", "names no server"},
      {"sftp://h:0/", "port"},
      {"sftp://h:65536", "port"},
      {"sftp://-oProxyCommand=x/", "no name that a server can have"},
      {"sftp://a b/", "no name that a server can have"},
      {"sftp://h/a?b", "%3F"},
      {"smb://pc//", "names no share"},
      {"ftp://h/", "cannot connect FTP"},
      {"gopher://h/", "“gopher” is none of the kinds"},
  };
  for (const auto& [typed, result] : cases) {
    const std::string read = ReadTyped(typed);
    EXPECT_TRUE(read == result ||
                (result.find("//") == std::string::npos && read.find(result) != std::string::npos))
        << typed << ": " << read;
  }
}

TEST(PlaceAddressTest, TakesWhateverMayBeAPasswordOut) {
  const std::vector<std::array<std::string, 3>> cases = {
      {"sftp://ann:p@h/x", "sftp://ann@h/x", "p"},
      {"ann:p@w@h", "ann@h", "p@w"},
      {"dav://ann:a/b?c#d@h/x", "dav://ann@h/x", "a/b?c#d"},
      {"dav://ann:@h", "dav://ann@h", ""},
      {"sftp://h:22/ann@home", "sftp://h:22/ann@home", "none"},
      {"sftp://[::1]:22/x", "sftp://[::1]:22/x", "none"},
      {"sftp://ann@h:22", "sftp://ann@h:22", "none"},
  };
  for (const auto& [typed, address, password] : cases) {
    const SplitAddress split = TakePassword(typed);
    EXPECT_EQ(split.Address, address);
    EXPECT_EQ(split.HadPassword ? split.Password : "none", password) << typed;
  }
}

TEST(RecentPlacesTest, KeepsTheNewestAndNoneThatHoldsAPassword) {
  fakes::FakeUserSettings settings;
  RecentPlaces recent(settings);
  for (int i = 0; i < 14; ++i) recent.Add("sftp://h" + std::to_string(i) + "/");
  recent.Add("sftp://h5/");
  EXPECT_TRUE(recent.Read().size() == MostRecentPlaces && recent.Read().front() == "sftp://h5/");
  recent.Forget("sftp://h5/");
  EXPECT_EQ(recent.Read().front(), "sftp://h13/");
  settings.Texts.begin()->second = {"junk", "sftp://ann:p@h/", "sftp://ann@h/"};
  EXPECT_EQ(recent.Read(), std::vector<std::string>{"sftp://ann@h/"});
}

class NetworkFormsTest : public testing::Test, public fakes::FakePlatform {
 protected:
  NetworkFormsTest() {
    Network.Kinds.Schemes = {"sftp", "dav"};
    Network.Offers = {{"Box", "sftp://box/"}};
  }
  fakes::FakeFormHost Host;
  forms::Form Main{"Master"};
  std::string Opened;
  frmMapDrive Map{{Host, Network, User, [this](const std::string& folder) { Opened = folder; }}};
  frmDisconnect Gone{Host, Network};
};

TEST_F(NetworkFormsTest, MapsAPlaceAfterAFailureAQuestionAndAStop) {
  Map.ShowOver(Main);
  EXPECT_EQ(Map.txtAddress.Text + Map.lstPlaces.Items.at(0), "sftp://Box (sftp://box/)");
  Map.txtAddressChange("dav://ann:p@h/x");
  EXPECT_EQ(Map.txtAddress.Text + std::to_string(Map.lstKind.ListIndex), "dav://ann@h/x1");
  Map.cmdConnectClick();
  Network.Running->OnDone({.Status = {5, "Connection refused"}});
  EXPECT_EQ(Map.lblStatus.Caption, "dav://ann@h/x cannot be opened: Connection refused.");
  Map.cmdConnectClick();
  EXPECT_FALSE(Map.txtAddress.Enabled || Map.cmdConnect.Enabled);
  Network.Running->OnQuestion({.Text = "Who?", .WantsPassword = true});
  const auto asked = [this] { return dynamic_cast<popPlaceQuestion*>(Host.OpenForms().back()); };
  ASSERT_NE(asked(), nullptr);
  EXPECT_EQ(asked()->txtQuestion.Text, "Who?");
  asked()->txtUser.Text = "bob";
  asked()->cmdChoiceClick(0);
  EXPECT_EQ(Network.Answers.at(0).User, "bob");
  Network.Running->OnQuestion({.Text = "Who?", .WantsUser = true, .WantsPassword = true});
  EXPECT_EQ(asked()->txtQuestion.Text, "Who?\nThe last answer was not accepted.");
  EXPECT_EQ(asked()->txtUser.Text + asked()->txtPassword.Text, "bob");
  Map.cmdCancelClick();
  EXPECT_TRUE(!Host.IsOpen("popPlaceQuestion") && Network.Running == nullptr);
  EXPECT_TRUE(Map.cmdConnect.Enabled && Host.IsOpen("frmMapDrive"));
  Map.lstPlacesClick(0);
  Map.lstPlacesDblClick();
  Network.Running->OnDone({.Folder = "C:\\box"});
  EXPECT_TRUE(Opened == "C:\\box" && !Host.IsOpen("frmMapDrive"));
  EXPECT_EQ(Network.Acts,
            (std::vector<std::string>{"connect dav://ann@h/x p", "connect dav://ann@h/x ",
                                      "connect sftp://box/ "}));
  EXPECT_EQ(RecentPlaces(User).Read(), std::vector<std::string>{"sftp://box/"});
}

TEST_F(NetworkFormsTest, TellsWhatIsInUseAndStopsByItself) {
  Network.Places = {{"1", "Box", "sftp://box/", ""}, {"2", "Disk", "h:/x", ""}};
  Gone.ShowOver(Main);
  Gone.cmdDisconnectClick();
  EXPECT_EQ(Gone.cmdDisconnect.Caption, "&Stop");
  Network.Running->OnDone({.Status = {16, "Volume is busy\nsh (7)"}, .IsInUse = true});
  EXPECT_EQ(Gone.Rows().at(0).State, "In use: Volume is busy\nsh (7)");
  Gone.cmdDisconnectClick();
  Gone.cmdDisconnectClick();
  EXPECT_TRUE(Network.Running == nullptr && Gone.Rows().at(0).State == "Connected");
  Network.Places.erase(Network.Places.begin());
  Network.Changed();
  EXPECT_TRUE(Gone.lstPlaces.ListIndex == 0 && Gone.Rows().at(0).Id == "2");
  Gone.cmdCloseClick();
  EXPECT_FALSE(Network.Changed);
}

}  // namespace
}  // namespace tarnwell::tools
