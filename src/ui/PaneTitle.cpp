#include "ui/PaneTitle.h"

#include <QEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <utility>

#include "ui/Convert.h"
#include "ui/Place.h"

namespace tarnwell::ui {
namespace {

constexpr int PictureSize = 16;

}  // namespace

PaneTitle::PaneTitle(int pane, const QIcon& picture, Actions actions, QWidget* parent)
    : QFrame(parent), actions_(std::move(actions)), path_(this), picture_(this), close_(this) {
  setAutoFillBackground(true);
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
  QPalette palette = QGuiApplication::palette();
  if (title.BackColour != title.ForeColour) {
    const QColor back = ToQColor(title.BackColour);
    palette = QPalette(back, back);
    for (const auto role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text}) {
      palette.setColor(role, ToQColor(title.ForeColour));
    }
    palette.setColor(QPalette::Base, back);
  }
  if (this->palette() != palette) setPalette(palette);
}

bool PaneTitle::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease) {
    const auto* mouse = static_cast<QMouseEvent*>(event);
    const bool inside = rect().contains(mapFromGlobal(mouse->globalPosition().toPoint()));
    if (mouse->button() == Qt::LeftButton && event->type() == QEvent::MouseButtonPress) {
      actions_.MouseDown();
    } else if (mouse->button() == Qt::LeftButton && inside) {
      actions_.Click();
    }
  }
  return QFrame::eventFilter(watched, event);
}

}  // namespace tarnwell::ui
