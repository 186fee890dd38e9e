#include "ui/forms/SplashWindow.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/toolkit/SkinPalettes.h"

namespace tarnwell::ui {
namespace {

constexpr QSize WindowSize(400, 220);
constexpr int SideMargin = 28;
constexpr int MostStatusLetters = 34;
constexpr int SplashPictureSize = 56;
constexpr int BarHeight = 3;
const QColor Ink(44, 56, 72);
const QColor Faint(104, 114, 128);
const QColor Accent(62, 108, 158);

QFont Larger(const QFont& font, double factor) {
  QFont larger = font;
  larger.setPointSizeF(font.pointSizeF() * factor);
  return larger;
}

void SetInk(QLabel& label, const QColor& colour) {
  QPalette palette = label.palette();
  palette.setColor(QPalette::WindowText, colour);
  label.setPalette(palette);
}

}  // namespace

SplashWindow::SplashWindow(shell::Splash& form, const QIcon& icon) : form_(form) {
  setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
  setPalette(FixedLightPalette());
  picture_.setPixmap(icon.pixmap(QSize(SplashPictureSize, SplashPictureSize), devicePixelRatio()));
  title_.setText(QStringLiteral("Tarnwell"));
  title_.setFont(Larger(font(), 2.0));
  status_.setAccessibleName(QStringLiteral("Status"));
  SetInk(title_, Ink);
  SetInk(version_, Faint);
  SetInk(status_, Faint);
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, [this] { Tick(); });

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(SideMargin, 26, SideMargin, 20);
  column->setSpacing(2);
  column->addWidget(&picture_, 0, Qt::AlignHCenter);
  column->addWidget(&title_, 0, Qt::AlignHCenter);
  column->addWidget(&version_, 0, Qt::AlignHCenter);
  column->addStretch();
  // As wide as the window, so that a longer status needs no new layout first.
  status_.setAlignment(Qt::AlignHCenter);
  column->addWidget(&status_);
}

void SplashWindow::Sync() {
  setWindowTitle(ToWindowTitle(form_.Caption));
  version_.setText(ToShownQString(form_.txtVersion.Caption));
  status_.setText(ToShownQString(form_.txtStatus.Caption));
  update();
  if (form_.Timer1.Enabled && !timer_.isActive() && !ticking_) {
    timer_.start(form_.Timer1.Interval);
  }
  if (!form_.Timer1.Enabled) timer_.stop();
}

void SplashWindow::Measure() {
  const QSize needed(MostStatusLetters * fontMetrics().averageCharWidth() + 2 * SideMargin,
                     layout()->sizeHint().height());
  setFixedSize(WindowSize.expandedTo(needed));
  form_.Width = ToTwips(width());
  form_.Height = ToTwips(height());
  const QRect room = screen()->availableGeometry();
  form_.Left = ToTwips(room.center().x() - width() / 2);
  form_.Top = ToTwips(room.center().y() - height() / 2);
}

void SplashWindow::Show(QWidget*) {
  move(ToPixels(form_.Left), ToPixels(form_.Top));
  show();
  activateWindow();
}

// The timer stands still while a tick runs: the whole load of the main form is one tick.
void SplashWindow::Tick() {
  ticking_ = true;
  Guarded([this] { form_.Tick(); });
  ticking_ = false;
  if (!IsClosed() && form_.Timer1.Enabled) timer_.start(form_.Timer1.Interval);
}

void SplashWindow::keyPressEvent(QKeyEvent* event) {
  // Letters and digits have the same codes here and in the program.
  constexpr int escape = 27;
  if (event->key() >= Qt::Key_0 && event->key() <= Qt::Key_Z) form_.KeyDown(event->key());
  if (event->key() == Qt::Key_Escape) form_.KeyDown(escape);
  QWidget::keyPressEvent(event);
}

void SplashWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(form_.BackColour));
  painter.setPen(QColor(190, 198, 208));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  const auto shown = std::ranges::find(form_.Image1, true, &shell::Splash::Frame::Visible);
  if (shown == form_.Image1.end()) return;
  const auto step = shown - form_.Image1.begin() + 1;
  const auto part = static_cast<int>(width() * step / std::ssize(form_.Image1));
  painter.fillRect(QRect(0, height() - BarHeight, part, BarHeight), Accent);
}

}  // namespace tarnwell::ui
