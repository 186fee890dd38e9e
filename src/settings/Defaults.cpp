#include "settings/Defaults.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace tarnwell::settings {
namespace {

struct Tick {
  std::string_view Entry;
  bool Checked;
};

struct Press {
  std::string_view Button;
  bool Pressed;
};

constexpr std::array Ticks = {
    Tick{"mnuCompareDate", true},   Tick{"mnuCompareSize", true}, Tick{"mnuHidden", false},
    Tick{"mnuSystem", false},       Tick{"mnuCommandOff", true},  Tick{"mnuCommandOn", false},
    Tick{"mnuColorOn", false},      Tick{"mnuColorOff", true},    Tick{"mnuAutoExpandOn", false},
    Tick{"mnuAutoExpandOff", true}, Tick{"mnuPane0", true},       Tick{"mnuPane1", true},
    Tick{"mnuPane2", false},        Tick{"mnuPane3", false},      Tick{"mnuPane4", false},
};

constexpr std::array Presses = {
    Press{"compare_size", true},
    Press{"compare_date", true},
    Press{"layoutvertical", false},
    Press{"layouthorizontal", true},
    Press{"showcommandline", false},
    Press{"showcolor", false},
    Press{"layoutautoexpand", false},
    Press{"pane0", true},
    Press{"pane1", true},
    Press{"pane2", false},
    Press{"pane3", false},
    Press{"pane4", false},
};

struct PaneDefault {
  std::int32_t Status;
  std::int16_t Order;
  float PercentWidth;
  float PercentHeightH;
};

constexpr std::array<PaneDefault, lister::PaneCount> PaneDefaults = {{
    {workspace::Open, 1, 0.5F, 0.65F},
    {workspace::Open, 2, 0.5F, 0.35F},
    {workspace::Closed, 3, 0, 0},
    {workspace::Closed, 4, 0, 0},
    {workspace::Closed, 5, 0, 0},
}};

}  // namespace

void AssignDefaults(workspace::Workspace& space, const base::PathSyntax& syntax,
                    ViewSwitches& switches) {
  space.Settings = workspace::ProgramSettings();
  workspace::MainForm& form = space.Form;
  for (const Tick& tick : Ticks) form.Menus[tick.Entry].Checked = tick.Checked;
  for (const Press& press : Presses) form.Toolbar1[press.Button].Pressed = press.Pressed;
  form.MenuImages.SetImage("&Orientation", form.ImageList1.Index("layouthorizontal"));
  switches.ShowColor(false);

  for (std::size_t i = 0; i < PaneDefaults.size(); ++i) {
    const PaneDefault& start = PaneDefaults[i];
    workspace::PaneRecord pane;
    pane.InitialDrive = syntax.DefaultDrive;
    pane.Status = start.Status;
    pane.Order = start.Order;
    pane.ControlGroup = static_cast<std::int16_t>(i);
    pane.PercentWidth = start.PercentWidth;
    pane.PercentHeightH = start.PercentHeightH;
    pane.WidthH = workspace::DefaultWidthH;
    pane.Height = workspace::DefaultHeight;
    space.Panes[i] = pane;
  }
  space.OpenPaneCount = 2;
}

}  // namespace tarnwell::settings
