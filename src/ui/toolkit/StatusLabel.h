// A place in a window where it says what goes on: text of some lines, which others may have
// written in part.
#pragma once

#include <QLabel>
#include <string>

#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {

// Room for so many lines is kept free.
inline QLabel* MakeStatusLabel(int lines, QWidget* window) {
  auto* const label = new QLabel(window);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setMinimumHeight(label->fontMetrics().lineSpacing() * lines);
  return label;
}

// Screen readers hear of it as the description of the window.
inline void ShowStatus(QLabel& label, const std::string& text) {
  label.setText(ToShownLines(text));
  label.window()->setAccessibleDescription(label.text());
}

}  // namespace tarnwell::ui
