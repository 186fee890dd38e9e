#include "ui/forms/TipWindow.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>

#include "lister/list/ListInput.h"
#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/ShowDialog.h"

namespace tarnwell::ui {
namespace {

constexpr int TipWidth = 380;  // logical pixels
constexpr int TipPictureSize = 48;
constexpr int TipMargin = 16;
constexpr int TipLineCount = 7;  // that are seen at once; longer tips scroll
constexpr qreal HeadingFactor = 1.3;

}  // namespace

TipWindow::TipWindow(tools::frmTip& form, const IconSource& icons)
    : form_(form), icon_(icons.Own("tip")) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogMargin);
  column->addWidget(NewSheet());
  column->addLayout(NewButtonRow());
  column->setSizeConstraint(QLayout::SetFixedSize);
  GiveLettersRoom();
}

QWidget* TipWindow::NewSheet() {
  auto* const sheet = new QFrame(this);
  sheet->setFrameShape(QFrame::StyledPanel);
  sheet->setAutoFillBackground(true);
  sheet->setBackgroundRole(QPalette::Base);
  picture_ = new QLabel(sheet);
  picture_->setFixedSize(TipPictureSize, TipPictureSize);
  heading_ = new QLabel(sheet);
  heading_->setForegroundRole(QPalette::Text);
  text_ = new QPlainTextEdit(sheet);
  text_->setReadOnly(true);
  text_->setFrameShape(QFrame::NoFrame);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  text_->setTabChangesFocus(true);
  text_->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  text_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  text_->document()->setDocumentMargin(0);
  text_->setFixedWidth(TipWidth);

  auto* const words = new QVBoxLayout;
  words->setSpacing(DialogSpacing);
  words->addWidget(heading_);
  words->addWidget(text_);
  auto* const row = new QHBoxLayout(sheet);
  row->setContentsMargins(TipMargin, TipMargin, TipMargin, TipMargin);
  row->setSpacing(TipMargin);
  row->addWidget(picture_, 0, Qt::AlignTop);
  row->addLayout(words);
  return sheet;
}

QLayout* TipWindow::NewButtonRow() {
  atStartup_ = new QCheckBox(this);
  next_ = new QPushButton(this);
  ok_ = new QPushButton(this);
  connect(atStartup_, &QCheckBox::toggled, this,
          [this](bool on) { Guarded([&] { form_.chkLoadTipsAtStartupClick(on); }); });
  connect(next_, &QPushButton::clicked, this,
          [this] { Guarded([&] { form_.cmdNextTipClick(); }); });
  connect(ok_, &QPushButton::clicked, this, [this] { Guarded([&] { form_.cmdOKClick(); }); });
  auto* const row = new QHBoxLayout;
  row->setSpacing(DialogSpacing);
  row->addWidget(atStartup_);
  row->addStretch();
  for (QPushButton* const button : {next_, ok_}) {
    button->setMinimumWidth(DialogButtonWidth);
    row->addWidget(button);
  }
  return row;
}

// The room is the same for every tip, so that the buttons stay under the mouse.
void TipWindow::GiveLettersRoom() {
  QFont large = font();
  large.setBold(true);
  large.setPointSizeF(QFontInfo(large).pointSizeF() * HeadingFactor);
  heading_->setFont(large);
  const int most = screen()->availableGeometry().height() / 3;
  text_->setFixedHeight(std::min(TipLineCount * text_->fontMetrics().lineSpacing(), most));
}

void TipWindow::Sync() {
  setWindowTitle(ToWindowTitle(form_.Caption));
  picture_->setPixmap(icon_.pixmap(QSize(TipPictureSize, TipPictureSize), devicePixelRatio()));
  heading_->setText(ToShownQString(form_.Label1.Caption));
  const QString tip = ToShownLines(form_.lblTipText.Text);
  if (text_->toPlainText() != tip) text_->setPlainText(tip);
  text_->setAccessibleName(heading_->text());
  setAccessibleDescription(tip);
  atStartup_->setText(ToShownQString(form_.chkLoadTipsAtStartup.Caption));
  const QSignalBlocker own(atStartup_);
  atStartup_->setChecked(form_.chkLoadTipsAtStartup.Checked);
  SyncButton(*next_, form_.cmdNextTip);
  SyncButton(*ok_, form_.cmdOK);
}

void TipWindow::SyncButton(QPushButton& widget, const forms::Button& button) {
  widget.setText(ToShownQString(button.Caption));
  widget.setToolTip(ToShownQString(button.ToolTip));
  widget.setDefault(button.Default);
}

void TipWindow::Measure() {
  const QSize size = sizeHint();
  form_.Width = ToTwips(size.width());
  form_.Height = ToTwips(size.height());
}

void TipWindow::Show(QWidget* owner) {
  const bool wasShown = isVisible();
  ShowDialog(*this, form_, owner);
  if (!wasShown) ok_->setFocus();
}

void TipWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) return form_.UserKeyDown(lister::F1Key, 0);
  QDialog::keyPressEvent(event);
}

void TipWindow::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::FontChange) GiveLettersRoom();
}

void TipWindow::reject() {
  if (!IsClosed()) form_.cmdOKClick();
}

}  // namespace tarnwell::ui
