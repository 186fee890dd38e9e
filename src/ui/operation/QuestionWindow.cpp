#include "ui/operation/QuestionWindow.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <algorithm>
#include <utility>

#include "ui/toolkit/Convert.h"
#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/ElidedLabel.h"
#include "ui/toolkit/ScrollPage.h"

namespace tarnwell::ui {
namespace {

constexpr int BodyWidth = 510;  // logical pixels, at least
constexpr int QuestionRowSpacing = 6;
constexpr int ListRows = 8;  // at once
constexpr int QuestionPictureSize = 32;
constexpr int ButtonPadding = 16;

// Text that makes the window no wider, but takes the width that wider parts and buttons give: a
// label of fixed width would be reckoned with as if it took it too, and come out too low.
QLabel* WrappedText(const QString& text, QWidget* parent) {
  auto* const label = new QLabel(text, parent);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setMinimumWidth(BodyWidth);
  QSizePolicy policy = label->sizePolicy();
  policy.setHorizontalPolicy(QSizePolicy::Ignored);
  label->setSizePolicy(policy);
  return label;
}

}  // namespace

QuestionWindow::QuestionWindow(const QString& title, const QString& heading, const QIcon& picture)
    : body_(new QVBoxLayout), buttons_(new QHBoxLayout) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  setWindowTitle(title);
  setObjectName(QStringLiteral("QuestionWindow"));
  auto* const sign = new QLabel(this);
  sign->setPixmap(
      picture.pixmap(QSize(QuestionPictureSize, QuestionPictureSize), devicePixelRatio()));
  QLabel* const head = WrappedText(heading, this);
  QFont bold = head->font();
  bold.setBold(true);
  head->setFont(bold);
  Describe(heading);

  body_->setSpacing(DialogSpacing);
  body_->addWidget(head);
  auto* const page = new QWidget(this);
  auto* const upper = new QHBoxLayout(page);
  upper->setContentsMargins(0, 0, 0, 0);
  upper->setSpacing(DialogMargin);
  upper->addWidget(sign, 0, Qt::AlignTop);
  upper->addLayout(body_);
  buttons_->addStretch();
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogMargin);
  column->addWidget(new ScrollPage(page, this));
  column->addLayout(buttons_);
  column->setSizeConstraint(QLayout::SetFixedSize);
}

void QuestionWindow::Describe(const QString& line) {
  const QString before = accessibleDescription();
  setAccessibleDescription(before.isEmpty() ? line : before + '\n' + line);
}

void QuestionWindow::AddText(const QString& text) {
  Describe(text);
  AddPart(*WrappedText(text, this));
}

void QuestionWindow::AddList(const QString& text, const QStringList& lines) {
  AddText(text);
  auto* const list = new QListWidget(this);
  list->addItems(lines);
  for (int row = 0; row < list->count(); ++row) list->item(row)->setToolTip(lines.at(row));
  list->setAccessibleName(text);
  list->setUniformItemSizes(true);
  list->setTextElideMode(Qt::ElideMiddle);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setMinimumWidth(BodyWidth);
  const int rows = std::min(list->count(), ListRows);
  list->setFixedHeight(rows * list->sizeHintForRow(0) + 2 * list->frameWidth());
  AddPart(*list);
}

void QuestionWindow::AddPart(QWidget& part) {
  facts_ = nullptr;
  body_->addWidget(&part);
}

void QuestionWindow::AddRow(const QString& caption, const QString& text, QWidget& content) {
  Describe(caption + ' ' + text);
  if (facts_ == nullptr) {
    facts_ = new QGridLayout;
    facts_->setHorizontalSpacing(DialogSpacing);
    facts_->setVerticalSpacing(QuestionRowSpacing);
    facts_->setColumnStretch(1, 1);
    body_->addLayout(facts_);
  }
  const int row = facts_->rowCount();
  facts_->addWidget(new QLabel(caption, this), row, 0, Qt::AlignTop);
  facts_->addWidget(&content, row, 1);
}

void QuestionWindow::AddPath(const QString& caption, const std::string& path) {
  auto* const label = new ElidedLabel(this);
  const QString text = ToShownQString(path);
  label->ShowText(text);
  AddRow(caption, text, *label);
}

void QuestionWindow::AddFact(const QString& caption, const QString& text) {
  auto* const label = new QLabel(text, this);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  AddRow(caption, text, *label);
}

QCheckBox& QuestionWindow::AddCheck(const QString& text) {
  auto* const check = new QCheckBox(text, this);
  AddPart(*check);
  return *check;
}

void QuestionWindow::AddButton(const QString& caption, Role role, Choice choose) {
  auto* const button = new QPushButton(caption, this);
  button->setMinimumWidth(std::max(DialogButtonWidth, button->sizeHint().width() + ButtonPadding));
  role == Role::Aside ? buttons_->insertWidget(0, button) : buttons_->addWidget(button);
  if (role == Role::Cancel || role == Role::DefaultCancel) cancel_ = choose;
  connect(button, &QPushButton::clicked, this,
          [this, choose = std::move(choose)] { Choose(choose); });
  if (role != Role::Default && role != Role::DefaultCancel) return;
  button->setDefault(true);
  button->setFocus();
}

void QuestionWindow::Choose(const Choice& choice) {
  if (!std::exchange(answered_, true)) choice();
}

}  // namespace tarnwell::ui
