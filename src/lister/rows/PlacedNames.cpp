#include "lister/rows/PlacedNames.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace tarnwell::lister {
namespace {

bool Holds(const std::unordered_set<std::string>& names, std::string_view name) {
  return !names.empty() && names.contains(std::string(name));
}

}  // namespace

PlacedNames NamesIn(const std::string& folder, const std::vector<platform::PlacedItem>& placed,
                    const base::PathSyntax& syntax) {
  PlacedNames names;
  const auto add = [&](const std::string& path, std::unordered_set<std::string>& to) {
    if (!path.empty() && syntax.Same(syntax.ParentOf(path), folder)) {
      to.emplace(syntax.LastComponent(path));
    }
  };
  for (const platform::PlacedItem& item : placed) {
    add(item.To, names.Placed);
    add(item.From, names.Sources);
  }
  return names;
}

std::vector<std::string> MissingNames(const FileRows& rows, const PlacedNames& names) {
  std::unordered_set<std::string> missing = names.Placed;
  for (const RowId row : rows.All()) {
    if (missing.empty()) break;
    missing.erase(std::string(rows.Name(row)));
  }
  return {missing.begin(), missing.end()};
}

std::vector<RowId> RowsOf(const FileRows& rows, const PlacedNames& names) {
  std::vector<RowId> found;
  std::ranges::copy_if(rows.Order(), std::back_inserter(found),
                       [&](RowId row) { return Holds(names.Placed, rows.Name(row)); });
  return found;
}

bool MaySelect(const FileRows& rows, const PlacedNames& names, RowId current) {
  return rows.SelectedCount() == 0 || std::ranges::all_of(rows.Order(), [&](RowId row) {
           const std::string_view name = rows.Name(row);
           return !rows.Row(row).IsSelected || row == current || Holds(names.Placed, name) ||
                  Holds(names.Sources, name);
         });
}

}  // namespace tarnwell::lister
