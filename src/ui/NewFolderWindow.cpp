#include "ui/NewFolderWindow.h"

#include <QGridLayout>
#include <QHBoxLayout>

#include "ui/ShowDialog.h"

namespace tarnwell::ui {
namespace {

constexpr int BoxWidth = 420;  // logical pixels
constexpr int Margin = 14;

void SetColours(QLineEdit& edit, const forms::TextBox& box) {
  QPalette palette = edit.palette();
  palette.setColor(QPalette::Base, ToQColor(box.BackColour));
  palette.setColor(QPalette::Text, ToQColor(box.ForeColour));
  edit.setPalette(palette);
}

}  // namespace

NewFolderWindow::NewFolderWindow(fileops::popNewFolder& form) : form_(form) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  folder_.setReadOnly(true);
  folder_.setFocusPolicy(Qt::ClickFocus);
  folderLabel_.setBuddy(&folder_);
  nameLabel_.setBuddy(&name_);
  for (QLineEdit* box : {&folder_, &name_}) box->setMinimumWidth(BoxWidth);

  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(Margin, Margin, Margin, Margin);
  grid->setVerticalSpacing(10);
  grid->setHorizontalSpacing(10);
  grid->addWidget(&folderLabel_, 0, 0);
  grid->addWidget(&folder_, 0, 1);
  grid->addWidget(&nameLabel_, 1, 0);
  grid->addWidget(&name_, 1, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (QPushButton* button : {&create_, &cancel_}) {
    button->setMinimumWidth(88);
    buttons->addWidget(button);
  }
  grid->addLayout(buttons, 2, 0, 1, 2);
  grid->setSizeConstraint(QLayout::SetFixedSize);
  create_.setDefault(true);

  connect(&name_, &QLineEdit::textEdited, this,
          [this](const QString& text) { form_.txtNewFolderName.Text = text.toStdString(); });
  connect(&create_, &QPushButton::clicked, this, [this] { form_.cmdCopyClick(); });
  connect(&cancel_, &QPushButton::clicked, this, [this] { form_.cmdCancelClick(); });
}

void NewFolderWindow::Sync() {
  setWindowTitle(ToShownQString(form_.Caption));
  folderLabel_.setText(ToShownQString(form_.Label1.Caption));
  nameLabel_.setText(ToShownQString(form_.Label2.Caption));
  folder_.setAccessibleName(folderLabel_.text());
  name_.setAccessibleName(nameLabel_.text());
  folder_.setText(ToShownQString(form_.txtDest.Text));
  const QString typed = QString::fromStdString(form_.txtNewFolderName.Text);
  if (name_.text() != typed) name_.setText(typed);
  SetColours(folder_, form_.txtDest);
  SetColours(name_, form_.txtNewFolderName);
  create_.setText(ToShownQString(form_.cmdCopy.Caption));
  cancel_.setText(ToShownQString(form_.cmdCancel.Caption));
}

void NewFolderWindow::Measure() {
  const QSize size = sizeHint();
  form_.Width = ToTwips(size.width());
  form_.Height = ToTwips(size.height());
}

void NewFolderWindow::Show(QWidget* owner) {
  ShowDialog(*this, form_, owner);
  name_.setFocus();
}

void NewFolderWindow::reject() {
  if (!IsClosed()) form_.cmdCancelClick();
}

}  // namespace tarnwell::ui
