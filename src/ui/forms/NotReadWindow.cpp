#include "ui/forms/NotReadWindow.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScreen>
#include <QVBoxLayout>

#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/ShowDialog.h"

namespace tarnwell::ui {
namespace {

constexpr QSize UsualNotReadSize(640, 360);  // logical pixels

}  // namespace

NotReadWindow::NotReadWindow(tools::popNotRead& form)
    : form_(form),
      count_(new QLabel(this)),
      items_(new QPlainTextEdit(this)),
      copy_(new QPushButton(this)),
      close_(new QPushButton(this)) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  items_->setReadOnly(true);
  items_->setLineWrapMode(QPlainTextEdit::NoWrap);
  items_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  items_->setTabChangesFocus(true);
  items_->setAccessibleName(QStringLiteral("Not read, with the reasons"));
  count_->setTextFormat(Qt::PlainText);
  connect(copy_, &QPushButton::clicked, this,
          [this] { QGuiApplication::clipboard()->setText(items_->toPlainText()); });
  connect(close_, &QPushButton::clicked, this, [this] { form_.cmdCloseClick(); });
  auto* const row = new QHBoxLayout;
  row->setSpacing(DialogSpacing);
  row->addStretch();
  for (QPushButton* const button : {copy_, close_}) {
    button->setMinimumWidth(DialogButtonWidth);
    button->setAutoDefault(false);
    row->addWidget(button);
  }
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogSpacing);
  column->addWidget(count_);
  column->addWidget(items_, 1);
  column->addLayout(row);
}

void NotReadWindow::Sync() {
  setWindowTitle(ToWindowTitle(form_.Caption));
  count_->setText(ToShownQString(form_.lblCount.Caption));
  const QString items = ToQString(form_.txtItems.Text);
  if (items_->toPlainText() != items) items_->setPlainText(items);
  copy_->setText(ToShownQString(form_.cmdCopy.Caption));
  copy_->setToolTip(ToShownQString(form_.cmdCopy.ToolTip));
  close_->setText(ToShownQString(form_.cmdClose.Caption));
  close_->setDefault(form_.cmdClose.Default);
}

void NotReadWindow::Measure() {
  const QSize room = screen()->availableGeometry().size() * 4 / 5;
  resize(UsualNotReadSize.expandedTo(minimumSizeHint()).boundedTo(room));
  form_.Width = ToTwips(width());
  form_.Height = ToTwips(height());
}

void NotReadWindow::Show(QWidget* owner) {
  ShowDialog(*this, form_, owner);
  items_->setFocus();
}

void NotReadWindow::reject() {
  if (!IsClosed()) form_.cmdCloseClick();
}

}  // namespace tarnwell::ui
