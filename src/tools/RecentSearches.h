// The searches that were begun last, with all their settings, as the desktop keeps them for the
// user.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/UserSettings.h"
#include "tools/FindSettings.h"

namespace tarnwell::tools {

inline constexpr std::size_t MostRecentSearches = 20;

class RecentSearches {
 public:
  explicit RecentSearches(platform::UserSettings& settings) : settings_(settings) {}

  // The newest first. What is kept and is no search, since others wrote it, is left out.
  std::vector<FindSettings> Read() const;
  base::Status Add(const FindSettings& search);
  base::Status ForgetAll();

 private:
  platform::UserSettings& settings_;
};

}  // namespace tarnwell::tools
