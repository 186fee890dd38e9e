#include "ui/forms/MsgBoxWindow.h"

#include <QHBoxLayout>
#include <QIcon>
#include <QScreen>
#include <QTextDocument>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "ui/toolkit/ShowDialog.h"
#include "ui/toolkit/SkinPalettes.h"

namespace tarnwell::ui {
namespace {

constexpr int TextWidth = 440;  // logical pixels
constexpr int BoxMargin = 12;
constexpr int BoxPictureSize = 32;
constexpr int LeastTextHeight = 52;

}  // namespace

MsgBoxWindow::MsgBoxWindow(shell::popMsgBox& form, const IconSource& icons,
                           std::function<void()> close)
    : form_(form), icons_(icons), close_(std::move(close)) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  picture_.setFixedSize(BoxPictureSize, BoxPictureSize);
  text_.setReadOnly(true);
  text_.setFrameShape(QFrame::NoFrame);
  text_.setFocusPolicy(Qt::NoFocus);
  text_.setTextInteractionFlags(Qt::TextSelectableByMouse);
  text_.document()->setDocumentMargin(4);
  text_.setFixedWidth(TextWidth);

  auto* sheet = new QFrame(this);
  sheet->setAutoFillBackground(true);
  sheet->setBackgroundRole(QPalette::Base);
  auto* sheetRow = new QHBoxLayout(sheet);
  sheetRow->setContentsMargins(BoxMargin, BoxMargin, BoxMargin, BoxMargin);
  sheetRow->setSpacing(BoxMargin);
  sheetRow->addWidget(&picture_, 0, Qt::AlignTop);
  sheetRow->addWidget(&text_);

  auto* buttonRow = new QHBoxLayout;
  buttonRow->setSpacing(8);
  buttonRow->addStretch();
  for (std::size_t i = buttons_.size(); i-- > 0;) {
    QPushButton& button = buttons_[i];
    button.setAutoDefault(true);
    button.setMinimumWidth(88);
    buttonRow->addWidget(&button);
    connect(&button, &QPushButton::clicked, this, [this, i] { form_.ButtonClick(i); });
  }
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(BoxMargin, BoxMargin, BoxMargin, BoxMargin);
  column->setSpacing(BoxMargin);
  column->addWidget(sheet);
  column->addLayout(buttonRow);
  column->setSizeConstraint(QLayout::SetFixedSize);
}

void MsgBoxWindow::Sync() {
  setWindowTitle(ToWindowTitle(form_.Caption));
  QPalette colours = FixedLightPalette(ToQColor(form_.BackColour));
  colours.setColor(QPalette::Base, ToQColor(form_.lblText.BackColour));
  colours.setColor(QPalette::Text, ToQColor(form_.lblText.ForeColour));
  setPalette(colours);
  text_.setPlainText(ToShownLines(form_.lblText.Text));
  text_.setAccessibleName(text_.toPlainText());
  setAccessibleDescription(text_.toPlainText());
  bool question = false;
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    buttons_[i].setText(ToShownQString(form_.Buttons[i].Caption));
    buttons_[i].setVisible(form_.Buttons[i].Visible);
    question = question || (i > 0 && form_.Buttons[i].Visible);
  }
  buttons_[0].setDefault(true);
  buttons_[0].setFocus();
  const QIcon icon = icons_.Own(question ? "question" : "information");
  picture_.setPixmap(icon.pixmap(QSize(BoxPictureSize, BoxPictureSize), devicePixelRatio()));
}

void MsgBoxWindow::Measure() {
  QTextDocument page;
  page.setDefaultFont(text_.font());
  page.setDocumentMargin(text_.document()->documentMargin());
  page.setTextWidth(TextWidth - 4);
  page.setPlainText(text_.toPlainText());
  const int wanted = static_cast<int>(page.size().height()) + 6;
  // A long list of names scrolls rather than leave the screen.
  const int most = screen()->availableGeometry().height() * 3 / 5;
  text_.setFixedHeight(std::clamp(wanted, LeastTextHeight, std::max(most, LeastTextHeight)));
  text_.setVerticalScrollBarPolicy(wanted > most ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
  const QSize size = sizeHint();
  form_.Width = ToTwips(size.width());
  form_.Height = ToTwips(size.height());
}

void MsgBoxWindow::Show(QWidget* owner) {
  ShowDialog(*this, form_, owner);
  buttons_[0].setFocus();
}

void MsgBoxWindow::reject() {
  if (!IsClosed()) close_();
}

}  // namespace tarnwell::ui
