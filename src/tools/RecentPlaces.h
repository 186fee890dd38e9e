// The addresses that were connected last, as the desktop keeps them for the user.
#pragma once

#include <string>
#include <vector>

#include "platform/UserSettings.h"

namespace tarnwell::tools {

inline constexpr std::size_t MostRecentPlaces = 12;

// Addresses as ReadPlaceAddress gives them: they hold no password.
class RecentPlaces {
 public:
  explicit RecentPlaces(platform::UserSettings& settings) : settings_(settings) {}

  // The newest first. What is kept and is no such address, since others wrote it, is left out.
  std::vector<std::string> Read() const;
  base::Status Add(const std::string& address);
  base::Status Forget(const std::string& address);

 private:
  platform::UserSettings& settings_;
};

}  // namespace tarnwell::tools
