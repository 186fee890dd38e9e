#include "ui/toolkit/ScrollPage.h"

#include <QFocusEvent>
#include <QScreen>
#include <QScrollBar>

namespace tarnwell::ui {
namespace {

// Of the screen's height, in hundredths; buttons, tabs and the window's frame take the rest.
constexpr int MostHeight = 64;

}  // namespace

ScrollPage::ScrollPage(QWidget* page, QWidget* parent) : QScrollArea(parent) {
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);  // what is on the page has the keyboard, and comes into sight by it
  setWidget(page);
  page->setAutoFillBackground(false);
  viewport()->setAutoFillBackground(false);
}

QSize ScrollPage::sizeHint() const {
  const QSize page = widget()->sizeHint();
  const int most = screen()->availableGeometry().height() * MostHeight / 100;
  if (page.height() <= most) return page;
  return {page.width() + verticalScrollBar()->sizeHint().width(), most};
}

// The page has more or less to show, or a part of it has the keyboard.
bool ScrollPage::eventFilter(QObject* watched, QEvent* event) {
  const bool done = QScrollArea::eventFilter(watched, event);
  if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
  if (watched != widget() && event->type() == QEvent::FocusIn &&
      static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason) {
    ensureWidgetVisible(static_cast<QWidget*>(watched));
  }
  return done;
}

}  // namespace tarnwell::ui
