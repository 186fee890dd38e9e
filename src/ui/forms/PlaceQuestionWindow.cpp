#include "ui/forms/PlaceQuestionWindow.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QTextDocument>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/ShowDialog.h"

namespace tarnwell::ui {
namespace {

// In logical pixels.
constexpr int QuestionWidth = 440;
constexpr int LeastQuestionHeight = 40;

}  // namespace

PlaceQuestionWindow::PlaceQuestionWindow(tools::popPlaceQuestion& form)
    : form_(form), text_(new QPlainTextEdit(this)), grid_(new QGridLayout) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  setWindowTitle(ToWindowTitle(form_.Caption));
  text_->setReadOnly(true);
  text_->setFrameShape(QFrame::NoFrame);
  text_->document()->setDocumentMargin(0);  // in line with the fields
  text_->setBackgroundVisible(false);
  text_->viewport()->setAutoFillBackground(false);
  text_->setFocusPolicy(Qt::NoFocus);
  text_->setFixedWidth(QuestionWidth);
  text_->setPlainText(ToShownLines(form_.txtQuestion.Text));
  text_->setAccessibleName(text_->toPlainText());
  setAccessibleDescription(text_->toPlainText());

  grid_->setSpacing(DialogSpacing);
  if (form_.chkAnonymous.Visible) {
    auto* const anonymous = new QCheckBox(ToQString(form_.chkAnonymous.Caption), this);
    grid_->addWidget(anonymous, 0, 1);
    connect(anonymous, &QCheckBox::toggled, this, [this](bool on) { form_.chkAnonymousClick(on); });
  }
  AddField(form_.lblUser, form_.txtUser, QLineEdit::Normal);
  AddField(form_.lblDomain, form_.txtDomain, QLineEdit::Normal);
  AddField(form_.lblPassword, form_.txtPassword, QLineEdit::Password);
  AddOptions();
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogSpacing);
  column->addWidget(text_);
  column->addLayout(grid_);
  column->addLayout(MakeButtons());
  column->setSizeConstraint(QLayout::SetFixedSize);
}

void PlaceQuestionWindow::AddField(const forms::Label& label, forms::TextBox& box,
                                   QLineEdit::EchoMode echo) {
  if (!box.Visible) return;
  auto* const caption = new QLabel(ToQString(label.Caption), this);
  auto* const edit = new QLineEdit(this);
  edit->setEchoMode(echo);
  edit->setText(ToEditedQString(box.Text));
  caption->setBuddy(edit);
  const int row = grid_->rowCount();
  grid_->addWidget(caption, row, 0);
  grid_->addWidget(edit, row, 1);
  fields_.push_back({&box, edit});
  connect(edit, &QLineEdit::textChanged, this,
          [&box](const QString& text) { box.Text = FromEditedQString(text); });
}

void PlaceQuestionWindow::AddOptions() {
  for (std::size_t i = 0; i < form_.optKeep.size(); ++i) {
    const forms::OptionButton& option = form_.optKeep.at(i);
    if (!option.Visible) return;
    auto* const widget = new QRadioButton(ToQString(option.Caption), this);
    widget->setChecked(option.Selected);
    grid_->addWidget(widget, grid_->rowCount(), 1);
    options_.push_back(widget);
    connect(widget, &QRadioButton::toggled, this, [this, i](bool on) {
      if (on) form_.optKeepClick(i);
    });
  }
}

QLayout* PlaceQuestionWindow::MakeButtons() {
  auto* const row = new QHBoxLayout;
  row->setSpacing(DialogSpacing);
  row->addStretch();
  const auto add = [this, row](const forms::Button& button) {
    auto* const widget = new QPushButton(ToShownQString(button.Caption), this);
    widget->setMinimumWidth(DialogButtonWidth);
    widget->setDefault(button.Default);
    if (button.Default) default_ = widget;
    row->addWidget(widget);
    return widget;
  };
  for (std::size_t i = 0; i < form_.cmdChoice.size(); ++i) {
    if (!form_.cmdChoice[i].Visible) continue;
    connect(add(form_.cmdChoice[i]), &QPushButton::clicked, this,
            [this, i] { form_.cmdChoiceClick(i); });
  }
  connect(add(form_.cmdCancel), &QPushButton::clicked, this, [this] { form_.cmdCancelClick(); });
  return row;
}

void PlaceQuestionWindow::Sync() {
  for (const Field& field : fields_) field.Edit->setEnabled(field.Form->Enabled);
  for (std::size_t i = 0; i < options_.size(); ++i) {
    options_[i]->setEnabled(form_.optKeep.at(i).Enabled);
  }
}

void PlaceQuestionWindow::Measure() {
  ensurePolished();
  text_->ensurePolished();
  QTextDocument page;
  page.setDefaultFont(text_->font());
  page.setDocumentMargin(text_->document()->documentMargin());
  // As with a scroll bar: words that only just fit may be broken otherwise.
  page.setTextWidth(QuestionWidth - text_->verticalScrollBar()->sizeHint().width());
  page.setPlainText(text_->toPlainText());
  const int wanted = static_cast<int>(page.size().height()) + text_->fontMetrics().lineSpacing();
  const int most = screen()->availableGeometry().height() / 2;  // a longer one scrolls
  text_->setFixedHeight(
      std::clamp(wanted, LeastQuestionHeight, std::max(most, LeastQuestionHeight)));
  const QSize size = sizeHint();
  form_.Width = ToTwips(size.width());
  form_.Height = ToTwips(size.height());
}

// The first field that nobody has filled in yet has the keyboard.
void PlaceQuestionWindow::Show(QWidget* owner) {
  ShowDialog(*this, form_, owner);
  const auto empty =
      std::ranges::find_if(fields_, [](const Field& field) { return field.Form->Text.empty(); });
  if (empty != fields_.end()) {
    empty->Edit->setFocus();
  } else if (default_ != nullptr) {
    default_->setFocus();
  }
}

void PlaceQuestionWindow::reject() {
  if (!IsClosed()) form_.cmdCancelClick();
}

}  // namespace tarnwell::ui
