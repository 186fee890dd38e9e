#include "ui/forms/UpdateWindow.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "ui/toolkit/Convert.h"
#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/ShowDialog.h"
#include "ui/toolkit/SkinPalettes.h"

namespace tarnwell::ui {
namespace {

constexpr QSize NewsSize(520, 280);  // logical pixels, at first

}  // namespace

UpdateWindow::UpdateWindow(tools::frmUpdate& form) : form_(form) {
  setPalette(FixedLightPalette(ToQColor(form.BackColour)));
  news_.setReadOnly(true);
  news_.setTabChangesFocus(true);
  news_.setAccessibleName(QStringLiteral("News"));
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(&update_);
  buttons->addWidget(&pass_);
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogSpacing);
  column->addWidget(&news_);
  column->addLayout(buttons);
  connect(&update_, &QPushButton::clicked, this, [this] { form_.cmdUpdateClick(); });
  connect(&pass_, &QPushButton::clicked, this, [this] { form_.cmdPassClick(); });
}

void UpdateWindow::Sync() {
  setWindowTitle(ToWindowTitle(form_.Caption));
  const QString news = ToShownLines(form_.txtNews.Text);
  if (news_.toPlainText() != news) news_.setPlainText(news);
  update_.setText(ToShownQString(form_.cmdUpdate.Caption));
  update_.setDefault(form_.cmdUpdate.Default);
  pass_.setText(ToShownQString(form_.cmdPass.Caption));
}

void UpdateWindow::Measure() {
  for (QPushButton* const button : {&update_, &pass_}) {
    button->setMinimumWidth(button->sizeHint().width() + DialogMargin);
  }
  news_.setMinimumSize(NewsSize);
  resize(sizeHint());
  news_.setMinimumSize(NewsSize / 2);  // the user may make it smaller
  form_.Width = ToTwips(width());
  form_.Height = ToTwips(height());
}

void UpdateWindow::Show(QWidget* owner) {
  setAttribute(Qt::WA_ShowWithoutActivating, !form_.TakesKeyboard);
  ShowDialog(*this, form_, owner);
  update_.setFocus();
}

void UpdateWindow::reject() {
  if (!IsClosed()) form_.CloseClick();
}

}  // namespace tarnwell::ui
