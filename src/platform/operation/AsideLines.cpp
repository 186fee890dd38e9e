#include "platform/operation/AsideLines.h"

#include <algorithm>
#include <cstddef>

namespace tarnwell::platform {

void AddSteps(std::vector<std::string>& paths, const std::vector<PlacedItem>& steps) {
  for (const PlacedItem& step : steps) paths.insert(paths.end(), {step.From, step.To});
}

void EraseSteps(std::vector<std::string>& paths, const std::vector<PlacedItem>& steps) {
  std::vector<std::string> erased;
  AddSteps(erased, steps);
  const auto found = std::search(paths.begin(), paths.end(), erased.begin(), erased.end());
  if (erased.empty() || found == paths.end()) return;
  paths.erase(found, found + static_cast<std::ptrdiff_t>(erased.size()));
}

}  // namespace tarnwell::platform
