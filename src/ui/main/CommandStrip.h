// The folder that commands run in, and the box in which they are typed.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <functional>
#include <optional>
#include <string>

#include "ui/toolkit/SkinPalettes.h"
#include "workspace/MainForm.h"

namespace tarnwell::ui {

class CommandStrip {
 public:
  // Both are children of the area. `enter` runs what has been typed, once for each press.
  CommandStrip(workspace::MainForm& form, QWidget& area, std::function<void(bool shift)> enter);

  // What is typed goes into the form at once. Without an accent there is no skin, and the colours
  // of the form do not hold.
  void Sync(const std::optional<PaletteColours>& skin);

  bool HoldsCommand(const QWidget* widget) const;

 private:
  workspace::MainForm& form_;
  QLineEdit* path_;
  QComboBox* command_;
  WidgetColours pathColours_;
  WidgetColours commandColours_;
  std::string shown_;  // of the command, as the form has it
};

}  // namespace tarnwell::ui
