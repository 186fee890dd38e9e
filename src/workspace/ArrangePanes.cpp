#include "workspace/ArrangePanes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tarnwell::workspace {
namespace {

// No list gets less than this of its pane, whatever the split says.
constexpr base::Twips LeastListSize = 1200;

// A pane with less could not be told from a closed one.
constexpr double LeastShare = 0.01;

// An open pane without a sensible share gets an equal one, so that none is out of reach.
double Share(const PaneRecord& pane, std::int32_t layout, int openPanes) {
  const double share = layout == Vertical ? pane.PercentWidth : pane.PercentHeightH;
  return std::isfinite(share) && share >= LeastShare ? std::min(share, 1.0) : 1.0 / openPanes;
}

base::Twips Split(base::Twips wished, base::Twips room) {
  const base::Twips most = std::max(room - LeastListSize, room / 2);
  return std::clamp(wished, std::min(LeastListSize, room / 2), most);
}

void FillPane(PanePlaces& places, const PaneRecord& pane, const ArrangeMeasures& m) {
  const Place& back = places.Back;
  const base::Twips titleWidth = std::max(back.Width - 2 * m.TitlePictureWidth, 0);
  places.Title = {back.Left, back.Top, titleWidth, m.TitleHeight};
  places.TitlePicture = {back.Left + titleWidth, back.Top, m.TitlePictureWidth, m.TitleHeight};
  places.ClosePicture = {places.TitlePicture.Left + m.TitlePictureWidth, back.Top,
                         m.TitlePictureWidth, m.TitleHeight};
  const base::Twips top = back.Top + m.TitleHeight;
  const base::Twips height = std::max(back.Height - m.TitleHeight, 0);
  if (m.Layout == Vertical) {
    const base::Twips split = Split(pane.Height, height);
    places.FolderList = {back.Left, top, back.Width, std::max(split - m.PaneGap, 0)};
    places.FileList = {back.Left, top + split, back.Width, height - split};
  } else {
    const base::Twips split = Split(pane.WidthH, back.Width);
    places.FolderList = {back.Left, top, std::max(split - m.PaneGap, 0), height};
    places.FileList = {back.Left + split, top, back.Width - split, height};
  }
}

}  // namespace

std::array<PanePlaces, lister::PaneCount> ArrangePanes(const PaneRecords& panes,
                                                       const ArrangeMeasures& m) {
  std::array<PanePlaces, lister::PaneCount> places{};
  const auto open = static_cast<int>(std::ranges::count_if(panes, &PaneRecord::IsOpen));
  if (open == 0) return places;
  double sum = 0;
  for (const PaneRecord& pane : panes) {
    if (pane.IsOpen()) sum += Share(pane, m.Layout, open);
  }

  const base::Twips gap = m.PaneGap;
  const base::Twips top = m.ToolbarBottom + gap;
  const base::Twips width = std::max(m.InsideWidth - 2 * gap, 0);
  const base::Twips height = std::max(m.InsideHeight - top - gap, 0);
  const base::Twips whole = m.Layout == Vertical ? width : height;
  const double room = std::max(whole - (open - 1) * gap, 0);
  double before = 0;  // share of the panes already placed
  int index = 0;
  for (std::size_t i = 0; i < panes.size(); ++i) {
    if (!panes[i].IsOpen()) continue;
    const double share = Share(panes[i], m.Layout, open) / sum;
    // Edges are rounded, not sizes, so that the panes fill the form to its last twip.
    const base::Twips from = base::RoundToTwips(before * room) + index * gap;
    before += share;
    const base::Twips to = base::RoundToTwips(before * room) + index * gap;
    ++index;
    places[i].Back = m.Layout == Vertical ? Place{gap + from, top, to - from, height}
                                          : Place{gap, top + from, width, to - from};
    FillPane(places[i], panes[i], m);
  }
  return places;
}

}  // namespace tarnwell::workspace
