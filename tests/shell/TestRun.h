// The whole program over the platform in memory, and one run of it.
#pragma once

#include "fakes/FakeForms.h"
#include "fakes/FakeOperationEngine.h"
#include "fakes/FakePlatform.h"
#include "fakes/TestFile.h"
#include "shell/Application.h"
#include "shell/popMsgBox.h"

namespace tarnwell::shell {

using Texts = std::vector<std::string>;

// What outlives a run.
struct TestMachine : fakes::FakePlatform {
  fakes::FakeOperationEngine Engine;  // what it is to do takes no time

  TestMachine() {
    Engine.OnSettle = [this] { Engine.DoneAll(); };
    Files.AddFile("C:\\Tarnwell\\skins\\Earl Grey.twk", "\"Version\",1,0,0,0,0");
    Files.AddFile("C:\\Tarnwell\\ring6full.gif", fakes::ReadTestFile("../data/ring6full.gif"));
  }
  bool HasMarker() const { return Files.Exists("C:\\Tarnwell\\run.txt"); }
  bool HasSettings() const { return Files.Exists("C:\\Tarnwell\\user.usr"); }
  const std::string& Settings() { return Files.At("C:\\Tarnwell\\user.usr").Content; }
  // A settings file with something in it to tell it by, and the marker of a run that did not end.
  void LeaveSettings() { Files.AddFile("C:\\Tarnwell\\user.usr", "\"FileCountMax\",60,0,0,0,0"); }
  void LeaveMarker() { Files.AddFile("C:\\Tarnwell\\run.txt", "old"); }
};

class TestRun {
 public:
  // With a shell the program has no windows of its own for what that shows.
  explicit TestRun(TestMachine& machine, platform::ShellWindows* shell = nullptr)
      : Operations(machine.Engine, machine.Clock, machine.Files.Syntax(), machine.Forms, History),
        App({Host,
             machine.Files,
             machine.Drives,
             machine.Watches,
             machine.Pump,
             machine.Clock,
             Dialogs,
             machine.System,
             machine.Order,
             machine.Launcher,
             Operations,
             machine.Engine,
             History,
             machine.ItemMenus,
             machine.Popups,
             machine.Popups,
             machine.Forms,
             machine.Stamps,
             machine.Keys,
             machine.User,
             machine.Tray,
             Web,
             shell != nullptr ? std::optional<OwnWindows>()
                              : OwnWindows{machine.Items, machine.Trash, machine.Network},
             shell,
             machine.Search,
             "https://site.test/"},
            {4, 0, 42}) {
    Host.OnRefresh = [this](forms::Form& form) {
      if (&form == &App.StartForm()) Status.push_back(App.StartForm().txtStatus.Caption);
    };
    Host.OnModal = [this](forms::Form& form) {
      auto& box = dynamic_cast<popMsgBox&>(form);
      Boxes.push_back(box.lblText.Text);
      if (OnBox) OnBox(box);
    };
  }

  void Tick(int times = 1) {
    for (; times > 0 && Host.IsOpen("Splash"); --times) App.StartForm().Tick();
  }
  // From the first window to the hand-over, or to the end of a failed start.
  void Start() {
    App.Start();
    Tick(static_cast<int>(App.StartForm().Image1.size()));
  }
  Master& Main() { return App.MainObject(); }
  workspace::MainForm& Form() { return Main().Form(); }
  workspace::Workspace& Space() { return Main().Space(); }
  bool WasToldOf(const std::string& act) const { return std::ranges::count(Host.Told, act) > 0; }

  fakes::FakeFormHost Host;
  fakes::FakeDialogs Dialogs;
  fakes::FakeWeb Web;
  fileops::UndoHistory History;
  fileops::OperationQueue Operations;
  Application App;
  Texts Status;                           // what the splash was painted with
  Texts Boxes;                            // the messages, in turn
  std::function<void(popMsgBox&)> OnBox;  // the user, before each; without it the box is closed
};

}  // namespace tarnwell::shell
