#include "tools/RecentPlaces.h"

#include <algorithm>

#include "tools/PlaceAddress.h"

namespace tarnwell::tools {
namespace {

constexpr const char* recentSection = "Network Places";
constexpr const char* recentName = "Recent";

std::vector<std::string> AllSchemes() {
  std::vector<std::string> schemes;
  for (const PlaceKind& kind : PlaceKinds()) schemes.emplace_back(kind.Scheme);
  return schemes;
}

}  // namespace

std::vector<std::string> RecentPlaces::Read() const {
  std::vector<std::string> addresses;
  for (const std::string& kept : settings_.ReadTexts(recentSection, recentName)) {
    const ReadAddress read = ReadPlaceAddress(kept, "", AllSchemes());
    if (addresses.size() == MostRecentPlaces) break;
    if (read.Trouble.empty() && std::ranges::count(addresses, read.Address) == 0) {
      addresses.push_back(read.Address);
    }
  }
  return addresses;
}

base::Status RecentPlaces::Add(const std::string& address) {
  std::vector<std::string> addresses = Read();
  std::erase(addresses, address);
  addresses.insert(addresses.begin(), address);
  if (addresses.size() > MostRecentPlaces) addresses.resize(MostRecentPlaces);
  return settings_.WriteTexts(recentSection, recentName, addresses);
}

base::Status RecentPlaces::Forget(const std::string& address) {
  std::vector<std::string> addresses = Read();
  std::erase(addresses, address);
  return settings_.WriteTexts(recentSection, recentName, addresses);
}

}  // namespace tarnwell::tools
