// The workspace over the platform in memory: panes, lists and controls, with no program around it.
#pragma once

#include "fakes/FakeForms.h"
#include "fakes/FakePlatform.h"
#include "fakes/TestFile.h"
#include "workspace/FormLayout.h"
#include "workspace/Workspace.h"

namespace tarnwell::workspace {

using Texts = std::vector<std::string>;
using Ids = std::vector<lister::ListId>;

// What the rules of the workspace, the lists and the settings touch, under its own name; only
// "&Orientation" is found by its caption.
inline FormTables SmallTables() {
  static const auto linesOf = [](const char* file) {
    std::istringstream stream(fakes::ReadTestFile(file));
    return Texts{std::istream_iterator<std::string>(stream), {}};
  };
  static const Texts names = linesOf("workspace/entries.txt");
  static const Texts keys = linesOf("workspace/buttons.txt");
  static constexpr std::string_view images[] = {"layouthorizontal", "layoutvertical"};
  static const auto [menu, toolbar] = [] {
    std::vector<forms::MenuRow> rows{{1, "mnuOrientation", "&Orientation"}};
    for (const auto& name : names) rows.push_back({1, name, name, forms::Tick::Off});
    std::vector<forms::ToolbarRow> buttons;
    for (const auto& key : keys) buttons.push_back({key, forms::ButtonStyle::Check, "", ""});
    return std::pair(rows, buttons);
  }();
  return {menu, toolbar, images};
}

class TestWorkspace {
 public:
  using SharedPlatform = std::shared_ptr<fakes::FakePlatform>;

  // Several can share a platform, one run of the program after the other.
  explicit TestWorkspace(SharedPlatform platform = std::make_shared<fakes::FakePlatform>())
      : Shared(std::move(platform)),
        Platform(*Shared),
        Space(SmallTables(),
              [this](lister::ListId list) {
                return std::make_unique<lister::ListerControl>(
                    list, Platform.Services(Space.OpenBrackets), EventsOf());
              }),
        Tray(Space, Platform.Tray, {}),
        Layout(Space, Messages, Tray) {
    Space.PaneGap = 60;
    Space.CommandStripHeight = 335;
    Space.Form.Width = Space.Form.ScaleWidth = 15120;
    Space.Form.Height = Space.Form.ScaleHeight = 9000;
    Space.Form.Toolbar1.Height = 435;
    for (std::size_t i = 0; i < Space.Panes.size(); ++i) {
      Space.Form.TitleBar[i].Height = 255;
      Space.Form.cmdTitle[i].Width = Space.Form.cmdClosePane[i].Width = 315;
      Space.Panes[i].InitialDrive = "C";
      Space.Panes[i].Status = i < 2 ? Open : Closed;
    }
    Space.OpenPaneCount = 2;
    Space.CurrentList = Space.ActiveList = 0;
  }
  virtual ~TestWorkspace() = default;

  // Where the lists' events go. Asked for when a list is made.
  virtual lister::ListerEvents& EventsOf() { return nobody_; }

  PaneRecord& Pane(int pane) { return Space.Panes[pane]; }

  // The panes whose buttons are pressed, as "01".
  std::string PressedPanes() {
    std::string panes;
    for (const char pane : {'0', '1', '2', '3', '4'}) {
      const bool pressed = Space.Form.Toolbar1[std::string("pane") + pane].Pressed;
      EXPECT_EQ(pressed, Space.Form.Menus[std::string("mnuPane") + pane].Checked);
      if (pressed) panes += pane;
    }
    return panes;
  }

  const SharedPlatform Shared;
  fakes::FakePlatform& Platform;
  fakes::FakeFormHost Host;
  fakes::FakeMessenger Messages;
  Workspace Space;
  SystemTray Tray;
  FormLayout Layout;

 private:
  lister::ListerEvents nobody_;
};

}  // namespace tarnwell::workspace
