#include "ui/toolkit/ReadOnlyText.h"

#include <QEvent>
#include <QFocusEvent>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace tarnwell::ui {
namespace {

int LineHeight(const QFont& font) {
  return static_cast<int>(std::ceil(QFontMetricsF(font).lineSpacing()));
}

}  // namespace

ReadOnlyText::ReadOnlyText(int width, int mostLines, QWidget* parent)
    : QPlainTextEdit(parent), mostLines_(mostLines) {
  setReadOnly(true);
  setFrameShape(QFrame::NoFrame);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setTabChangesFocus(true);
  setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  document()->setDocumentMargin(0);
  viewport()->setAutoFillBackground(false);
  setFixedWidth(width);
  Fit();
}

void ReadOnlyText::ShowText(const QString& text) {
  if (text == toPlainText()) return;
  setPlainText(text);
  Fit();
}

void ReadOnlyText::Fit() {
  QTextOption option = document()->defaultTextOption();
  option.setWrapMode(wordWrapMode());
  int lines = 0;
  for (const QString& part : toPlainText().split('\n')) {
    QTextLayout layout(part, font());
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
      line.setLineWidth(width());
      ++lines;
    }
    layout.endLayout();
  }
  const bool scrolls = lines > mostLines_;
  setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
  setFixedHeight(LineHeight(font()) * std::clamp(lines, 1, mostLines_) + 1);
}

void ReadOnlyText::changeEvent(QEvent* event) {
  QPlainTextEdit::changeEvent(event);
  if (event->type() == QEvent::FontChange) Fit();
}

// Reached by key, the whole is ready to be copied.
void ReadOnlyText::focusInEvent(QFocusEvent* event) {
  QPlainTextEdit::focusInEvent(event);
  if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
    selectAll();
  }
}

void ReadOnlyText::focusOutEvent(QFocusEvent* event) {
  QPlainTextEdit::focusOutEvent(event);
  if (event->reason() == Qt::PopupFocusReason) return;  // the menu with Copy in it
  QTextCursor cursor = textCursor();
  cursor.clearSelection();
  setTextCursor(cursor);
}

}  // namespace tarnwell::ui
