// The state of the controls of a form, as plain data. Nothing here knows a widget.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/Colour.h"
#include "base/Measure.h"

namespace tarnwell::forms {

// What every control has: its place in twips within its form, and whether it is seen and usable.
struct Control {
  base::Twips Left = 0;
  base::Twips Top = 0;
  base::Twips Width = 0;
  base::Twips Height = 0;
  bool Visible = true;
  bool Enabled = true;
};

struct Label : Control {
  std::string Caption;
  base::Colour BackColour = base::White;
  base::Colour ForeColour = base::Black;
};

struct TextBox : Control {
  std::string Text;
  base::Colour BackColour = base::White;
  base::Colour ForeColour = base::Black;
};

struct ComboBox : TextBox {};

struct Button : Control {
  std::string Caption;
  std::string ToolTip;
  bool Default = false;  // Enter presses it
};

struct CheckBox : Control {
  std::string Caption;
  bool Checked = false;
};

// One of a group of which one is selected.
struct OptionButton : Control {
  std::string Caption;
  bool Selected = false;
};

// Holds other controls under a caption.
struct Frame : Control {
  std::string Caption;
};

struct Picture : Control {
  base::Colour BackColour = base::White;
};

// A list of texts of which one may be chosen.
struct ListBox : Control {
  std::vector<std::string> Items;
  int ListIndex = -1;  // the chosen one's place; -1 where none is

  // The chosen text; empty where none is.
  std::string Text() const {
    return ListIndex < 0 ? std::string() : Items[static_cast<std::size_t>(ListIndex)];
  }
  void Clear() {
    Items.clear();
    ListIndex = -1;
  }
};

// A rectangle that is painted: an outline, a placeholder, a bar.
struct Shape : Control {
  base::Colour BackColour = base::White;
  int BorderStyle = 1;
};

// Its values run from Min to Max, either of which may be the greater.
struct ScrollBar : Control {
  base::Twips Min = 0;
  base::Twips Max = 0;
  base::Twips SmallChange = 1;
  base::Twips LargeChange = 1;
  base::Twips Value = 0;
};

// The pointer shapes that the program asks for, under the numbers that its lists use.
enum class MousePointer {
  Default = 0,
  Arrow = 1,
  NorthSouth = 7,
  WestEast = 9,
  Hourglass = 11,
};

}  // namespace tarnwell::forms
