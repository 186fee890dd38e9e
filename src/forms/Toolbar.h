// The state of a toolbar: buttons laid down as a table.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "forms/Controls.h"

namespace tarnwell::forms {

enum class ButtonStyle { Placeholder, Check, Plain, Separator };

// One row of a toolbar table. Separators have an empty key.
struct ToolbarRow {
  std::string_view Key;
  ButtonStyle Style;
  std::string_view ToolTip;
  std::string_view Image;  // key in the image list
};

struct ToolbarButton {
  std::string Key;
  ButtonStyle Style = ButtonStyle::Plain;
  std::string ToolTip;
  int Image = -1;  // position in the image list, counted from 0; -1 for none
  bool Pressed = false;
  bool Enabled = true;
};

class Toolbar : public Control {
 public:
  explicit Toolbar(std::span<const ToolbarRow> rows);

  // The button of that key. Throws std::out_of_range if there is none.
  ToolbarButton& operator[](std::string_view key);
  const ToolbarButton& operator[](std::string_view key) const;

  const std::vector<ToolbarButton>& Buttons() const { return buttons_; }

  forms::MousePointer MousePointer = forms::MousePointer::Default;

 private:
  std::vector<ToolbarButton> buttons_;
};

}  // namespace tarnwell::forms
