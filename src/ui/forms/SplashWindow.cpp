#include "ui/forms/SplashWindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QWindow>
#include <algorithm>
#include <array>
#include <utility>

#include "ui/forms/LinkLabel.h"
#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/ShowDialog.h"
#include "ui/toolkit/SkinPalettes.h"

namespace tarnwell::ui {
namespace {

// Logical pixels.
constexpr int SplashMargin = 24;
constexpr int AnimationSize = 128;
constexpr int LeastWidth = 480;
constexpr int SplashPictureSize = 56;
constexpr int CloseSize = 28;
constexpr int MostStatusLetters = 34;

const QColor Ink(44, 56, 72);
const QColor Faint(90, 100, 114);
const QColor Border(190, 198, 208);

QFont Larger(const QFont& font, double factor) {
  QFont larger = font;
  larger.setPointSizeF(font.pointSizeF() * factor);
  return larger;
}

QRect PlaceOf(const shell::GifImage& image) {
  return {ToPixels(image.Left), ToPixels(image.Top), ToPixels(image.Width), ToPixels(image.Height)};
}

}  // namespace

SplashWindow::SplashWindow(shell::Splash& form, const QIcon& icon)
    : form_(form), icon_(icon), close_(new QToolButton(this)) {
  setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
  setPalette(FixedLightPalette());
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  connect(&timer_, &QTimer::timeout, this, [this] { Tick(); });
  close_->setText(QStringLiteral("\u2715"));
  close_->setAutoRaise(true);
  close_->setFixedSize(CloseSize, CloseSize);
  close_->setToolTip(QStringLiteral("Close"));
  close_->setAccessibleName(close_->toolTip());
  connect(close_, &QToolButton::clicked, this, [this] { form_.cmdClosePaneClick(); });

  auto* const upper = new QHBoxLayout;
  upper->addSpacing(AnimationSize + SplashMargin);  // for what is painted
  upper->addLayout(NewTexts(), 1);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(SplashMargin, SplashMargin, SplashMargin, SplashMargin);
  column->setSpacing(SplashMargin);
  column->addLayout(upper);
  if (form_.SplashDone) column->addLayout(NewButtons());
}

QLayout* SplashWindow::NewTexts() {
  auto* const column = new QVBoxLayout;
  column->setSpacing(2);
  QLabel* const title = AddText(Ink, *column);
  title->setText(QStringLiteral("Tarnwell"));
  title->setFont(Larger(font(), 2.0));
  AddLine(form_.txtVersion, Ink, *column);
  column->addSpacing(DialogSpacing);
  for (const forms::Label* const each :
       {&form_.txtCopyRight, &form_.txtCopyright2, &form_.txtTrademark}) {
    AddLine(*each, Faint, *column);
  }
  column->addSpacing(DialogSpacing);
  if (form_.SplashDone) {
    AddLink(form_.lbweb, &shell::Splash::lbwebClick, *column);
    AddLink(form_.txtStatus, &shell::Splash::txtStatusClick, *column);
  } else {
    QLabel* const status = AddLine(form_.txtStatus, Faint, *column);
    status->setAccessibleName(QStringLiteral("Status"));
    // So that a longer status needs no new layout first.
    status->setMinimumWidth(MostStatusLetters * fontMetrics().averageCharWidth());
  }
  column->addStretch();
  return column;
}

QLabel* SplashWindow::AddText(const QColor& ink, QBoxLayout& column) {
  auto* const label = new QLabel(this);
  label->setContentsMargins(LinkLabel::FocusRoom.width(), 0, 0, 0);  // in line with the links
  QPalette palette = label->palette();
  palette.setColor(QPalette::WindowText, ink);
  label->setPalette(palette);
  column.addWidget(label);
  return label;
}

QLabel* SplashWindow::AddLine(const forms::Label& shown, const QColor& ink, QBoxLayout& column) {
  QLabel* const label = AddText(ink, column);
  syncs_.emplace_back([&shown, label] { label->setText(ToShownQString(shown.Caption)); });
  return label;
}

void SplashWindow::AddLink(const forms::Label& shown, void (shell::Splash::*click)(),
                           QBoxLayout& column) {
  auto* const link = new LinkLabel(this);
  link->SetTextColour(ToQColor(form_.lbweb.ForeColour));
  connect(link, &LinkLabel::clicked, this, [this, click] { Guarded([&] { (form_.*click)(); }); });
  column.addWidget(link);
  syncs_.emplace_back([&shown, link] { link->setText(ToShownQString(shown.Caption)); });
}

QLayout* SplashWindow::NewButtons() {
  auto* const row = new QHBoxLayout;
  row->setSpacing(DialogSpacing);
  row->addStretch();
  using Click = void (shell::Splash::*)();
  const std::array<std::pair<const forms::Button*, Click>, 3> buttons = {
      {{&form_.Command1, &shell::Splash::Command1Click},
       {&form_.Command2, &shell::Splash::Command2Click},
       {&form_.Command3, &shell::Splash::Command3Click}}};
  for (const auto& [shown, click] : buttons) {
    auto* const button = new QPushButton(ToShownQString(shown->Caption), this);
    button->setMinimumWidth(DialogButtonWidth);
    connect(button, &QPushButton::clicked, this,
            [this, click = click] { Guarded([&] { (form_.*click)(); }); });
    row->addWidget(button);
  }
  return row;
}

void SplashWindow::Sync() {
  setWindowTitle(ToWindowTitle(form_.Caption));
  for (const auto& sync : syncs_) sync();
  close_->setVisible(form_.cmdClosePane.Visible);
  // The frame that was on show, and the one that is.
  update(shownImage_);
  if (const shell::GifImage* const image = ShownImage()) shownImage_ = PlaceOf(*image);
  update(shownImage_);
  if (form_.Timer1.Enabled && !timer_.isActive() && !ticking_) {
    timer_.start(form_.Timer1.Interval);
  }
  if (!form_.Timer1.Enabled) timer_.stop();
}

void SplashWindow::Measure() {
  const QSize needed = sizeHint().expandedTo({LeastWidth, AnimationSize + 2 * SplashMargin});
  setFixedSize(needed);
  close_->move(width() - CloseSize - 1, 1);
  form_.Width = ToTwips(width());
  form_.Height = ToTwips(height());
  const QRect room = screen()->availableGeometry();
  form_.Left = ToTwips(room.center().x() - width() / 2);
  form_.Top = ToTwips(room.center().y() - height() / 2);
}

void SplashWindow::Show(QWidget* owner) {
  const bool wasShown = isVisible();
  ShowDialog(*this, form_, owner);
  auto* const first = findChild<QPushButton*>();
  if (first != nullptr && !wasShown) first->setFocus();
}

// The timer stands still while a tick runs: the whole load of the main form is one tick.
void SplashWindow::Tick() {
  const QPointer<SplashWindow> self(this);
  ticking_ = true;
  Guarded([this] { form_.Tick(); });
  if (self == nullptr) return;  // gone in a loop of the messages that the tick has shown
  ticking_ = false;
  if (!IsClosed() && form_.Timer1.Enabled) timer_.start(form_.Timer1.Interval);
}

void SplashWindow::keyPressEvent(QKeyEvent* event) {
  // Letters and digits have the same codes here and in the program.
  constexpr int escape = 27;
  if (event->key() >= Qt::Key_0 && event->key() <= Qt::Key_Z) form_.KeyDown(event->key());
  if (event->key() == Qt::Key_Escape) return form_.KeyDown(escape);
  QDialog::keyPressEvent(event);
}

// Without a frame the window moves by its surface.
void SplashWindow::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) windowHandle()->startSystemMove();
}

void SplashWindow::closeEvent(QCloseEvent* event) {
  event->ignore();  // unloading the form takes the window away
  if (!IsClosed()) form_.Close();
}

const shell::GifImage* SplashWindow::ShownImage() const {
  const auto shown = std::ranges::find(form_.Image1, true, &shell::GifImage::Visible);
  return shown == form_.Image1.end() ? nullptr : &*shown;
}

void SplashWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Border);
  painter.fillRect(rect().adjusted(1, 1, -1, -1), ToQColor(form_.BackColour));
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  if (const shell::GifImage* const image = ShownImage()) {
    painter.drawImage(PlaceOf(*image).topLeft(), pictures_.Picture(form_.Image1, *image));
  }
  QRect middle(0, 0, SplashPictureSize, SplashPictureSize);
  middle.moveCenter(QRect(SplashMargin, SplashMargin, AnimationSize, AnimationSize).center());
  icon_.paint(&painter, middle);
}

}  // namespace tarnwell::ui
