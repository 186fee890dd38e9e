#include "workspace/PaneShares.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tarnwell::workspace {
namespace {

// Shares that miss the whole by less came about by rounding.
constexpr double RoundingSlack = 0.001;

// What auto expand gives the active pane; the others divide the rest.
constexpr float ActiveWidth = 0.8F;
constexpr float OthersWidth = 0.2F;
constexpr float ActiveHeight = 0.7F;
constexpr float OthersHeight = 0.3F;

int CountOpen(const PaneRecords& panes) {
  return static_cast<int>(std::ranges::count_if(panes, &PaneRecord::IsOpen));
}

void MendShares(PaneRecords& panes, float PaneRecord::*share) {
  const auto equal = 1.0F / static_cast<float>(std::max(CountOpen(panes), 1));
  double sum = 0;
  for (PaneRecord& pane : panes) {
    if (!pane.IsOpen()) continue;
    const bool usable = pane.*share > 0 && pane.*share <= 1 + RoundingSlack;  // no number is not
    if (!usable) pane.*share = equal;
    sum += pane.*share;
  }
  if (std::abs(sum - 1) <= RoundingSlack) return;
  for (PaneRecord& pane : panes) {
    if (pane.IsOpen()) pane.*share = static_cast<float>(pane.*share / sum);
  }
}

void MendControlGroups(PaneRecords& panes) {
  PerPane<bool> taken;
  bool usable = true;
  for (const PaneRecord& pane : panes) {
    if (!pane.IsOpen()) continue;
    const auto group = static_cast<std::size_t>(pane.ControlGroup);
    usable = usable && group < panes.size() && panes[group].IsOpen() && !taken[group];
    if (usable) taken[group] = true;
  }
  if (usable) return;
  for (std::size_t i = 0; i < panes.size(); ++i) {
    panes[i].ControlGroup = static_cast<std::int16_t>(i);
  }
}

}  // namespace

void SanitizeRecords(PaneRecords& panes, std::int32_t layout) {
  MendShares(panes, ShareField(layout));
  base::Twips PaneRecord::*const split =
      layout == Vertical ? &PaneRecord::Height : &PaneRecord::WidthH;
  for (PaneRecord& pane : panes) {
    if (pane.IsOpen() && pane.*split < SplitGrid) {
      pane.*split = layout == Vertical ? DefaultHeight : DefaultWidthH;
    }
  }
  MendControlGroups(panes);
}

PerPane<double> ShownShares(const PaneRecords& panes, std::int32_t layout, double least) {
  float PaneRecord::*const share = ShareField(layout);
  PerPane<double> shares;
  PerPane<bool> isRaised;
  int raised = 0;
  // Each pane that is raised takes from the others, which may bring one of them too low in turn.
  for (bool again = true; again;) {
    again = false;
    double rest = 0;  // shares of the panes that are not raised
    for (std::size_t i = 0; i < panes.size(); ++i) {
      if (panes[i].IsOpen() && !isRaised[i]) rest += panes[i].*share;
    }
    const double factor = raised == 0 || rest <= 0 ? 1 : (1 - raised * least) / rest;
    for (std::size_t i = 0; i < panes.size(); ++i) {
      if (!panes[i].IsOpen() || isRaised[i]) continue;
      shares[i] = panes[i].*share * factor;
      if (shares[i] >= least) continue;
      shares[i] = least;
      isRaised[i] = true;
      ++raised;
      again = true;
    }
  }
  return shares;
}

void ExpandPane(PaneRecords& panes, std::int32_t layout, int active) {
  const int open = CountOpen(panes);
  const float most = layout == Vertical ? ActiveWidth : ActiveHeight;
  const float rest = layout == Vertical ? OthersWidth : OthersHeight;
  for (std::size_t i = 0; i < panes.size(); ++i) {
    if (!panes[i].IsOpen()) continue;
    float& share = panes[i].*ShareField(layout);
    if (static_cast<int>(i) != active) {
      share = rest / static_cast<float>(std::max(open - 1, 1));
    } else {
      share = open == 1 ? 1.0F : most;
    }
  }
}

}  // namespace tarnwell::workspace
