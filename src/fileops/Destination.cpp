#include "fileops/Destination.h"

#include <algorithm>

namespace tarnwell::fileops {

std::string WholeDestination(std::string_view typed, const std::string& folder,
                             const std::string& home, const base::PathSyntax& syntax) {
  if (syntax.IsWhole(typed)) return std::string(typed);
  const bool isHome = !home.empty() && typed.starts_with('~') &&
                      (typed.size() == 1 || typed[1] == syntax.Separator);
  std::string whole = isHome ? home : folder;
  if (isHome) typed.remove_prefix(1);
  while (!typed.empty()) {
    const std::size_t end = std::min(typed.find(syntax.Separator), typed.size());
    const std::string_view name = typed.substr(0, end);
    if (name == "..") {
      whole = syntax.ParentOf(whole);
    } else if (!name.empty() && name != ".") {
      whole = syntax.Join(whole, name);
    }
    typed.remove_prefix(std::min(end + 1, typed.size()));
  }
  return whole;
}

}  // namespace tarnwell::fileops
