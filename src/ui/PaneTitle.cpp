#include "ui/PaneTitle.h"

#include <QEvent>
#include <utility>

#include "ui/Convert.h"
#include "ui/Place.h"

namespace tarnwell::ui {
namespace {

constexpr int PictureSize = 16;

}  // namespace

PaneTitle::PaneTitle(int pane, const QIcon& picture, Actions actions, QWidget* parent)
    : QFrame(parent), actions_(std::move(actions)), path_(this), picture_(this), close_(this) {
  setObjectName("title");
  path_.setReadOnly(true);
  path_.setFrame(false);
  path_.setFocusPolicy(Qt::NoFocus);
  path_.setTextMargins(4, 0, 4, 0);
  path_.setCursor(Qt::ArrowCursor);
  path_.setAccessibleName(QStringLiteral("Path of pane %1").arg(pane + 1));
  path_.installEventFilter(this);
  picture_.setPixmap(picture.pixmap(QSize(PictureSize, PictureSize), devicePixelRatio()));
  picture_.setAlignment(Qt::AlignCenter);
  picture_.installEventFilter(this);
  close_.setText(QStringLiteral("\u2715"));
  close_.setAutoRaise(true);
  close_.setFocusPolicy(Qt::NoFocus);
  close_.setToolTip(QStringLiteral("Close pane %1").arg(pane + 1));
  close_.setAccessibleName(close_.toolTip());
  connect(&close_, &QToolButton::clicked, this, [this] { actions_.Close(); });
}

void PaneTitle::Sync(const forms::TextBox& title, const forms::Picture& picture,
                     const forms::Picture& close) {
  QRect row = RectOf(title).united(RectOf(close));
  PlaceAt(*this, row, title.Visible);
  const QPoint origin = row.topLeft();
  PlaceAt(path_, RectOf(title).translated(-origin), true);
  PlaceAt(picture_, RectOf(picture).translated(-origin), picture.Visible);
  PlaceAt(close_, RectOf(close).translated(-origin), close.Visible);
  const QString text = ToShownQString(title.Text);
  if (path_.text() != text) {
    path_.setText(text);
    path_.setToolTip(PlainToolTip(text));
  }
  // Without a skin both are the same: then the toolkit's own colours serve.
  QString colours;
  if (title.BackColour != title.ForeColour) {
    const QString back = ToQColor(title.BackColour).name();
    const QString fore = ToQColor(title.ForeColour).name();
    colours = QStringLiteral(
                  "#title { background: %1; border-radius: 2px; } QLineEdit, QLabel, QToolButton "
                  "{ background: transparent; color: %2; border: none; } QToolButton:hover { "
                  "background: rgba(128, 128, 128, 110); border-radius: 2px; }")
                  .arg(back, fore);
  }
  if (colours != colours_) {
    colours_ = colours;
    setStyleSheet(colours);
  }
}

bool PaneTitle::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) actions_.MouseDown();
  if (event->type() == QEvent::MouseButtonRelease) actions_.Click();
  return QFrame::eventFilter(watched, event);
}

}  // namespace tarnwell::ui
