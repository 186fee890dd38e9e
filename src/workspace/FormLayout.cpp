#include "workspace/FormLayout.h"

#include <algorithm>
#include <cstddef>

#include "workspace/ArrangePanes.h"
#include "workspace/Highlight.h"

namespace tarnwell::workspace {
namespace {

// Share of the active pane under auto expand, and what the other open panes divide.
constexpr float ActiveWidth = 0.8F;
constexpr float OthersWidth = 0.2F;
constexpr float ActiveHeight = 0.7F;
constexpr float OthersHeight = 0.3F;

void PutAt(forms::Control& control, const Place& place) {
  control.Left = place.Left;
  control.Top = place.Top;
  control.Width = place.Width;
  control.Height = place.Height;
}

}  // namespace

void FormLayout::ResizeForm(bool force) {
  MainForm& form = workspace_.Form;
  if (form.State == forms::WindowState::Minimised) return;
  form.LastWindowState = form.State;
  const bool changed = form.ScaleWidth != lastWidth_ || form.ScaleHeight != lastHeight_ ||
                       workspace_.Settings.Layout != lastLayout_;
  if (!force && !changed) {
    for (int pane = 0; pane < lister::PaneCount; ++pane) {
      const PaneRecord& record = workspace_.Panes[static_cast<std::size_t>(pane)];
      if (!record.IsOpen() || !record.Initialized) continue;
      workspace_.Lists.Folders(pane).RedrawList();
      workspace_.Lists.Files(pane).RedrawList();
    }
    return;
  }
  lastWidth_ = form.ScaleWidth;
  lastHeight_ = form.ScaleHeight;
  lastLayout_ = workspace_.Settings.Layout;
  PlaceControls();
  HighlightActiveList(workspace_, true);
  form.Touch();
}

void FormLayout::PlaceControls() {
  MainForm& form = workspace_.Form;
  workspace_.AreaWidth = form.ScaleWidth;
  const ArrangeMeasures measures{
      .Layout = workspace_.Settings.Layout == Vertical ? Vertical : Horizontal,
      .InsideWidth = form.ScaleWidth,
      .InsideHeight = form.ScaleHeight,
      .ToolbarBottom = form.Toolbar1.Top + form.Toolbar1.Height,
      .TitleHeight = form.cmdClosePane[0].Height,
      .TitlePictureWidth = form.cmdClosePane[0].Width,
      .PaneGap = workspace_.PaneGap};
  const auto places = ArrangePanes(workspace_.Panes, measures);
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    const auto i = static_cast<std::size_t>(pane);
    PaneRecord& record = workspace_.Panes[i];
    // A pane whose set-up failed half-way is shown with what it has.
    const bool shown = record.IsOpen() && record.Initialized;
    record.NeedsRedraw = false;
    form.shpBack[i].Visible = shown;
    form.TitleBar[i].Visible = shown;
    form.cmdTitle[i].Visible = shown;
    form.cmdClosePane[i].Visible = shown;
    if (record.Initialized) {
      workspace_.Lists.Folders(pane).Visible = shown;
      workspace_.Lists.Files(pane).Visible = shown;
    }
    if (!shown) continue;
    // Controls that are not shown keep their places: the measures of every title are taken from
    // one.
    PutAt(form.shpBack[i], places[i].Back);
    PutAt(form.TitleBar[i], places[i].Title);
    PutAt(form.cmdTitle[i], places[i].TitlePicture);
    PutAt(form.cmdClosePane[i], places[i].ClosePicture);
    lister::ListerControl& folders = workspace_.Lists.Folders(pane);
    lister::ListerControl& files = workspace_.Lists.Files(pane);
    PutAt(folders, places[i].FolderList);
    PutAt(files, places[i].FileList);
    record.FolderListWidth = folders.Width;
    record.FolderListHeight = folders.Height;
    record.FileListWidth = files.Width;
    record.FileListHeight = files.Height;
    record.Left = places[i].Back.Left;
    record.Top = places[i].Back.Top;
    if (measures.Layout == Vertical) record.Width = places[i].Back.Width;
    if (measures.Layout == Horizontal) record.HeightH = places[i].Back.Height;
    folders.SetLayout(workspace_.Settings.Layout);
    files.SetLayout(workspace_.Settings.Layout);
  }
}

void FormLayout::DoAutoExpand() {
  const int active = lister::PaneOf(workspace_.ActiveList);
  const int open = workspace_.OpenPaneCount;
  const bool vertical = workspace_.Settings.Layout == Vertical;
  const float most = vertical ? ActiveWidth : ActiveHeight;
  const float rest = vertical ? OthersWidth : OthersHeight;
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    PaneRecord& record = workspace_.Panes[static_cast<std::size_t>(pane)];
    if (!record.IsOpen()) continue;
    record.NeedsRedraw = true;
    float& share = vertical ? record.PercentWidth : record.PercentHeightH;
    if (pane != active) {
      share = rest / static_cast<float>(std::max(open - 1, 1));
    } else {
      share = open == 1 ? 1.0F : most;
    }
  }
  ResizeForm(true);
}

void FormLayout::SwitchAutoExpand(bool turnOn) {
  forms::Menu& menus = workspace_.Form.Menus;
  if (turnOn && menus["mnuAutoExpandOn"].Checked) return;
  if (!turnOn && menus["mnuAutoExpandOff"].Checked) return;
  workspace_.Form.Toolbar1["layoutautoexpand"].Pressed = turnOn;
  menus["mnuAutoExpandOn"].Checked = turnOn;
  menus["mnuAutoExpandOff"].Checked = !turnOn;
  workspace_.Form.Touch();
  if (turnOn) DoAutoExpand();
}

}  // namespace tarnwell::workspace
