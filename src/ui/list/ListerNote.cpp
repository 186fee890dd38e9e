#include "ui/list/ListerNote.h"

#include <QEvent>
#include <algorithm>

#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {
namespace {

constexpr int NoteMargin = 12;
constexpr int ButtonGap = 6;

}  // namespace

ListerNote::ListerNote(QWidget& parent, QAbstractScrollArea& view, const QString& place)
    : QObject(&parent),
      view_(view),
      text_(new QLabel(&parent)),
      clear_(new QPushButton(QStringLiteral("Clear Filter"), &parent)) {
  text_->setTextFormat(Qt::PlainText);
  text_->setAlignment(Qt::AlignCenter);
  text_->setWordWrap(true);
  text_->setAttribute(Qt::WA_TransparentForMouseEvents);
  clear_->setAccessibleName(QStringLiteral("Clear filter of %1").arg(place));
  clear_->setAutoDefault(true);  // Enter presses it as well
  connect(clear_, &QPushButton::clicked, this, &ListerNote::ClearAsked);
  view.installEventFilter(this);
  view.viewport()->installEventFilter(this);
  Show({});
}

void ListerNote::Show(const lister::EmptyNote& note) {
  // The keyboard is not to go to the next control with the button.
  if (clear_->hasFocus() && !note.ByFilter) clear_->parentWidget()->setFocus();
  text_->setText(ToShownQString(note.Text));
  text_->setVisible(!note.Text.empty());
  clear_->setVisible(note.ByFilter);
  Place();
}

void ListerNote::ShowStyle(const ListerStyle& style) {
  QPalette colours = style.List;
  colours.setColor(QPalette::WindowText, style.Plain.Secondary);
  text_->setPalette(colours);
  clear_->setPalette(style.Toolbar);
}

bool ListerNote::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Move) Place();
  return QObject::eventFilter(watched, event);
}

void ListerNote::Place() {
  if (text_->isHidden()) return;
  const QRect inside = view_.viewport()->geometry().translated(view_.pos());
  const QRect room = inside.adjusted(NoteMargin, 0, -NoteMargin, 0);
  const QSize button = clear_->isHidden() ? QSize(0, 0) : clear_->sizeHint();
  const int below = button.isEmpty() ? 0 : ButtonGap + button.height();
  const int wanted = text_->heightForWidth(std::max(1, room.width()));
  const int height = std::clamp(wanted, 0, std::max(0, room.height() - below));
  const int top = room.top() + std::max(0, (room.height() - height - below) / 2);
  text_->setGeometry(room.left(), top, room.width(), height);
  clear_->setGeometry(room.center().x() - button.width() / 2, top + height + ButtonGap,
                      button.width(), button.height());
}

}  // namespace tarnwell::ui
