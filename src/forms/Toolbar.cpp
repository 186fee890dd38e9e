#include "forms/Toolbar.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tarnwell::forms {

Toolbar::Toolbar(std::span<const ToolbarRow> rows) {
  buttons_.reserve(rows.size());
  for (const ToolbarRow& row : rows) {
    ToolbarButton button;
    button.Key = row.Key;
    button.Style = row.Style;
    button.ToolTip = row.ToolTip;
    buttons_.push_back(std::move(button));
  }
}

ToolbarButton& Toolbar::operator[](std::string_view key) {
  return const_cast<ToolbarButton&>(std::as_const(*this)[key]);
}

const ToolbarButton& Toolbar::operator[](std::string_view key) const {
  const auto found = std::ranges::find(buttons_, key, &ToolbarButton::Key);
  if (found == buttons_.end()) throw std::out_of_range("no toolbar button " + std::string(key));
  return *found;
}

}  // namespace tarnwell::forms
