#include "ui/forms/HelpWindow.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>
#include <cstddef>
#include <iterator>

#include "ui/toolkit/ControlGeometry.h"
#include "ui/toolkit/ShowDialog.h"
#include "ui/toolkit/SkinPalettes.h"
#include "ui/toolkit/WheelNotches.h"

namespace tarnwell::ui {
namespace {

using tools::HelpScroll;

constexpr QSize UsualHelpSize(620, 520);  // logical pixels
constexpr QSize LeastHelpSize(260, 160);
constexpr int HelpTextGap = 10;    // between text and bar
constexpr int HelpChapterRim = 6;  // above the text of a chapter's heading

// The size of letters at which the form's own sizes are meant.
constexpr qreal UsualPoints = 10;

struct HelpKey {
  Qt::Key Key;
  HelpScroll Scroll;
};

constexpr HelpKey HelpKeys[] = {
    {Qt::Key_Up, HelpScroll::LineUp},      {Qt::Key_Down, HelpScroll::LineDown},
    {Qt::Key_PageUp, HelpScroll::PageUp},  {Qt::Key_PageDown, HelpScroll::PageDown},
    {Qt::Key_Home, HelpScroll::Top},       {Qt::Key_End, HelpScroll::Bottom},
    {Qt::Key_Space, HelpScroll::PageDown},
};

}  // namespace

HelpWindow::HelpWindow(tools::frmHelp& form)
    : form_(form),
      page_(new QWidget(this)),
      guide_(new QPushButton(page_)),
      bar_(new QScrollBar(Qt::Vertical, this)) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint);
  setPalette(FixedLightPalette());
  setMinimumSize(LeastHelpSize);
  setSizeGripEnabled(false);
  // Of the page, which Space scrolls.
  setFocusPolicy(Qt::TabFocus);
  setFocus();
  for (QLabel*& label : labels_) {
    label = new QLabel(page_);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  }
  guide_->raise();
  connect(guide_, &QPushButton::clicked, this, [this] { Guarded([&] { form_.cmdGuideClick(); }); });
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now == guide_ && !IsClosed()) form_.Scroll(HelpScroll::Top);
  });
  bar_->setAccessibleName(QStringLiteral("Scroll the help"));
  bar_->setFocusPolicy(Qt::NoFocus);
  connect(bar_, &QScrollBar::valueChanged, this,
          [this](int value) { form_.VScroll1Change(-ToTwips(value)); });
}

void HelpWindow::Sync() {
  setWindowTitle(ToWindowTitle(form_.Caption));
  page_->setGeometry(RectOf(form_.Picture1));
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    PlaceAt(*labels_[i], RectOf(form_.lbltxt[i]), IsPlaced(form_.lbltxt[i]));
  }
  const QSize size = guide_->sizeHint();
  guide_->setGeometry({{page_->width() - FreeRight() - size.width(), HelpChapterRim}, size});
  SyncBar();
}

// The bar lies over the right ends of the labels.
int HelpWindow::FreeRight() const {
  return ToPixels(form_.VScroll1.Width) + HelpTextGap;
}

void HelpWindow::SyncTexts() {
  guide_->setText(ToShownQString(form_.cmdGuide.Caption));
  guide_->setToolTip(ToShownQString(form_.cmdGuide.ToolTip));
  guide_->setDefault(form_.cmdGuide.Default);
  const qreal factor = std::max(1.0, QFontInfo(font()).pointSizeF() / UsualPoints);
  const int besideGuide = FreeRight() + guide_->sizeHint().width() + HelpTextGap;
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    const tools::HelpLabel& shown = form_.lbltxt[i];
    QLabel& label = *labels_[i];
    QFont letters = font();
    letters.setPointSizeF(shown.FontSize * factor);
    letters.setBold(shown.Bold);
    label.setFont(letters);
    label.ensurePolished();  // which gives it margins of its own
    label.setContentsMargins(0, shown.FontSize > UsualPoints ? HelpChapterRim : 0,
                             i == 0 ? besideGuide : FreeRight(), 0);
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, ToQColor(shown.ForeColour));
    label.setPalette(colours);
    label.setText(ToShownLines(shown.Caption));
  }
}

// The toolkit's bars count downwards.
void HelpWindow::SyncBar() {
  const forms::ScrollBar& shown = form_.VScroll1;
  const QSignalBlocker own(bar_);
  bar_->setRange(ToPixels(-shown.Min), ToPixels(-shown.Max));
  bar_->setSingleStep(ToPixels(shown.SmallChange));
  bar_->setPageStep(ToPixels(shown.LargeChange));
  bar_->setValue(ToPixels(-shown.Value));
  PlaceAt(*bar_, RectOf(shown), IsPlaced(shown));
}

void HelpWindow::Measure() {
  SyncTexts();
  const QSize room = screen()->availableGeometry().size() * 4 / 5;
  resize(UsualHelpSize.boundedTo(room).expandedTo(LeastHelpSize));
  form_.Width = ToTwips(width());
  form_.Height = ToTwips(height());
}

void HelpWindow::Show(QWidget* owner) {
  if (!isVisible()) return ShowDialog(*this, form_, owner);
  raise();
  activateWindow();
}

void HelpWindow::LayOut() {
  if (IsClosed()) return;
  form_.Resize(ToTwips(width()), ToTwips(height()), [this](const tools::HelpLabel& label) {
    const auto place = &label - form_.lbltxt.data();
    return ToTwips(labels_[static_cast<std::size_t>(place)]->heightForWidth(ToPixels(label.Width)));
  });
  Sync();
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
  const auto* const found = std::ranges::find(HelpKeys, event->key(), &HelpKey::Key);
  if (found == std::end(HelpKeys)) return QDialog::keyPressEvent(event);
  const bool back = event->key() == Qt::Key_Space && event->modifiers() == Qt::ShiftModifier;
  form_.Scroll(back ? HelpScroll::PageUp : found->Scroll);
}

void HelpWindow::wheelEvent(QWheelEvent* event) {
  const int lines = QApplication::wheelScrollLines() * event->angleDelta().y();
  form_.VScroll1Change(form_.VScroll1.Value +
                       lines * form_.VScroll1.SmallChange / WheelNotches::Angle);
  event->accept();
}

void HelpWindow::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  LayOut();
}

void HelpWindow::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::FontChange || !isVisible()) return;
  SyncTexts();
  LayOut();
}

void HelpWindow::reject() {
  if (!IsClosed()) form_.Close();
}

}  // namespace tarnwell::ui
