#include "workspace/Splitters.h"

#include <cmath>

namespace tarnwell::workspace {
namespace {

using base::Twips;

// What a drag leaves of either pane, or of either list of a pane.
constexpr float MinPaneWidth = 800;
constexpr float MinPaneHeight = 400;
constexpr float MinSplitWidth = 800;
constexpr float MinSplitHeight = 600;

// Bars move in steps, so that they are moved seldom.
float OnGrid(float way) {
  return std::nearbyint(way / SplitGrid) * SplitGrid;
}

void Show(forms::Shape& bar, Twips left, Twips top) {
  bar.Left = left;
  bar.Top = top;
  bar.Visible = true;
}

// The fields that a drag changes, by layout.
struct PaneFields {
  Twips PaneRecord::*Size;
  Twips PaneRecord::*Origin;
  float PaneRecord::*Share;
  Twips PaneRecord::*Split;
};

PaneFields FieldsOf(bool isVertical) {
  return isVertical ? PaneFields{&PaneRecord::Width, &PaneRecord::Left, &PaneRecord::PercentWidth,
                                 &PaneRecord::Height}
                    : PaneFields{&PaneRecord::HeightH, &PaneRecord::Top,
                                 &PaneRecord::PercentHeightH, &PaneRecord::WidthH};
}

}  // namespace

bool Splitters::IsVertical() const {
  return workspace_.Settings.Layout == Vertical;
}

bool Splitters::IsBetweenPanes() const {
  return workspace_.MouseZone == MouseZone::ResizeWEVertical ||
         workspace_.MouseZone == MouseZone::ResizeNSHorizontal;
}

PaneRecord& Splitters::Pane(std::int16_t pane) {
  return workspace_.Panes[pane];
}

std::optional<Place> Splitters::FolderListPlace(std::int16_t pane) const {
  const PaneRecord& record = workspace_.Panes[pane];
  if (!record.IsOpen() || !record.Initialized) return std::nullopt;
  const lister::ListerControl& list = workspace_.Lists.Folders(pane);
  return Place{list.Left, list.Top, list.Width, list.Height};
}

void Splitters::MouseMove(float x, float y) {
  if (workspace_.IsResizing()) {
    const bool isWestEast = workspace_.ResizeAction == ResizingWestEast;
    Follow(isWestEast ? x - workspace_.Drag.DragStartX : y - workspace_.Drag.DragStartY);
  } else if (workspace_.ResizeAction.empty()) {
    Search(x, y);
  }
}

void Splitters::Search(float x, float y) {
  ZoneSearch search{.Layout = IsVertical() ? Vertical : Horizontal,
                    .LastOpenPane = workspace_.Area.LastOpenPane,
                    .ListsTop = workspace_.Area.ListsTop,
                    .PaneGap = workspace_.PaneGap};
  for (std::int16_t pane = 0; pane < lister::PaneCount; ++pane) {
    search.FolderLists[pane] = FolderListPlace(pane);
  }
  const ZoneHit hit = FindZone(search, x, y);
  workspace_.MouseZone = hit.Zone;
  if (hit.Pane >= 0) workspace_.Drag.ZonePane = hit.Pane;
  if (workspace_.Form.MousePointer == hit.Pointer) return;
  workspace_.Form.MousePointer = hit.Pointer;
  workspace_.Form.Touch();
}

void Splitters::MouseDown(float x, float y) {
  if (workspace_.MouseZone == MouseZone::Nowhere || !workspace_.ResizeAction.empty()) return;
  SplitterDrag& drag = workspace_.Drag;
  if (IsBetweenPanes() && !FindPanesBeside(IsVertical() ? x : y)) return;
  const std::int16_t pane = IsBetweenPanes() ? drag.DragPaneBefore : drag.ZonePane;
  const std::optional<Place> list = FolderListPlace(pane);
  if (!list) return;
  drag.DragStartX = x;
  drag.DragStartY = y;
  if (IsBetweenPanes()) {
    const PaneFields fields = FieldsOf(IsVertical());
    drag.OriginAfter = static_cast<float>(Pane(drag.DragPaneAfter).*fields.Origin);
    drag.OriginBefore = static_cast<float>(Pane(drag.DragPaneBefore).*fields.Origin);
    drag.SizeAfter = static_cast<float>(Pane(drag.DragPaneAfter).*fields.Size);
    drag.SizeBefore = static_cast<float>(Pane(drag.DragPaneBefore).*fields.Size);
  } else {
    drag.SplitStart = static_cast<float>(Pane(pane).*FieldsOf(IsVertical()).Split);
  }
  ShowBars(*list, Pane(pane));
}

// The open panes on either side of the place. False when there are none.
bool Splitters::FindPanesBeside(float place) {
  SplitterDrag& drag = workspace_.Drag;
  drag.DragPaneBefore = drag.DragPaneAfter = -1;
  for (std::int16_t pane = 0; pane < lister::PaneCount; ++pane) {
    const std::optional<Place> list = FolderListPlace(pane);
    if (!list) continue;
    const Twips edge = IsVertical() ? list->Left : list->Top;
    if (drag.DragPaneBefore >= 0 && static_cast<float>(edge) > place) {
      drag.DragPaneAfter = pane;
      return true;
    }
    drag.DragPaneBefore = pane;
  }
  return false;
}

// The bar over the pane or the whole form, and a second one behind it that marks its place from
// edge to edge.
void Splitters::ShowBars(const Place& list, const PaneRecord& pane) {
  MainForm& form = workspace_.Form;
  const Twips gap = workspace_.PaneGap;
  const WorkArea& area = workspace_.Area;
  const bool isAcross = IsVertical() == IsBetweenPanes();  // the bar stands upright
  if (isAcross) {
    const Twips left = list.Right() + gap / 2 - form.LineVert.Width / 2;
    Show(form.LineVert, left, IsBetweenPanes() ? area.TitleTop : list.Top - gap);
    form.LineVert.Height = IsBetweenPanes() ? form.ScaleHeight - area.CommandGap - area.TitleTop
                                            : list.Height + 2 * gap;
    Show(form.LineVert2, left, form.LineVert2.Top);
    workspace_.Drag.BarStartLeft = static_cast<float>(left);
    workspace_.ResizeAction = ResizingWestEast;
  } else {
    const Twips top = list.Bottom() + gap / 2 - form.LineHorz.Height / 2;
    // A settings file may hold any measure, and it stands until the pane is first placed.
    Show(form.LineHorz, IsBetweenPanes() ? 0 : base::RoundToTwips(pane.Left - 1.0 * gap), top);
    form.LineHorz.Width =
        IsBetweenPanes() ? form.Width : base::RoundToTwips(pane.Width + 2.0 * gap);
    Show(form.LineHorz2, form.LineHorz2.Left, top);
    workspace_.Drag.BarStartTop = static_cast<float>(top);
    workspace_.ResizeAction = ResizingNorthSouth;
  }
  form.Touch();
}

// The pointer is `way` from where the button went down. Past a limit the bars stay where they are.
void Splitters::Follow(float way) {
  const SplitterDrag& drag = workspace_.Drag;
  const PaneFields fields = FieldsOf(IsVertical());
  const float steps = OnGrid(way);
  if (IsBetweenPanes()) {
    const float least = IsVertical() ? MinPaneWidth : MinPaneHeight;
    if (!(drag.SizeAfter - way >= least && drag.SizeBefore + way >= least)) return;
    Pane(drag.DragPaneAfter).*fields.Origin = base::RoundToTwips(steps + drag.OriginAfter);
    Pane(drag.DragPaneAfter).*fields.Size = base::RoundToTwips(drag.SizeAfter - steps);
    Pane(drag.DragPaneBefore).*fields.Size = base::RoundToTwips(steps + drag.SizeBefore);
  } else {
    const Twips room = IsVertical() ? workspace_.Area.ColumnHeight : workspace_.Area.AreaWidth;
    const float least = IsVertical() ? MinSplitHeight : MinSplitWidth;
    const float split = steps + drag.SplitStart;
    if (!(split >= least && static_cast<float>(room) - split >= least)) return;
    Pane(drag.ZonePane).*fields.Split = base::RoundToTwips(split);
  }
  MainForm& form = workspace_.Form;
  if (workspace_.ResizeAction == ResizingWestEast) {
    form.LineVert.Left = form.LineVert2.Left = base::RoundToTwips(steps + drag.BarStartLeft);
  } else {
    form.LineHorz.Top = form.LineHorz2.Top = base::RoundToTwips(steps + drag.BarStartTop);
  }
  form.Touch();
}

void Splitters::MouseUp() {
  host_.SetScreenPointer(forms::MousePointer::Default);
  if (!workspace_.IsResizing()) return;
  HideBars();
  TakeMeasures();
  // The word still stands, so that the form does not pass for unchanged.
  layout_.ResizeForm(false);
  workspace_.ResizeAction.clear();
}

void Splitters::TakeMeasures() {
  const SplitterDrag& drag = workspace_.Drag;
  const PaneFields fields = FieldsOf(IsVertical());
  if (!IsBetweenPanes()) {
    PaneRecord& pane = Pane(drag.ZonePane);
    if (static_cast<float>(pane.*fields.Split) != drag.SplitStart) pane.NeedsRedraw = true;
    return;
  }
  PaneRecord& before = Pane(drag.DragPaneBefore);
  PaneRecord& after = Pane(drag.DragPaneAfter);
  if (static_cast<float>(before.*fields.Size) == drag.SizeBefore &&
      static_cast<float>(after.*fields.Size) == drag.SizeAfter) {
    return;
  }
  const Twips room = IsVertical() ? workspace_.Area.AreaWidth : workspace_.Area.RowsHeight;
  for (PaneRecord* const pane : {&before, &after}) {
    pane->*fields.Share = static_cast<float>(pane->*fields.Size) / static_cast<float>(room);
    pane->NeedsRedraw = true;
  }
}

bool Splitters::GiveUp() {
  if (!workspace_.IsResizing()) return false;
  const SplitterDrag& drag = workspace_.Drag;
  const PaneFields fields = FieldsOf(IsVertical());
  if (IsBetweenPanes()) {
    Pane(drag.DragPaneAfter).*fields.Origin = base::RoundToTwips(drag.OriginAfter);
    Pane(drag.DragPaneAfter).*fields.Size = base::RoundToTwips(drag.SizeAfter);
    Pane(drag.DragPaneBefore).*fields.Size = base::RoundToTwips(drag.SizeBefore);
  } else {
    Pane(drag.ZonePane).*fields.Split = base::RoundToTwips(drag.SplitStart);
  }
  HideBars();
  workspace_.ResizeAction.clear();
  workspace_.MouseZone = MouseZone::Nowhere;
  workspace_.Form.MousePointer = forms::MousePointer::Arrow;
  return true;
}

void Splitters::HideBars() {
  MainForm& form = workspace_.Form;
  for (forms::Shape* const bar :
       {&form.LineVert, &form.LineVert2, &form.LineHorz, &form.LineHorz2}) {
    bar->Visible = false;
  }
  form.Touch();
}

}  // namespace tarnwell::workspace
