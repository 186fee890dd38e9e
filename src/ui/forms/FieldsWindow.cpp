#include "ui/forms/FieldsWindow.h"

#include <QSignalBlocker>
#include <algorithm>
#include <utility>

#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/ShowDialog.h"

namespace tarnwell::ui {
namespace {

constexpr int BoxWidth = 420;  // logical pixels

}  // namespace

FieldsWindow::FieldsWindow(forms::Form& form, Click cancel)
    : form_(form), cancel_(std::move(cancel)), grid_(new QGridLayout), buttonRow_(new QHBoxLayout) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  grid_->setSpacing(DialogSpacing);
  buttonRow_->addStretch();
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogSpacing);
  column->addLayout(grid_);
  column->addLayout(buttonRow_);
  column->setSizeConstraint(QLayout::SetFixedSize);
}

QLineEdit& FieldsWindow::AddBox(const forms::Label& label, forms::TextBox& box, bool fixed) {
  auto* const caption = new QLabel(this);
  auto* const edit = new QLineEdit(this);
  edit->setMinimumWidth(BoxWidth);
  edit->setReadOnly(fixed);
  if (fixed) edit->setFocusPolicy(Qt::ClickFocus);
  caption->setBuddy(edit);
  const int row = grid_->rowCount();
  grid_->addWidget(caption, row, 0);
  grid_->addWidget(edit, row, 1);
  const std::size_t index = boxes_.size();
  boxes_.push_back({&label, &box, caption, edit, {}, {}});
  if (fixed) return *edit;
  // Not textEdited, since assistive technology sets a text without editing it.
  connect(edit, &QLineEdit::textChanged, this, [this, index](const QString& text) {
    boxes_[index].Shown = boxes_[index].Form->Text = FromEditedQString(text);
  });
  return *edit;
}

void FieldsWindow::AddCheck(forms::CheckBox& check, const forms::Label& label) {
  auto* const widget = new QCheckBox(this);
  grid_->addWidget(widget, grid_->rowCount(), 1);
  checks_.push_back({&check, &label, widget});
  connect(widget, &QCheckBox::toggled, this, [&check](bool on) { check.Checked = on; });
}

void FieldsWindow::AddButton(const forms::Button& button, Click click) {
  auto* const widget = new QPushButton(this);
  widget->setMinimumWidth(DialogButtonWidth);
  buttonRow_->addWidget(widget);
  buttons_.push_back({&button, widget});
  connect(widget, &QPushButton::clicked, this, std::move(click));
}

void FieldsWindow::Sync() {
  setWindowTitle(ToWindowTitle(form_.Caption));
  for (Box& box : boxes_) SyncBox(box);
  for (const Check& check : checks_) {
    check.Widget->setText(ToShownQString(check.Label->Caption));
    check.Widget->setChecked(check.Form->Checked);
    check.Widget->setVisible(check.Form->Visible);
  }
  for (const ButtonPair& button : buttons_) {
    button.Widget->setText(ToShownQString(button.Form->Caption));
    button.Widget->setDefault(button.Form->Default);
  }
}

void FieldsWindow::SyncBox(Box& box) {
  box.Caption->setText(ToShownQString(box.Label->Caption));
  box.Edit->setAccessibleName(box.Caption->text());
  if (box.Shown != box.Form->Text) {
    box.Shown = box.Form->Text;
    const QSignalBlocker own(box.Edit);  // the form keeps its text as it is
    box.Edit->setText(box.Edit->isReadOnly() ? ToShownQString(box.Shown)
                                             : ToEditedQString(box.Shown));
    box.Edit->setCursorPosition(0);
  }
  PaletteColours colours = ColoursOf(palette());
  colours.Base = ToQColor(box.Form->BackColour);
  colours.Text = ToQColor(box.Form->ForeColour);
  box.Colours.Show(*box.Edit, colours);
}

void FieldsWindow::Measure() {
  const QSize size = sizeHint();
  form_.Width = ToTwips(size.width());
  form_.Height = ToTwips(size.height());
}

void FieldsWindow::Show(QWidget* owner) {
  ShowDialog(*this, form_, owner);
  const auto free =
      std::ranges::find_if(boxes_, [](const Box& box) { return !box.Edit->isReadOnly(); });
  if (free != boxes_.end()) {
    free->Edit->setFocus();
  } else {
    for (const ButtonPair& button : buttons_) {
      if (button.Form->Default) button.Widget->setFocus();
    }
  }
  if (OnShown) OnShown();
}

void FieldsWindow::reject() {
  if (!IsClosed()) cancel_();
}

}  // namespace tarnwell::ui
