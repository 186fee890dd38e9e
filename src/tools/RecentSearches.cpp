#include "tools/RecentSearches.h"

#include <algorithm>
#include <optional>
#include <string>

namespace tarnwell::tools {
namespace {

constexpr const char* searchSection = "Find Files";
constexpr const char* searchName = "Recent";

}  // namespace

std::vector<FindSettings> RecentSearches::Read() const {
  std::vector<FindSettings> searches;
  for (const std::string& kept : settings_.ReadTexts(searchSection, searchName)) {
    if (searches.size() == MostRecentSearches) break;
    const std::optional<FindSettings> read = ReadFindSettings(kept);
    if (read && !read->Folder.empty() && std::ranges::count(searches, *read) == 0) {
      searches.push_back(*read);
    }
  }
  return searches;
}

base::Status RecentSearches::Add(const FindSettings& search) {
  std::vector<FindSettings> searches = Read();
  std::erase(searches, search);
  searches.insert(searches.begin(), search);
  if (searches.size() > MostRecentSearches) searches.resize(MostRecentSearches);
  std::vector<std::string> lines;
  lines.reserve(searches.size());
  for (const FindSettings& each : searches) lines.push_back(WriteFindSettings(each));
  return settings_.WriteTexts(searchSection, searchName, lines);
}

base::Status RecentSearches::ForgetAll() {
  return settings_.WriteTexts(searchSection, searchName, {});
}

}  // namespace tarnwell::tools
