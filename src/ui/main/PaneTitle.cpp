#include "ui/main/PaneTitle.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPointer>
#include <utility>

#include "base/Caption.h"
#include "ui/toolkit/Contrast.h"
#include "ui/toolkit/ControlGeometry.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {
namespace {

constexpr int TitlePictureSize = 16;

}  // namespace

PaneTitle::PaneTitle(int pane, const QIcon& picture, Actions actions, QWidget* parent)
    : QFrame(parent), actions_(std::move(actions)), path_(this), picture_(this), close_(this) {
  setAutoFillBackground(true);
  setCursor(Qt::ArrowCursor);
  setAccessibleName(QStringLiteral("Title of pane %1").arg(pane + 1));
  path_.setAccessibleName(QStringLiteral("Path of pane %1").arg(pane + 1));
  path_.installEventFilter(this);
  picture_.setIcon(picture);
  picture_.setIconSize(QSize(TitlePictureSize, TitlePictureSize));
  picture_.setAutoRaise(true);
  picture_.setFocusPolicy(Qt::NoFocus);
  picture_.setToolTip(QStringLiteral("Folders above, history, bookmarks, accent (Alt+Down)"));
  picture_.setAccessibleName(QStringLiteral("Places of pane %1").arg(pane + 1));
  connect(&picture_, &QToolButton::pressed, this, [this] { actions_.MouseDown(); });
  // Out of the button's own event: what is chosen may end the program.
  connect(
      &picture_, &QToolButton::clicked, this, [this] { OpenMenu(); }, Qt::QueuedConnection);
  close_.setText(QStringLiteral("\u2715"));
  close_.setAutoRaise(true);
  close_.setFocusPolicy(Qt::NoFocus);
  close_.setToolTip(QStringLiteral("Close pane %1").arg(pane + 1));
  close_.setAccessibleName(close_.toolTip());
  connect(&close_, &QToolButton::clicked, this, [this] { actions_.Close(); });
}

void PaneTitle::Sync(const forms::TextBox& title, const forms::Picture& picture,
                     const forms::Picture& close, const forms::Shape& pane,
                     const workspace::PaneAccent* accent,
                     const std::optional<PaletteColours>& skin) {
  const QRect row(RectOf(title).topLeft(), QPoint(RectOf(pane).right(), RectOf(close).bottom()));
  PlaceAt(*this, row, IsPlaced(title));
  const QRect inside(QPoint(0, 0), row.size());
  QRect path = RectOf(title).translated(-row.topLeft());
  path.setBottom(inside.bottom());
  PlaceAt(path_, path & inside, true);
  const auto place = [&](QWidget& widget, const forms::Picture& shown) {
    const QRect rect = RectOf(shown).translated(-row.topLeft());
    PlaceAt(widget, rect, shown.Visible && inside.contains(rect));
  };
  place(picture_, picture);
  place(close_, close);
  const QString text = ToShownQString(title.Text);
  if (path_.text() != text) {
    path_.setText(text);
    path_.setToolTip(PlainToolTip(text));
  }
  colours_.Show(*this, BoxColours(title, skin));
  ShowAccent(accent);
}

void PaneTitle::ShowAccent(const workspace::PaneAccent* accent) {
  if (accent == nullptr) {
    path_.ShowAccent({});
    path_.setAccessibleDescription({});
    return;
  }
  path_.ShowAccent(
      Distinct(ToQColor(accent->Colour), {palette().color(QPalette::Base)}, MarkContrast));
  path_.setAccessibleDescription(QStringLiteral("Accent: ") +
                                 ToQString(base::WithoutMarks(accent->Caption)));
}

void PaneTitle::OpenMenu() {
  const QPointer<PaneTitle> alive(this);
  picture_.setDown(true);
  actions_.PictureClick();
  if (alive) picture_.setDown(false);
}

bool PaneTitle::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseMove:
      if (watched == &path_ && static_cast<QMouseEvent*>(event)->buttons() == Qt::NoButton) {
        actions_.MouseMove();
      }
      break;
    case QEvent::MouseButtonPress:
      if (static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) actions_.MouseDown();
      break;
    case QEvent::MouseButtonRelease: {
      const auto* mouse = static_cast<QMouseEvent*>(event);
      const bool inside = rect().contains(mapFromGlobal(mouse->globalPosition().toPoint()));
      if (mouse->button() == Qt::LeftButton && inside) actions_.Click();
      break;
    }
    default:
      break;
  }
  return QFrame::eventFilter(watched, event);
}

}  // namespace tarnwell::ui
