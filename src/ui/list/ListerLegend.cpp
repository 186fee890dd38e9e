#include "ui/list/ListerLegend.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QStringList>
#include <QStyleOptionFocusRect>
#include <algorithm>
#include <cstddef>
#include <iterator>

#include "ui/list/ListerMarks.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/SkinPalettes.h"

namespace tarnwell::ui {
namespace {

constexpr int EntryMargin = 4;  // left and right, pixels
constexpr int WordGap = 4;
constexpr int EndGap = 1;

struct LegendWord {
  lister::CompareMarks Mark;
  const char* Word;
};

// What is most often wanted comes first: it is there in a narrow pane too.
constexpr LegendWord LegendWords[] = {{{.Newer = true}, "newer"},
                                      {{.OnlyHere = true}, "only here"},
                                      {{.Older = true}, "older"},
                                      {{.Larger = true}, "larger"},
                                      {{.Smaller = true}, "smaller"}};

}  // namespace

LegendEntry::LegendEntry(lister::CompareMarks mark, const QString& word, const QString& place,
                         const ListerStyle& style, QWidget* legend)
    : QAbstractButton(legend), mark_(mark), style_(style) {
  setText(word);
  setAccessibleName(QStringLiteral("%1 of %2").arg(word, place));
  setAccessibleDescription(MarksText(mark));
  setToolTip(PlainToolTip(MarksText(mark) + QStringLiteral(": selects them, with Ctrl adds them")));
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_Hover);
  setCursor(Qt::ArrowCursor);
  connect(this, &QAbstractButton::clicked, this, [this] {
    emit Asked(mark_, QGuiApplication::keyboardModifiers().testFlag(Qt::ControlModifier));
  });
}

QSize LegendEntry::sizeHint() const {
  const int words = fontMetrics().horizontalAdvance(text());
  return {2 * EntryMargin + MarksWidth(mark_) + WordGap + words, fontMetrics().height()};
}

bool LegendEntry::event(QEvent* event) {
  // Ahead of the window, which has Escape as a shortcut.
  if (event->type() == QEvent::ShortcutOverride &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
  return QAbstractButton::event(event);
}

void LegendEntry::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
      emit StepAsked(-1);
      return;
    case Qt::Key_Right:
    case Qt::Key_Down:
      emit StepAsked(1);
      return;
    case Qt::Key_Escape:
      emit LeaveAsked();
      return;
    case Qt::Key_Space:
      if (!event->isAutoRepeat()) {
        emit Asked(mark_, event->modifiers().testFlag(Qt::ControlModifier));
      }
      return;
    default:
      event->ignore();
  }
}

// Space has done its work as it came down.
void LegendEntry::keyReleaseEvent(QKeyEvent* event) {
  event->ignore();
}

void LegendEntry::focusInEvent(QFocusEvent* event) {
  QAbstractButton::focusInEvent(event);
  emit FocusChanged();
}

void LegendEntry::focusOutEvent(QFocusEvent* event) {
  QAbstractButton::focusOutEvent(event);
  emit FocusChanged();
}

void LegendEntry::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (underMouse() || isDown()) painter.fillRect(rect(), LineColour(palette()));
  const QRect badge(EntryMargin, 0, MarksWidth(mark_), height());
  PaintMarks(painter, badge, mark_, style_.LegendMore, style_.LegendLess);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(rect().adjusted(badge.right() + 1 + WordGap, 0, 0, 0),
                   Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text());
  if (!hasFocus()) return;
  QStyleOptionFocusRect frame;
  frame.initFrom(this);
  frame.state |= QStyle::State_KeyboardFocusChange;  // there is no other way to it
  frame.backgroundColor = palette().color(QPalette::Window);
  style()->drawPrimitive(QStyle::PE_FrameFocusRect, &frame, &painter, this);
}

ListerLegend::ListerLegend(const QString& place, const ListerStyle& style, QWidget* statusLine)
    : QWidget(statusLine) {
  setAutoFillBackground(true);
  for (const LegendWord& each : LegendWords) {
    auto* const entry =
        new LegendEntry(each.Mark, QString::fromLatin1(each.Word), place, style, this);
    entry->hide();
    entries_.push_back(entry);
    connect(entry, &LegendEntry::Asked, this, &ListerLegend::Asked);
    connect(entry, &LegendEntry::StepAsked, this, &ListerLegend::Step);
    connect(entry, &LegendEntry::LeaveAsked, this, &ListerLegend::LeaveAsked);
    connect(entry, &LegendEntry::FocusChanged, this, &ListerLegend::FocusChanged);
  }
  hide();
}

int ListerLegend::Show(lister::CompareMarks kinds, int room) {
  kinds_ = kinds;
  room_ = room;
  const std::vector<LegendEntry*> occurring = Occurring();
  const auto widthOf = [](const LegendEntry* entry) { return entry->sizeHint().width(); };
  // The one with the keyboard is there, whatever comes before it.
  auto first = std::ranges::find_if(occurring, &QWidget::hasFocus);
  if (first == occurring.end()) first = occurring.begin();
  int width = EndGap + (first == occurring.end() ? 0 : widthOf(*first));
  while (first != occurring.begin() && width + widthOf(*(first - 1)) <= room) {
    width += widthOf(*--first);
  }
  std::vector<const LegendEntry*> shown;
  width = EndGap;
  for (; first != occurring.end() && width + widthOf(*first) <= room; ++first) {
    const int more = widthOf(*first);
    (*first)->setGeometry(width - EndGap, 0, more, parentWidget()->height());
    shown.push_back(*first);
    width += more;
  }
  for (LegendEntry* const entry : entries_) {
    const bool isShown = std::ranges::find(shown, entry) != shown.end();
    if (!isShown && entry->hasFocus()) emit LeaveAsked();
    entry->setVisible(isShown);
  }
  setVisible(!shown.empty());
  if (shown.empty()) return 0;
  const QRect line = parentWidget()->rect();
  setGeometry(line.right() + 1 - width, line.top(), width, line.height());
  // In full, whatever there is room for.
  QStringList words;
  for (const LegendEntry* const entry : occurring) words << entry->text();
  setAccessibleName(QStringLiteral("Marks: ") + words.join(QStringLiteral(", ")));
  return width;
}

bool ListerLegend::Enter() {
  const auto first = std::ranges::find_if(entries_, &QWidget::isVisible);
  if (first == entries_.end()) return false;
  (*first)->setFocus(Qt::ShortcutFocusReason);
  return true;
}

bool ListerLegend::HasKeyboard() const {
  return std::ranges::any_of(entries_, &QWidget::hasFocus);
}

std::vector<LegendEntry*> ListerLegend::Occurring() const {
  std::vector<LegendEntry*> occurring;
  std::ranges::copy_if(entries_, std::back_inserter(occurring),
                       [this](const LegendEntry* entry) { return kinds_.Shares(entry->Mark()); });
  return occurring;
}

void ListerLegend::Step(int step) {
  const std::vector<LegendEntry*> occurring = Occurring();
  const auto at = std::ranges::find_if(occurring, &QWidget::hasFocus);
  if (at == occurring.end()) return;
  const auto next = at - occurring.begin() + step;
  if (next < 0 || next >= static_cast<std::ptrdiff_t>(occurring.size())) return;
  LegendEntry* const entry = occurring[static_cast<std::size_t>(next)];
  entry->show();  // what is hidden takes no keyboard
  entry->setFocus(Qt::ShortcutFocusReason);
  Show(kinds_, room_);
}

}  // namespace tarnwell::ui
