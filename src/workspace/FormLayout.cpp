#include "workspace/FormLayout.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <utility>

#include "workspace/ArrangePanes.h"
#include "workspace/Highlight.h"
#include "workspace/PaneShares.h"

namespace tarnwell::workspace {
namespace {

// Outer width and height below which nothing is placed.
constexpr base::Twips LeastFormSize = 5000;

void PutAt(forms::Control& control, const Place& place) {
  control.Left = place.Left;
  control.Top = place.Top;
  control.Width = place.Width;
  control.Height = place.Height;
}

void MoveTo(forms::Control& control, const Place& place) {
  control.Left = place.Left;
  control.Top = place.Top;
}

FormMeasures MeasuresOf(Workspace& workspace) {
  const MainForm& form = workspace.Form;
  return {.Layout = workspace.Settings.Layout,
          .InsideWidth = form.ScaleWidth,
          .InsideHeight = form.ScaleHeight,
          .ToolbarTop = form.Toolbar1.Top,
          .ToolbarHeight = form.Toolbar1.Height,
          .TitleHeight = form.TitleBar[1].Height,
          .TitlePictureWidth = form.cmdTitle[0].Width,
          .ClosePictureWidth = form.cmdClosePane[0].Width,
          .PaneGap = workspace.PaneGap,
          .CommandStripHeight = workspace.CommandStripHeight,
          .CommandOn = form.Menus["mnuCommandOn"].Checked};
}

}  // namespace

void FormLayout::ResizeForm(bool force) {
  MainForm& form = workspace_.Form;
  tray_.FollowForm();
  isOwed_ = isOwed_ || force || workspace_.IsResizing();
  if (form.State == forms::WindowState::Minimised) return;
  form.LastWindowState = form.State;
  const bool isOwed = std::exchange(isOwed_, false);
  if (!isOwed && IsUnchanged()) {
    for (int pane = 0; pane < lister::PaneCount; ++pane) RedrawLists(pane);
    return;
  }
  // The room changes by itself, as where operations come and go: who types goes on.
  const bool isInsideAlone = !isOwed && IsSameOutside() && IsSameLayout();
  const std::string typed = form.cboCommand.Text;
  NoteChanges();
  HideControls();
  // The outer size is told when the window is shown; the inside is never larger.
  const bool fits = std::max(form.Width, form.ScaleWidth) >= LeastFormSize &&
                    std::max(form.Height, form.ScaleHeight) >= LeastFormSize;
  if (fits) Arrange();
  ShowControls();
  HighlightActiveList(workspace_, true);
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    bool& needsRedraw = workspace_.Panes[pane].NeedsRedraw;
    if (needsRedraw && RedrawLists(pane)) needsRedraw = false;
  }
  if (isInsideAlone) {
    form.cboCommand.Text = typed;
  } else {
    form.ActiveControl = KeyboardFocus::Form;
  }
  form.Touch();
}

bool FormLayout::IsUnchanged() const {
  return IsSameSize() && IsSameLayout();
}

bool FormLayout::IsSameLayout() const {
  return workspace_.Settings.Layout == workspace_.LastLayout;
}

bool FormLayout::IsSameOutside() const {
  const MainForm& form = workspace_.Form;
  return form.Width == workspace_.LastFormWidth && form.Height == workspace_.LastFormHeight;
}

// The inside can change alone, when the menu bar takes another line.
bool FormLayout::IsSameSize() const {
  const MainForm& form = workspace_.Form;
  return IsSameOutside() && form.ScaleWidth == lastInsideWidth_ &&
         form.ScaleHeight == lastInsideHeight_;
}

void FormLayout::NoteChanges() {
  const MainForm& form = workspace_.Form;
  const bool sameSize = IsSameSize();
  const bool sameLayout = IsSameLayout();
  for (PaneRecord& pane : workspace_.Panes) {
    const bool changed = !sameLayout || workspace_.CommandLineChanged;
    if (!sameSize || (pane.IsOpen() && changed)) pane.NeedsRedraw = true;
  }
  workspace_.CommandLineChanged = false;
  workspace_.LastFormWidth = form.Width;
  workspace_.LastFormHeight = form.Height;
  workspace_.LastLayout = workspace_.Settings.Layout;
  lastInsideWidth_ = form.ScaleWidth;
  lastInsideHeight_ = form.ScaleHeight;
}

void FormLayout::HideControls() {
  MainForm& form = workspace_.Form;
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    const PaneRecord& record = workspace_.Panes[pane];
    if (!record.NeedsRedraw && record.IsOpen()) continue;
    for (const lister::ListId list : {lister::FolderListOf(pane), lister::FileListOf(pane)}) {
      if (record.Initialized) workspace_.Lists[list].Visible = false;
      form.shpPlaceHolder[list].Visible = false;
      form.lblNoRoom[list].Visible = false;
    }
    form.cmdClosePane[pane].Visible = false;
    form.TitleBar[pane].Visible = false;
    form.cmdTitle[pane].Visible = false;
    form.shpBack[pane].Visible = false;
  }
  form.txtCurrentPath.Visible = false;
  form.cboCommand.Visible = false;
}

void FormLayout::Arrange() {
  try {
    Arrangement arrangement = ArrangePanes2(workspace_.Panes, MeasuresOf(workspace_));
    if (!arrangement.IsPlaced) return;
    workspace_.Area = arrangement.Area;
    // Shares that were mended can give or take the room of a pane that nobody meant to change.
    for (std::size_t i = 0; i < arrangement.Panes.size(); ++i) {
      const PaneRecord& was = workspace_.Panes[i];
      PaneRecord& pane = arrangement.Panes[i];
      if (was.FolderHasRoom != pane.FolderHasRoom || was.FileHasRoom != pane.FileHasRoom) {
        pane.NeedsRedraw = true;
      }
    }
    workspace_.Panes = arrangement.Panes;
    Apply(arrangement);
  } catch (const std::exception&) {
    messenger_.Message("A error occurred while arrange the panes.", forms::MessageKind::Ok);
  }
}

void FormLayout::Apply(const Arrangement& arrangement) {
  MainForm& form = workspace_.Form;
  form.LineHorz2.Left = arrangement.LineHorz2.Left;
  form.LineHorz2.Width = arrangement.LineHorz2.Width;
  form.LineVert2.Top = arrangement.LineVert2.Top;
  form.LineVert2.Height = arrangement.LineVert2.Height;
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    const PaneRecord& record = workspace_.Panes[pane];
    if (!record.IsOpen()) continue;
    const PanePlaces& places = arrangement.Places[pane];
    MoveTo(form.TitleBar[pane], places.Title);
    form.TitleBar[pane].Width = places.Title.Width;
    MoveTo(form.cmdTitle[pane], places.TitlePicture);
    MoveTo(form.cmdClosePane[pane], places.ClosePicture);
    PutAt(form.shpBack[pane], places.Back);
    for (const bool isFiles : {false, true}) {
      const ListPlaces& at = isFiles ? places.Files : places.Folders;
      const lister::ListId list = isFiles ? lister::FileListOf(pane) : lister::FolderListOf(pane);
      PutAt(form.shpPlaceHolder[list], at.PlaceHolder);
      PutAt(form.lblNoRoom[list], at.NoRoom);
      // A pane may be open whose set-up is still under way.
      if (record.Initialized) PutAt(workspace_.Lists[list], at.List);
    }
  }
  if (!form.Menus["mnuCommandOn"].Checked) return;
  MoveTo(form.txtCurrentPath, arrangement.CurrentPath);
  form.txtCurrentPath.Width = arrangement.CurrentPath.Width;
  MoveTo(form.cboCommand, arrangement.Command);
  form.cboCommand.Width = arrangement.Command.Width;
}

void FormLayout::ShowControls() {
  MainForm& form = workspace_.Form;
  for (int pane = 0; pane < lister::PaneCount; ++pane) {
    const PaneRecord& record = workspace_.Panes[pane];
    if (!record.NeedsRedraw || !record.IsOpen() || !record.Initialized) continue;
    form.shpBack[pane].Visible = true;
    form.cmdClosePane[pane].Visible = true;
    form.TitleBar[pane].Visible = true;
    form.cmdTitle[pane].Visible = true;
    ShowList(lister::FolderListOf(pane), record.FolderHasRoom);
    ShowList(lister::FileListOf(pane), record.FileHasRoom);
  }
  const bool commandOn = form.Menus["mnuCommandOn"].Checked;
  form.txtCurrentPath.Visible = commandOn;
  form.cboCommand.Visible = commandOn;
}

void FormLayout::ShowList(lister::ListId list, bool hasRoom) {
  if (hasRoom) workspace_.Lists[list].SetLayout(workspace_.Settings.Layout);
  workspace_.Lists[list].Visible = hasRoom;
  workspace_.Form.shpPlaceHolder[list].Visible = !hasRoom;
  workspace_.Form.lblNoRoom[list].Visible = !hasRoom;
}

bool FormLayout::RedrawLists(int pane) {
  const PaneRecord& record = workspace_.Panes[pane];
  if (!record.IsOpen() || !record.Initialized) return false;
  workspace_.Lists.Folders(pane).RedrawList();
  workspace_.Lists.Files(pane).RedrawList();
  return true;
}

void FormLayout::SwitchLayout(std::string_view word) {
  const std::int32_t wished = word == "vertical" ? Vertical : Horizontal;
  const bool isVertical = workspace_.Settings.Layout == Vertical;
  const bool same = isVertical == (wished == Vertical);
  if (!same) workspace_.Settings.Layout = wished;
  ShowLayout(workspace_);  // a click on the button of the layout in force has raised it
  if (same) return;
  if (workspace_.Form.Menus["mnuAutoExpandOn"].Checked) {
    DoAutoExpand();
  } else {
    ResizeForm(true);
  }
}

void ShowLayout(Workspace& workspace) {
  MainForm& form = workspace.Form;
  const bool isVertical = workspace.Settings.Layout == Vertical;
  form.Toolbar1["layoutvertical"].Pressed = isVertical;
  form.Toolbar1["layouthorizontal"].Pressed = !isVertical;
  form.MenuImages.SetImage(
      "&Orientation", form.ImageList1.Index(isVertical ? "layoutvertical" : "layouthorizontal"));
  form.Touch();
}

void FormLayout::DoAutoExpand() {
  for (PaneRecord& pane : workspace_.Panes) {
    if (pane.IsOpen()) pane.NeedsRedraw = true;
  }
  const int pane = lister::PaneOf(workspace_.ActiveList);
  workspace_.PreviousActivePane = static_cast<std::int16_t>(pane);
  ExpandPane(workspace_.Panes, workspace_.Settings.Layout, pane);
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

void FormLayout::TitleMouseMove(int pane) {
  if (!workspace_.Form.Menus["mnuAutoExpandOn"].Checked) return;
  workspace_.Form.MousePointer = forms::MousePointer::Arrow;
  workspace_.Form.Touch();
  if (lister::PaneOf(workspace_.ActiveList) == pane) return;
  workspace_.ActiveList = lister::FolderListOf(pane);
  DoAutoExpand();
}

}  // namespace tarnwell::workspace
