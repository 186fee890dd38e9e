#include "forms/Menu.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace tarnwell::forms {

Menu::Menu(std::span<const MenuRow> rows) {
  entries_.reserve(rows.size());
  for (const MenuRow& row : rows) {
    MenuEntry entry;
    entry.Level = row.Level;
    entry.Name = row.Name;
    entry.Caption = row.Caption;
    entry.Checkable = row.CheckMark != Tick::None;
    entry.Checked = row.CheckMark == Tick::On;
    entry.Visible = row.Visible;
    entries_.push_back(std::move(entry));
  }
}

MenuEntry& Menu::operator[](std::string_view name) {
  return const_cast<MenuEntry&>(std::as_const(*this)[name]);
}

const MenuEntry& Menu::operator[](std::string_view name) const {
  const auto found = std::ranges::find(entries_, name, &MenuEntry::Name);
  if (found == entries_.end()) throw std::out_of_range("no menu entry " + std::string(name));
  return *found;
}

MenuEntry* Menu::FindByCaption(std::string_view caption) {
  const auto found = std::ranges::find(entries_, caption, &MenuEntry::Caption);
  return found == entries_.end() ? nullptr : &*found;
}

}  // namespace tarnwell::forms
