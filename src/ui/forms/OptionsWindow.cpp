#include "ui/forms/OptionsWindow.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <cstddef>

#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/ShowDialog.h"
#include "ui/toolkit/SkinPalettes.h"

namespace tarnwell::ui {
namespace {

// Logical pixels.
constexpr int CategoriesWidth = 116;  // at least
constexpr int NumberWidth = 76;
constexpr int RowGap = 8;
constexpr int ColumnGap = 24;

// The letters that, with Alt, press the boxes and buttons.
constexpr char GeneralKey = 'G';
constexpr char SpeedKey = 'S';
constexpr char MinimizeKeys[] = {'T', 'y'};
constexpr char PlaceKeys[] = {'B', 'W'};
constexpr char RowKeys[] = {'F', 'r', 'C'};
constexpr char NumberKey = 'l';
constexpr char ApplyKey = 'A';

QString WithKey(const std::string& caption, char key) {
  const QString text = ToShownQString(caption);
  return QString(text).insert(text.indexOf(QLatin1Char(key)), QLatin1Char('&'));
}

QVBoxLayout* ColumnIn(QWidget* widget, int margin) {
  auto* const column = new QVBoxLayout(widget);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(RowGap);
  return column;
}

}  // namespace

OptionsWindow::OptionsWindow(settings::frmOptions& form)
    : form_(form),
      frame_(new QGroupBox(this)),
      general_(NewLabel(Category::General)),
      speed_(NewLabel(Category::Speed)),
      pages_(new QStackedWidget(this)) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowCloseButtonHint);
  pages_->addWidget(NewGeneralPage());
  pages_->addWidget(NewSpeedPage());
  FillCategories();
  auto* const upper = new QHBoxLayout;
  upper->setSpacing(PageSpacing);
  upper->addWidget(frame_);
  upper->addWidget(pages_, 1);
  auto* const column = ColumnIn(this, DialogMargin);
  column->setSpacing(DialogMargin);
  column->addLayout(upper);
  column->addLayout(NewButtonRow());
  column->setSizeConstraint(QLayout::SetFixedSize);
}

CategoryLabel* OptionsWindow::NewLabel(Category category) {
  auto* const label = new CategoryLabel([this, category] { form_.LabelMouseMove(category); }, this);
  // Not clicked, since the arrow keys choose without a click.
  connect(label, &CategoryLabel::toggled, this, [this, category](bool on) {
    if (on) form_.LabelClick(category);
  });
  return label;
}

void OptionsWindow::FillCategories() {
  auto* const sheet = new QFrame(frame_);
  sheet->setFrameShape(QFrame::StyledPanel);
  sheet->setPalette(FixedLightPalette());
  sheet->setAutoFillBackground(true);
  sheet->setMinimumWidth(CategoriesWidth);
  auto* const labels = ColumnIn(sheet, 4);
  labels->setSpacing(2);
  labels->addWidget(general_);
  labels->addWidget(speed_);
  labels->addStretch();
  ColumnIn(frame_, RowGap)->addWidget(sheet);
  for (QWidget* const each : {static_cast<QWidget*>(frame_), static_cast<QWidget*>(sheet)}) {
    each->setMouseTracking(true);
    each->installEventFilter(this);
  }
}

QWidget* OptionsWindow::NewGeneralPage() {
  generalPage_ = new QGroupBox(this);
  minimizing_ = NewPair(options_, &settings::frmOptions::Select);
  operations_ = NewPair(places_, &settings::frmOptions::SelectOperations);
  QVBoxLayout* const column = ColumnIn(generalPage_, DialogMargin);
  column->setSpacing(DialogMargin);
  column->addWidget(minimizing_);
  column->addWidget(operations_);
  column->addStretch();
  return generalPage_;
}

QGroupBox* OptionsWindow::NewPair(std::array<QRadioButton*, 2>& buttons,
                                  void (settings::frmOptions::*select)(std::size_t)) {
  auto* const frame = new QGroupBox(generalPage_);
  QVBoxLayout* const choices = ColumnIn(frame, DialogSpacing);
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    buttons[i] = new QRadioButton(frame);
    choices->addWidget(buttons[i]);
    connect(buttons[i], &QRadioButton::toggled, this, [this, select, i](bool on) {
      if (on) (form_.*select)(i);
    });
  }
  return frame;
}

QWidget* OptionsWindow::NewSpeedPage() {
  speedPage_ = new QGroupBox(this);
  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(ColumnGap);
  grid->setVerticalSpacing(RowGap);
  slower_ = new QLabel(speedPage_);
  faster_ = new QLabel(speedPage_);
  grid->addWidget(slower_, 0, 1);
  grid->addWidget(faster_, 0, 2);
  for (std::size_t box = 0; box < boxes_.size(); ++box) {
    const std::size_t row = box / 2;
    const int line = static_cast<int>(row) + 1;
    boxes_[box] = new QCheckBox(speedPage_);
    grid->addWidget(boxes_[box], line, static_cast<int>(box % 2) + 1);
    connect(boxes_[box], &QCheckBox::toggled, this,
            [this, box](bool on) { Guarded([&] { form_.Check(box, on); }); });
    if (box % 2 != 0) continue;
    rows_[row] = new QLabel(speedPage_);
    rows_[row]->setBuddy(boxes_[box]);
    grid->addWidget(rows_[row], line, 0);
  }
  grid->setColumnStretch(0, 1);
  QVBoxLayout* const column = ColumnIn(speedPage_, DialogMargin);
  column->addLayout(grid);
  column->addSpacing(RowGap);
  column->addLayout(NewNumberRow());
  column->addStretch();
  return speedPage_;
}

QLayout* OptionsWindow::NewNumberRow() {
  numberLabel_ = new QLabel(speedPage_);
  number_ = new QLineEdit(speedPage_);
  number_->setFixedWidth(NumberWidth);
  numberLabel_->setBuddy(number_);
  files_ = new QLabel(speedPage_);
  connect(number_, &QLineEdit::textChanged, this, [this](const QString& text) {
    shownNumber_ = form_.txtNumColor.Text = FromEditedQString(text);
  });
  auto* const row = new QHBoxLayout;
  row->setSpacing(RowGap);
  row->addWidget(numberLabel_);
  row->addWidget(number_);
  row->addWidget(files_);
  row->addStretch();
  return row;
}

QLayout* OptionsWindow::NewButtonRow() {
  ok_ = new QPushButton(this);
  apply_ = new QPushButton(this);
  connect(ok_, &QPushButton::clicked, this, [this] { Guarded([&] { form_.cmdOKClick(); }); });
  connect(apply_, &QPushButton::clicked, this, [this] { Guarded([&] { form_.cmdApplyClick(); }); });
  auto* const row = new QHBoxLayout;
  row->setSpacing(DialogSpacing);
  row->addStretch();
  for (QPushButton* const button : {ok_, apply_}) {
    button->setMinimumWidth(DialogButtonWidth);
    row->addWidget(button);
  }
  return row;
}

void OptionsWindow::Sync() {
  setWindowTitle(ToWindowTitle(form_.Caption));
  frame_->setTitle(ToShownQString(form_.Frame1.Caption));
  generalPage_->setTitle(ToShownQString(form_.frmGeneral.Caption));
  speedPage_->setTitle(ToShownQString(form_.frmSpeed.Caption));
  minimizing_->setTitle(ToShownQString(form_.Frame3.Caption));
  operations_->setTitle(ToShownQString(form_.Frame4.Caption));
  pages_->setCurrentWidget(form_.IsInView(form_.frmGeneral) ? generalPage_ : speedPage_);
  general_->setText(WithKey(form_.lblGeneral.Caption, GeneralKey));
  speed_->setText(WithKey(form_.lblSpeed.Caption, SpeedKey));
  SyncLabel(*general_, form_.lblGeneral, Category::General);
  SyncLabel(*speed_, form_.lblSpeed, Category::Speed);
  for (std::size_t i = 0; i < options_.size(); ++i) {
    options_[i]->setText(WithKey(form_.optMin[i].Caption, MinimizeKeys[i]));
    if (form_.optMin[i].Selected) SetChecked(*options_[i], true);
    places_[i]->setText(WithKey(form_.optOperations[i].Caption, PlaceKeys[i]));
    if (form_.optOperations[i].Selected) SetChecked(*places_[i], true);
  }
  SyncRows();
  ok_->setText(ToShownQString(form_.cmdOK.Caption));
  ok_->setDefault(form_.cmdOK.Default);
  apply_->setText(WithKey(form_.cmdApply.Caption, ApplyKey));
}

// The form has it so already.
void OptionsWindow::SetChecked(QAbstractButton& button, bool on) {
  const QSignalBlocker own(&button);
  button.setChecked(on);
}

void OptionsWindow::SyncLabel(CategoryLabel& label, const forms::Label& shown, Category category) {
  label.SetTextColour(ToQColor(shown.ForeColour));
  if (form_.Category() == category) SetChecked(label, true);
}

void OptionsWindow::SyncRows() {
  slower_->setText(ToShownQString(form_.lblSlower.Caption));
  faster_->setText(ToShownQString(form_.lblFaster.Caption));
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    rows_[row]->setText(WithKey(form_.lblRow[row].Caption, RowKeys[row]));
  }
  for (std::size_t box = 0; box < boxes_.size(); ++box) {
    boxes_[box]->setText(ToShownQString(form_.chk[box].Caption));
    boxes_[box]->setAccessibleName(QStringLiteral("%1: %2, %3")
                                       .arg(ToShownQString(form_.lblRow[box / 2].Caption),
                                            boxes_[box]->text(),
                                            (box % 2 == 0 ? slower_ : faster_)->text()));
    SetChecked(*boxes_[box], form_.chk[box].Checked);
  }
  numberLabel_->setText(WithKey(form_.lblNumColor.Caption, NumberKey));
  files_->setText(ToShownQString(form_.lblFiles.Caption));
  number_->setAccessibleName(ToShownQString(form_.lblNumColor.Caption));
  if (shownNumber_ == form_.txtNumColor.Text) return;
  shownNumber_ = form_.txtNumColor.Text;
  const QSignalBlocker own(number_);
  number_->setText(ToEditedQString(shownNumber_));
}

void OptionsWindow::Measure() {
  const QSize size = sizeHint();
  form_.Width = ToTwips(size.width());
  form_.Height = ToTwips(size.height());
}

void OptionsWindow::Show(QWidget* owner) {
  const bool wasShown = isVisible();
  ShowDialog(*this, form_, owner);
  if (!wasShown) general_->setFocus();
}

bool OptionsWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && !IsClosed()) form_.ShowSettings();
  return QDialog::event(event);
}

bool OptionsWindow::eventFilter(QObject* watched, QEvent* event) {
  const bool isOver = event->type() == QEvent::MouseMove || event->type() == QEvent::Leave;
  if (isOver && !IsClosed()) form_.Frame1MouseMove();
  return QDialog::eventFilter(watched, event);
}

void OptionsWindow::reject() {
  if (!IsClosed()) form_.Close();
}

}  // namespace tarnwell::ui
