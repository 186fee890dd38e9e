// Renames of several items as steps, some of which lead through a name for the time between.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarnwell::platform {

// The first step gives an item the name for the time between, the last one takes that from it. With
// those in between they are a circle: each takes the name that the step before it has left.
struct RenameDetour {
  std::size_t First = 0;
  std::size_t Last = 0;
};

// The detours among steps that have full paths `From` and `To`, each step as things stand when its
// turn comes.
template <typename Step>
std::vector<RenameDetour> DetoursOf(const std::vector<Step>& steps) {
  std::unordered_map<std::string_view, std::size_t> last;
  for (std::size_t at = 0; at < steps.size(); ++at) last[steps[at].From] = at;
  std::vector<RenameDetour> detours;
  for (std::size_t at = 0; at < steps.size(); ++at) {
    const auto later = last.find(steps[at].To);
    if (later != last.end() && later->second > at) detours.push_back({at, later->second});
  }
  return detours;
}

}  // namespace tarnwell::platform
