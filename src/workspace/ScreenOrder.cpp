#include "workspace/ScreenOrder.h"

#include <algorithm>

namespace tarnwell::workspace {

std::vector<int> PanesAfter(const PaneRecords& panes, int pane) {
  std::vector<int> order;
  for (const PaneRecord& place : panes) {
    if (place.IsOpen()) order.push_back(place.ControlGroup);
  }
  const auto at = std::ranges::find(order, pane);
  if (at == order.end()) return order;
  std::rotate(order.begin(), at, order.end());
  order.erase(order.begin());
  return order;
}

}  // namespace tarnwell::workspace
