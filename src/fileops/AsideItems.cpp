#include "fileops/AsideItems.h"

#include <algorithm>
#include <utility>

#include "base/ItemList.h"
#include "base/Text.h"
#include "platform/RenameDetours.h"

namespace tarnwell::fileops {

AsideItems::AsideItems(platform::FileSystem& files, std::string_view record) : files_(files) {
  Steps steps;
  const base::ItemList list(record);
  for (auto path = list.begin(); path != list.end(); ++path) {
    std::string from(*path);
    ++path;
    if ((*path).empty()) break;
    steps.push_back({std::move(from), std::string(*path)});
  }
  std::vector<std::size_t> last(steps.size());
  for (std::size_t at = 0; at < steps.size(); ++at) last[at] = at;
  for (const platform::RenameDetour& detour : platform::DetoursOf(steps))
    last[detour.First] = detour.Last;
  for (std::size_t at = 0; at < steps.size(); at = last[at] + 1) {
    const auto first = steps.begin() + static_cast<std::ptrdiff_t>(at);
    Take({first, first + static_cast<std::ptrdiff_t>(last[at] - at + 1)});
  }
}

void AsideItems::Take(const Steps& steps) {
  const platform::PlacedItem& item = steps.front();
  if (files_.Exists(item.To)) {
    found_.push_back(item);
    Steps way = WayBack(steps);
    if (!way.empty()) ways_.push_back(std::move(way));
  } else if (!files_.FolderExists(files_.Syntax().ParentOf(item.To))) {
    for (const platform::PlacedItem& step : steps) {
      base::ItemList::Add(away_, step.From);
      base::ItemList::Add(away_, step.To);
    }
  }
}

// While a circle is under way one of its names is free: that which the last step has left.
AsideItems::Steps AsideItems::WayBack(const Steps& steps) const {
  const auto isFree = [this](const platform::PlacedItem& step) {
    return !files_.Exists(step.From);
  };
  const auto left = std::ranges::find_if(steps, isFree);
  if (left == steps.end()) return {};
  const bool isOnlyOne = std::find_if(left + 1, steps.end(), isFree) == steps.end();
  if (left != steps.begin() && !isOnlyOne) return {};
  Steps way(steps.begin(), left + 1);
  std::ranges::reverse(way);
  return way;
}

std::vector<std::string> AsideItems::GoBack() {
  std::vector<std::string> lines;
  for (const Steps& way : std::exchange(ways_, {})) {
    for (const platform::PlacedItem& step : way) {
      const base::Status status = files_.Rename(step.To, step.From);
      if (status) continue;
      lines.push_back(base::ForDisplay(step.To) + ": " + status.Reason);
      break;
    }
  }
  return lines;
}

}  // namespace tarnwell::fileops
