#include <stdexcept>

#include "TestRun.h"

namespace tarnwell::shell {
namespace {

struct StubbornForm : forms::Form {
  StubbornForm() : Form("Stubborn") {}
  void Unload() override { throw std::runtime_error("stays"); }
};

class ShutdownTest : public testing::Test {
 protected:
  TestMachine Machine;
  TestRun Run{Machine};
};

TEST_F(ShutdownTest, SavesThenTakesTheMarkerAwayThenClosesAllForms) {
  Run.Main().SaveWithoutWindows();  // nothing is loaded yet
  EXPECT_FALSE(Machine.HasSettings());
  Run.Start();
  StubbornForm stubborn;
  forms::Form other("Other");
  Run.Host.Show(stubborn, nullptr);
  Run.Host.Show(other, nullptr);
  EXPECT_EQ(Machine.Watches.Watched().size(), 4U);
  Run.Host.Told.clear();
  Run.Host.OnUnload = [&](forms::Form& form) {
    const bool first = form.Name() == "Master";
    EXPECT_EQ(Machine.HasMarker(), first) << form.Name();
    EXPECT_EQ(Machine.HasSettings(), !first) << form.Name();
    EXPECT_EQ(Machine.Watches.Watched().empty(), !first) << form.Name();
  };
  Run.Main().MenuClick("mnuExit");
  EXPECT_EQ(Run.Host.Told, (Texts{"unload Master", "unload Stubborn", "unload Other"}));
  EXPECT_TRUE(Run.Host.OpenForms().empty() && Run.Boxes.empty());
  EXPECT_EQ(Run.Form().MenuImages.ImageOf(Run.Form().Menus["mnuExit"]), "");
  Machine.Drives.Change();

  Machine.Files.Remove("C:\\Tarnwell\\user.usr");
  Run.Main().SaveWithoutWindows();
  Run.App.RequestQuit();
  EXPECT_FALSE(Machine.HasSettings());
}

// Nobody is there any more to answer, so nothing may wait for an answer either.
TEST_F(ShutdownTest, EndsOnRequestRightBehindTheLoad) {
  for (const bool hasSkin : {true, false}) {
    TestMachine machine;
    machine.LeaveMarker();
    machine.LeaveSettings();
    if (!hasSkin) machine.Files.Remove("C:\\Tarnwell\\skins");
    TestRun run(machine);
    run.OnBox = [&](popMsgBox&) {
      run.App.RequestQuit();
      EXPECT_TRUE(!run.Host.IsOpen("popMsgBox") && run.Host.IsOpen("Master"));
    };
    run.Start();
    EXPECT_EQ(run.Boxes.size(), 1U) << run.Boxes.back();
    EXPECT_TRUE(run.Host.OpenForms().empty() && !run.WasToldOf("show Master"));
    EXPECT_FALSE(machine.HasMarker());
    EXPECT_NE(machine.Settings().find("\"FileCountMax\",60,"), std::string::npos);
  }
}

}  // namespace
}  // namespace tarnwell::shell
