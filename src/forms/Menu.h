// The state of a menu bar: a tree of entries laid down as a table.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwell::forms {

// Whether an entry carries a check mark, and how it starts.
enum class Tick { None, Off, On };

// One row of a menu table. The rows stand in the order of the menu; a row of level n + 1 belongs to
// the nearest row of level n above it. The caption "-" is a separator; "&" marks the access key.
struct MenuRow {
  int Level;
  std::string_view Name;
  std::string_view Caption;
  Tick CheckMark = Tick::None;
  bool Visible = true;
};

struct MenuEntry {
  int Level = 1;
  std::string Name;
  std::string Caption;
  bool Checkable = false;
  bool Checked = false;
  bool Visible = true;
  int Image = -1;  // position in the image list, counted from 0; -1 for none

  bool IsSeparator() const { return Caption == "-"; }
};

class Menu {
 public:
  explicit Menu(std::span<const MenuRow> rows);

  // The entry of that name. Throws std::out_of_range if there is none.
  MenuEntry& operator[](std::string_view name);
  const MenuEntry& operator[](std::string_view name) const;
  // The first entry with exactly that caption, or null.
  MenuEntry* FindByCaption(std::string_view caption);

  const std::vector<MenuEntry>& Entries() const { return entries_; }

 private:
  std::vector<MenuEntry> entries_;
};

}  // namespace tarnwell::forms
