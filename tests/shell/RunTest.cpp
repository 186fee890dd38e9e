#include "TestRun.h"
#include "commands/MenuTable.h"
#include "commands/ToolbarTable.h"
#include "fakes/TestFile.h"
#include "fileops/popCopyMove.h"
#include "lists/TestLists.h"

namespace tarnwell::shell {
namespace {

struct StubbornForm : forms::Form {
  StubbornForm() : Form("Stubborn") {}
  void Unload() override { throw std::runtime_error("stays"); }
};

class RunTest : public testing::Test {
 protected:
  TestMachine Machine;
  TestRun Run{Machine};
};

TEST_F(RunTest, PlaysOneCycleThenLoadsAndHandsOverInOneTick) {
  Splash& splash = Run.App.StartForm();
  Run.App.Start();
  EXPECT_EQ(splash.txtVersion.Caption, "Version 4.0.42");
  EXPECT_FALSE(splash.cmdClosePane.Visible);
  ASSERT_EQ(Run.Status, (Texts{"initializing..."}));
  const std::size_t frames = splash.Image1.size();
  for (std::size_t frame = 1; frame < frames; ++frame) {
    Run.Tick();
    EXPECT_EQ(Run.Status.back(), frame < 12 ? "initializing..." : "loading main window...");
    EXPECT_TRUE(splash.Image1[frame].Visible && !splash.Image1[frame - 1].Visible);
    EXPECT_EQ(splash.Timer1.Interval, splash.Image1[frame].Tag);
  }
  EXPECT_FALSE(Machine.HasMarker());
  EXPECT_EQ(Run.Host.Told.size(), 2U);
  Run.Tick();
  EXPECT_EQ(Run.Host.Told, (Texts{"open Splash", "show Splash", "open Master", "show Master",
                                  "unload Splash", "open frmTip", "show frmTip"}));
  std::string words;
  for (std::size_t i = 1; i < Run.Status.size(); ++i) {
    if (Run.Status[i] != Run.Status[i - 1]) words += Run.Status[i] + "\n";
  }
  EXPECT_EQ(words, fakes::ReadTestFile("shell/stages.txt"));
  EXPECT_TRUE(splash.SplashDone && splash.LoadFinished && !splash.Timer1.Enabled);
  EXPECT_TRUE(Machine.HasMarker());
  splash.KeyDown('R');
  EXPECT_FALSE(splash.ResetKeyPressed);

  // The panes show at the first resize, and not before.
  const auto visible = [this] {
    return Run.Form().TitleBar[0].Visible && Run.Space().Lists.Files(1).Visible;
  };
  Run.Form().ScaleWidth = Run.Form().ScaleHeight = 12000;
  for (const bool enabled : {false, true}) {
    EXPECT_FALSE(visible());
    Run.Main().ChangeResizeFlag(enabled);
    Run.Main().Resize();
  }
  EXPECT_TRUE(visible() && !Run.Form().FirstResizePending);
  EXPECT_EQ(Run.Form().MenuImages.ImageOf(Run.Form().Menus["mnuExit"]), "exit");
}

// The check for a newer version lets messages through, and the program may be closed meanwhile.
TEST_F(RunTest, ACheckForUpdatesHoldsNobodyUp) {
  Run.Web.Pages["https://site.test/tw_ver/twver.txt"] = "5.0.0";
  Run.Web.OnOpen = [this] {
    EXPECT_TRUE(Run.App.StartForm().SplashDone && Run.WasToldOf("unload Splash"));
    if (Run.Web.Asked.size() == 1) Run.Main().KeyDown(lister::EscapeKey, 0);
    if (Run.Web.Asked.size() == 2) Run.App.RequestQuit();
  };
  Run.Start();
  EXPECT_EQ(Run.Web.Asked.size(), 1U);
  EXPECT_TRUE(Run.Main().Space().Lists.Files(0).CancelRequested && Run.Host.IsOpen("Master"));
  Run.Main().MenuClick("mnuCheckUpdate");
  EXPECT_EQ(Run.Web.Asked.size(), 2U);
  EXPECT_TRUE(Run.Host.OpenForms().empty() && Run.Boxes.empty());
}

TEST_F(RunTest, NamesTheStageThatFailedAndEnds) {
  const std::string stages[][2] = {{"C:\\Tarnwell\\run.txt", "storing start up information..."},
                                   {"C:\\Tarnwell\\skins", "loading initial pane..."}};
  for (const auto& [fatal, stage] : stages) {
    TestMachine machine;
    machine.Files.Fatal = fatal;
    machine.LeaveSettings();
    TestRun run(machine);
    run.Start();
    EXPECT_EQ(run.Boxes,
              (Texts{"An error has occurred while starting Tarnwell.\r\n\r\nThe error occurred "
                     "during this stage: " +
                     stage +
                     "\r\n\r\nPlease send an e-mail to support@tarnwell.example regarding possible "
                     "fixes to this issue and quote error number: TW0101. Tarnwell must now "
                     "close."}));
    EXPECT_TRUE(run.App.StartForm().StartFailed && !run.App.StartForm().LoadFinished);
    EXPECT_TRUE(run.Host.OpenForms().empty() && !run.WasToldOf("show Master"));
    run.App.RequestQuit();
    run.Main().SaveWithoutWindows();
    EXPECT_EQ(machine.Settings(), "\"FileCountMax\",60,0,0,0,0");
    EXPECT_FALSE(machine.HasMarker());
  }
}

TEST_F(RunTest, TellsOnceWhyItsFolderTakesNoMarkerAndEmptiesNoOtherFile) {
  Machine.Files.AddFile("C:\\precious", "kept");
  Machine.Files.AddLink("C:\\Tarnwell\\run.txt", "C:\\precious");
  for (const bool isThere : {true, false}) {
    TestRun run(Machine);
    Machine.System.Trouble = isThere ? base::Status() : base::Status{28, "No space"};
    Machine.Files.WriteFault = isThere ? fakes::MemoryFileSystem::Denied() : base::Status();
    run.Start();
    ASSERT_EQ(run.Boxes.size(), 2U);  // the first is about the marker that it found
    const std::string reason = isThere ? ":\r\nPermission denied." : ":\r\nNo space.";
    EXPECT_NE(run.Boxes[1].find("C:\\Tarnwell" + reason), std::string::npos) << run.Boxes[1];
  }
  Machine.System.Trouble = {};
  Run.Start();
  EXPECT_EQ(Machine.Files.At("C:\\precious").Content, "kept");
}

TEST_F(RunTest, TellsOnceOfAnItemThatAKilledRunSetAside) {
  const std::string record = "C:\\Tarnwell\\aside.txt";
  std::vector<std::string> pairs;
  for (const std::string name : {"C:\\a\\b", "C:\\a\\gone", "E:\\away", "C:\\a\\c"}) {
    pairs.insert(pairs.end(), {name + ".txt", name + " (being replaced).txt"});
    if (name.size() < 7) Machine.Files.AddFile(pairs.back(), "old");
  }
  Machine.Files.AddFile(record, base::ItemList::TextOf(pairs));
  Run.Start();
  ASSERT_EQ(Run.Boxes.size(), 1U);
  for (const char* told : {"C:\\a\\b.txt\r\nis whole", "C:\\a\\c.txt\r\nis whole"}) {
    EXPECT_NE(Run.Boxes[0].find(told), std::string::npos) << Run.Boxes[0];
  }
  EXPECT_EQ(Run.Boxes[0].find("gone"), std::string::npos) << Run.Boxes[0];
  // That drive may come back.
  EXPECT_EQ(Machine.Files.At(record).Content, base::ItemList::TextOf({pairs[4], pairs[5]}));
  // Only what is asked for goes back, and nothing over another item.
  EXPECT_TRUE(Machine.Files.Exists(pairs[1]));
  Machine.Files.AddFile(pairs[6], "new");
  Machine.Files.AddFile(record, base::ItemList::TextOf(pairs));
  TestRun next(Machine);
  next.OnBox = [](popMsgBox& box) { box.ButtonClick(1); };
  next.Start();
  EXPECT_TRUE(Machine.Files.Exists(pairs[0]) && !Machine.Files.Exists(pairs[1]));
  EXPECT_EQ(Machine.Files.At(pairs[6]).Content + Machine.Files.At(pairs[7]).Content, "newold");
}

TEST_F(RunTest, BringsTheSplashBackAsTheAboutBox) {
  Run.Start();
  Splash& splash = Run.App.StartForm();
  Run.Main().MenuClick("mnuAbout");
  splash.KeyDown('R');
  Run.Tick(static_cast<int>(splash.Image1.size()) + 5);
  EXPECT_EQ(splash.txtStatus.Caption, "Acknowledgements and Disclaimer...");
  EXPECT_TRUE(!splash.ResetKeyPressed && splash.Image1[5].Visible && Run.Host.IsOpen("Splash"));
  splash.Command2Click();
  std::istringstream shown(Run.Boxes.back()), license(fakes::ReadTestFile("../LICENSE"));
  using Words = std::istream_iterator<std::string>;
  EXPECT_EQ(Texts(Words(shown), {}), Texts(Words(license), {}));
  Run.Main().MenuClick("mnuExit");
  EXPECT_TRUE(Run.Host.OpenForms().empty());
}

// A file that the real switches turn: what was loaded is what is saved again.
TEST_F(RunTest, GivesSwitchesAndOldSystemsTheirDue) {
  Machine.System.Windows98 = Machine.System.WindowsMe = true;
  Machine.Files.AddFile("C:\\Tarnwell\\user.usr", fakes::ReadTestFile("shell/switches.usr"));
  Run.Start();
  EXPECT_EQ(Run.Space().OsName, "Windows Me");
  EXPECT_TRUE(Run.Space().Lists.Files(1).IsWin9x && Run.Form().shpBack[4].BorderStyle == 2);
  EXPECT_EQ(Run.Space().ActiveList, 1);
  for (const char* button :
       {"compare_size", "compare_date", "showcommandline", "showcolor", "layoutautoexpand"}) {
    EXPECT_TRUE(Run.Form().Toolbar1[button].Pressed) << button;
  }
  Run.Main().MenuClick("mnuExit");
  const std::string first = Machine.Settings();
  for (const char* line : {"\"ProgramPosition\",300,450,9000,6000,0\r\n", "\"CompareMode\",3,",
                           "\"LayoutAutoExpand\",#TRUE#,0,0,0,0\r\n"}) {
    EXPECT_NE(first.find(line), std::string::npos) << line;
  }
  TestRun next(Machine);
  next.Start();
  Machine.Files.Remove("C:\\Tarnwell\\run.txt");  // as another copy does at its end
  next.Main().MenuClick("mnuExit");
  EXPECT_EQ(Machine.Settings(), first);
}

TEST_F(RunTest, SavesThenTakesTheMarkerAwayThenClosesAllForms) {
  Run.Main().SaveWithoutWindows();  // nothing is loaded yet
  EXPECT_FALSE(Machine.HasSettings());
  Run.Start();
  StubbornForm stubborn;
  forms::Form other("Other");
  Run.Host.Show(stubborn, nullptr);
  Run.Host.Show(other, nullptr);
  Run.Host.Told.clear();
  Run.Host.OnUnload = [&](forms::Form& form) {
    const bool first = form.Name() == "Master";
    EXPECT_EQ(Machine.HasMarker(), first) << form.Name();
    EXPECT_EQ(Machine.HasSettings(), !first) << form.Name();
    EXPECT_EQ(Machine.Watches.Watched().empty(), !first) << form.Name();
  };
  Run.Main().MenuClick("mnuExit");
  EXPECT_EQ(Run.Host.Told,
            (Texts{"unload Master", "unload frmTip", "unload Stubborn", "unload Other"}));
  EXPECT_TRUE(Run.Host.OpenForms().empty() && Run.Boxes.empty());
  EXPECT_EQ(Run.Form().MenuImages.ImageOf(Run.Form().Menus["mnuExit"]), "");
  Machine.Drives.Change();

  Machine.Files.Remove("C:\\Tarnwell\\user.usr");
  Run.Main().SaveWithoutWindows();
  Run.App.RequestQuit();
  EXPECT_FALSE(Machine.HasSettings());
}

TEST_F(RunTest, LeavesTheMarkerToTheEndOfWhatIsAtWork) {
  Run.Start();
  Machine.Engine.OnSettle = {};
  bool isFollowed = false;
  for (const char* items : {"C:\\a", "C:\\b"}) {  // the second one waits
    const platform::OperationRequest copy{platform::FileFunction::Copy, {items, 5}, {"D:\\", 4}};
    const auto id = Run.Operations.Start({platform::CommandKind::Copy, {copy}});
    Run.Operations.WhenDone(id, [&isFollowed](const auto&) { isFollowed = true; });
  }
  Run.Main().MenuClick("mnuExit");
  EXPECT_TRUE(Run.Host.OpenForms().empty() && Machine.HasSettings() && Machine.HasMarker());
  Machine.Files.Remove("C:\\Tarnwell\\user.usr");
  Machine.Engine.Done(0);
  EXPECT_EQ(Machine.Engine.Runs.size(), 1U);
  Run.App.RequestQuit();
  EXPECT_TRUE(Machine.HasMarker());
  Machine.Engine.Done(1);
  EXPECT_FALSE(Machine.HasMarker() || Machine.HasSettings() || isFollowed);
}

TEST_F(RunTest, GoesToTheNotificationAreaAndComesBackAsItWas) {
  using forms::WindowState;
  Run.Start();
  const auto goes = [this](WindowState from, bool mayGo, bool hasArea) {
    Run.Space().Settings.MinimizeToTaskBar = !mayGo;
    Machine.Tray.IsThere = hasArea;
    for (const WindowState state : {from, WindowState::Minimised, WindowState::Minimised}) {
      Run.Form().State = state;
      Run.Main().Resize();
    }
    return Run.Form().InTray && Machine.Tray.Icon;
  };
  for (const WindowState state : {WindowState::Maximised, WindowState::Normal}) {
    EXPECT_FALSE(goes(state, false, true) || goes(state, true, false));
    EXPECT_TRUE(goes(state, true, true));
    Machine.Tray.Take(&platform::Tray::Events::Restore);
    EXPECT_TRUE(Run.Form().State == state && !Run.Form().InTray && !Machine.Tray.Icon);
  }
  EXPECT_TRUE(goes(WindowState::Normal, true, true));
  EXPECT_EQ(Run.Form().MenuImages.ImageOf(Run.Form().Menus["mnuExit"]), "");
  Machine.Tray.Take(&platform::Tray::Events::Gone);
  EXPECT_EQ(Run.Form().MenuImages.ImageOf(Run.Form().Menus["mnuExit"]), "exit");
  EXPECT_TRUE(Run.Form().State == WindowState::Minimised && !Run.Form().InTray);
  EXPECT_TRUE(goes(WindowState::Normal, true, true));
  Run.Host.OnUnload = [&](forms::Form&) { EXPECT_FALSE(Machine.Tray.Icon); };
  Machine.Tray.Take(&platform::Tray::Events::Exit);
  EXPECT_TRUE(Run.Host.OpenForms().empty() && Machine.HasSettings());
}

// Nobody is there any more to answer, so nothing may wait for an answer either.
TEST_F(RunTest, EndsOnRequestRightBehindTheLoad) {
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
    EXPECT_TRUE(run.Web.Asked.empty() && !machine.HasMarker());
    EXPECT_NE(machine.Settings().find("\"FileCountMax\",60,"), std::string::npos);
  }
}

TEST_F(RunTest, AsksNothingMoreOnceItIsToEnd) {
  Run.Start();
  Run.Main().MenuClick("mnuChooseSkin");
  auto* const chooser = static_cast<settings::frmSkinChooser*>(Run.Host.OpenForms().back());
  chooser->Picture1[0].BackColour += 1;
  Run.Dialogs.Texts = {"a.b", "c.d"};
  Run.OnBox = [this](popMsgBox& box) {  // to save the changes; and that the name is none
    Run.Boxes.size() == 1 ? box.ButtonClick(2) : Run.App.RequestQuit();
  };
  Run.Main().MenuClick("mnuExit");
  EXPECT_EQ(Run.Boxes.size(), 2U) << Run.Boxes.back();
  EXPECT_EQ(Run.Dialogs.Asked.size(), 1U);
}

// Of every entry and every button something comes. What is told is that one pane has to stay, has
// nothing to be compared with and no skin to wear, and that there is no site to ask or to open.
TEST_F(RunTest, EveryCommandIsThere) {
  Run.Start();
  Machine.Launcher.Fault = {2, "no browser"};
  Run.Dialogs.File = "C:\\list.csv";
  const auto isWayOut = [](auto name) { return name == "mnuExit" || name == "mPopExit"; };
  for (const forms::MenuRow& row : commands::MenuTable()) {
    if (!commands::Commands::IsCommand(row.Name) || isWayOut(row.Name)) continue;
    Machine.Pump.Drop();
    Machine.Pump.Post([this] { Machine.Trash.Settle(); });
    Run.Main().MenuClick(row.Name);
  }
  for (const forms::ToolbarRow& row : commands::ToolbarTable()) Run.Main().ButtonClick(row.Key);
  EXPECT_EQ(Run.Boxes.size(), 5U) << testing::PrintToString(Run.Boxes);
  EXPECT_EQ(std::ranges::count(Run.Boxes,
                               "The site https://site.test/ cannot be opened.\r\n\r\nno browser."),
            1);
  EXPECT_TRUE(Machine.Files.Exists("C:\\list.csv"));
  for (const char* form : {"frmOptions", "frmSkinChooser", "frmTip", "frmHelp", "Splash",
                           "frmRecycleBin", "frmMapDrive", "frmDisconnect"}) {
    EXPECT_TRUE(Run.Host.IsOpen(form)) << form;
  }
  for (forms::Form* const form : Run.Host.OpenForms()) {
    if (form->Name() == "frmHelp") static_cast<tools::frmHelp*>(form)->cmdGuideClick();
  }
  EXPECT_EQ(Run.Boxes.back(),
            "The user guide C:\\Tarnwell\\guide\\index.html cannot be opened.\r\n\r\nno browser.");
}

TEST(ShellWindowsTest, StandForTheProgramsOwn) {
  TestMachine machine;
  fakes::FakeShellWindows shell;
  TestRun run(machine, &shell);
  for (const char* file : {"C:\\x\\a", "C:\\x\\b"}) machine.Files.AddFile(file);
  run.Start();
  shell.OnEmpty = [&run] {
    EXPECT_EQ(run.Host.ScreenPointer(), forms::MousePointer::Hourglass);
    EXPECT_EQ(run.Form().Toolbar1.MousePointer, forms::MousePointer::Hourglass);
    throw std::runtime_error("no shell");
  };
  for (const char* each : {"mnuRCOpenRecycleBin", "mnuRCEmptyRecycleBin", "mnuMapNetworkDrive",
                           "mnuDisconnectNetworkDrive"}) {
    run.Main().MenuClick(each);
  }
  run.Main().ButtonClick("recyclebin");
  EXPECT_EQ(run.Boxes, Texts{"An error occurred and the recycle bin may not have been emptied."});
  EXPECT_EQ(run.Host.ScreenPointer(), forms::MousePointer::Default);
  EXPECT_EQ(run.Form().Toolbar1.MousePointer, forms::MousePointer::Default);

  lister::ListerControl& files = run.Space().Lists[100];
  run.Space().CurrentList = 100;
  files.GoToFolder("C:\\x");
  run.Main().PressKeys("Alt+Return");
  files.SelectAll();
  shell.Instance = 5;
  run.Main().PressKeys("Alt+Return");
  EXPECT_EQ(run.Boxes.back(), " Properties not available for this object.");
  EXPECT_EQ(shell.Told, (Texts{"open bin", "empty ", "map", "disconnect", "open bin",
                               "properties C:\\x", "properties C:\\x\\a C:\\x\\b"}));
  EXPECT_TRUE(machine.ItemMenus.Invoked.empty());
}

TEST_F(RunTest, ItsKeysGoFromPaneToPaneAsTheyStand) {
  for (const char* file : {"C:\\x\\a", "C:\\y\\b", "C:\\z\\c\\d"}) Machine.Files.AddFile(file);
  Run.Start();
  Run.Form().Width = Run.Form().ScaleWidth = Run.Form().Height = Run.Form().ScaleHeight = 20000;
  Run.Main().Resize();
  workspace::Workspace& space = Run.Space();
  const auto press = [&](const char* keys) {
    Run.Main().PressKeys(keys);
    EXPECT_EQ(space.ActiveList, space.CurrentList);
    return space.CurrentList;
  };
  for (const auto& [keys, list, folder] : {std::tuple{"Alt+3", 102, "C:\\z"},
                                           {"Alt+1", 100, "C:\\y"},
                                           {"Alt+2", 101, "C:\\x"},
                                           {"Alt+2", 101, "C:\\x"}}) {
    EXPECT_EQ(press(keys), list);
    EXPECT_TRUE(space.Panes[list - 100].IsOpen());
    space.Lists[space.CurrentList].GoToFolder(folder);
  }
  std::swap(space.Panes[0].ControlGroup, space.Panes[1].ControlGroup);  // 2, 1, 3 on the screen
  Run.Host.OnModal = [&](forms::Form& form) {
    if (form.Name() == "popMsgBox")
      return Run.Boxes.push_back(static_cast<popMsgBox&>(form).lblText.Text);
    auto& dialog = dynamic_cast<fileops::popCopyMove&>(form);
    EXPECT_NE(dialog.cmdCopy.Default, dialog.cmdMove.Default);
    dialog.cmdMove.Default ? dialog.cmdMoveClick() : dialog.cmdCopyClick();
  };
  press("F5");  // nothing is selected
  space.Lists[101].SelectAll();
  for (const char* keys : {"F5", "F6", "Shift+F5", "Shift+F6"}) press(keys);
  std::string sent;
  for (const auto& each : Machine.Engine.Requests) sent += lists::TestLists::InOneLine(each) + "\n";
  EXPECT_EQ(sent,
            "2 C:\\x\\a;;> C:\\y\\;\n1 C:\\x\\a;;> C:\\y\\;\n2 C:\\x\\a;;> C:\\z\\;\n1 "
            "C:\\x\\a;;> C:\\z\\;\n");
  EXPECT_EQ(press("Ctrl+Tab"), 100);
  EXPECT_EQ(press("Ctrl+Shift+Tab"), 101);
  EXPECT_EQ(press("Ctrl+Shift+Tab"), 102);
  space.Lists[102].Visible = false;  // without room the tree has the keyboard
  press("Ctrl+Tab");
  EXPECT_EQ(press("Alt+3"), 2);

  space.Lists[2].GoToFolder("C:\\z\\c");
  press("Alt+Left");
  EXPECT_EQ(Run.Form().TitleBar[2].Text, "C:\\z\\");
  press("Alt+Return");
  EXPECT_EQ(Machine.ItemMenus.Asked, "C:\\: z");
  // A menu of the system's takes the keys that come up while it is there.
  Machine.Popups.OnTrack = [&] { Run.Main().KeyDown('K', 1); };
  const lister::RowPointer empty{lister::NoRow, 99, lister::RowPart::None, {2, 0, 15, 30}};
  space.Lists[100].Input().MouseDown(empty);
  space.Lists[100].Input().MouseUp(empty);
  EXPECT_EQ(Machine.Popups.Tracked, 1);
  EXPECT_TRUE(space.KeyArmed);
  for (const char* pane : {"mnuPane0", "mnuPane1"}) Run.Main().MenuClick(pane);
  press("F5");
  EXPECT_EQ(press("Ctrl+Tab"), 2);
  EXPECT_EQ(Run.Boxes,
            (Texts{"Nothing is selected to copy.", "There is no other open pane to copy to."}));
}

}  // namespace
}  // namespace tarnwell::shell
