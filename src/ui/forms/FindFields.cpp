#include "ui/forms/FindFields.h"

#include <QEvent>

#include "ui/toolkit/Contrast.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/DialogMeasures.h"

namespace tarnwell::ui {

using tools::FindField;
using tools::FindSettings;

namespace {

constexpr int SizeLetters = 7, DateLetters = 17, LevelLetters = 3;
constexpr int FieldRim = 16;  // logical pixels of a box beside its letters
constexpr int FieldGap = 6;   // between rows
constexpr int GroupGap = 18;  // between fields in a row that have nothing to do with each other

QString NameOf(const char* caption) {
  return QString::fromLatin1(caption).remove(QLatin1Char('&')).remove(QLatin1Char(':'));
}

}  // namespace

FindFields::FindFields(tools::frmFind& form, const std::function<QPushButton*()>& makeChoose,
                       QWidget* parent)
    : QWidget(parent), form_(form) {
  auto* const grid = new QGridLayout(this);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(DialogSpacing);
  grid->setVerticalSpacing(FieldGap);
  grid->setColumnStretch(1, 1);
  QHBoxLayout* row = AddRow(*grid, "L&ook in:");
  QLineEdit* const folder = AddBox("Look in", &FindSettings::Folder, *row, 0);
  row->addWidget(makeChoose());  // in its place for the Tab key
  AddFault(*grid, FindField::Folder, folder);
  row = AddRow(*grid, "&Name:");
  name_ = AddBox("Name", &FindSettings::Name, *row, 0);
  name_->setPlaceholderText(QStringLiteral("Part of a name, or * ? #, several with ; between"));
  ofRegex_.push_back(AddCheck("Regular e&xpression", &FindSettings::IsNameRegex, *row));
  ofRegex_.back()->setAccessibleName(QStringLiteral("Regular expression for names"));
  AddFault(*grid, FindField::Name, name_);
  AddTextRows(*grid);
  AddFactRows(*grid);
  ColourFaults();
}

void FindFields::AddTextRows(QGridLayout& grid) {
  QHBoxLayout* row = AddRow(grid, "&Text:");
  QLineEdit* const text = AddBox("Text", &FindSettings::Text, *row, 0);
  text->setPlaceholderText(QStringLiteral("Within files; empty for any"));
  QCheckBox* const regex = AddCheck("Re&gular expression", &FindSettings::IsTextRegex, *row);
  regex->setAccessibleName(QStringLiteral("Regular expression for text"));
  QCheckBox* const matches = AddCheck("Match c&ase", &FindSettings::MatchesCase, *row);
  QCheckBox* const words = AddCheck("&Whole words", &FindSettings::IsWholeWords, *row);
  ofRegex_.insert(ofRegex_.end(), {regex, matches, words});
  row = AddRow(grid, nullptr);
  QCheckBox* const binary =
      AddCheck("Look into &binary files", &FindSettings::LooksIntoBinary, *row);
  row->addSpacing(GroupGap);
  QLabel* const label = AddLabel("S&kip files larger than", *row);
  QLineEdit* const largest =
      AddBox("Skip files larger than", &FindSettings::LargestFile, *row, SizeLetters);
  QComboBox* const unit = AddChoice("Unit of the largest file", &FindSettings::LargestFileUnit,
                                    tools::FindUnitNames, *row);
  row->addStretch();
  ofText_ = {regex, matches, words, binary, label, largest, unit};
  AddFault(grid, FindField::Text, text);
}

void FindFields::AddFactRows(QGridLayout& grid) {
  QHBoxLayout* row = AddRow(grid, "Si&ze:");
  AddLabel("from", *row);
  QLineEdit* const size = AddBox("Size from", &FindSettings::SizeFrom, *row, SizeLetters);
  AddChoice("Unit of the size from", &FindSettings::SizeFromUnit, tools::FindUnitNames, *row);
  AddLabel("to", *row);
  AddBox("Size to", &FindSettings::SizeTo, *row, SizeLetters);
  AddChoice("Unit of the size to", &FindSettings::SizeToUnit, tools::FindUnitNames, *row);
  row->addStretch();
  AddFault(grid, FindField::Size, size);
  row = AddRow(grid, "&Modified:");
  AddChoice("Modified", &FindSettings::Dates, tools::FindDatesNames, *row);
  ofDates_.push_back(AddLabel("from", *row));
  QLineEdit* const from = AddBox("Date from", &FindSettings::DateFrom, *row, DateLetters);
  ofDates_.push_back(from);
  ofDates_.push_back(AddLabel("to", *row));
  QLineEdit* const to = AddBox("Date to", &FindSettings::DateTo, *row, DateLetters);
  ofDates_.push_back(to);
  for (QLineEdit* const date : {from, to}) {
    date->setPlaceholderText(QStringLiteral("2026-03-28 13:05"));
    date->setToolTip(QStringLiteral("A day, with or without a time; empty for any"));
  }
  row->addStretch();
  AddFault(grid, FindField::Dates, from);
  row = AddRow(grid, "&Items:");
  AddCheck("Files", &FindSettings::FindsFiles, *row);
  AddCheck("Folders", &FindSettings::FindsFolders, *row);
  AddCheck("Links", &FindSettings::FindsLinks, *row);
  AddCheck("Others", &FindSettings::FindsOthers, *row)
      ->setToolTip(QStringLiteral("Devices, sockets and FIFOs"));
  row->addSpacing(GroupGap);
  AddCheck("&Hidden items", &FindSettings::TakesHidden, *row)
      ->setToolTip(QStringLiteral("Find hidden items, and look into hidden folders"));
  AddCheck("Other &volumes", &FindSettings::EntersVolumes, *row)
      ->setToolTip(QStringLiteral("Look into volumes that are mounted below the folder"));
  row->addSpacing(GroupGap);
  AddLabel("D&epth:", *row);
  AddChoice("Depth", &FindSettings::Depth, tools::FindDepthNames, *row);
  levels_ = AddBox("Levels", &FindSettings::Levels, *row, LevelLetters);
  row->addStretch();
  AddFault(grid, FindField::Kinds, nullptr);
}

// --- Parts

QHBoxLayout* FindFields::AddRow(QGridLayout& grid, const char* caption) {
  const int at = grid.rowCount();
  auto* const row = new QHBoxLayout;
  row->setSpacing(DialogSpacing);
  if (caption != nullptr) {
    captions_.push_back(new QLabel(QString::fromLatin1(caption), this));
    grid.addWidget(captions_.back(), at, 0);
  }
  grid.addLayout(row, at, 1);
  return row;
}

QLabel* FindFields::AddLabel(const char* caption, QBoxLayout& row) {
  captions_.push_back(new QLabel(QString::fromLatin1(caption), this));
  row.addWidget(captions_.back());
  return captions_.back();
}

void FindFields::AddField(QWidget* field, QBoxLayout& row, int stretch) {
  row.addWidget(field, stretch);
  for (QLabel* const caption : captions_) caption->setBuddy(field);
  captions_.clear();
}

QLineEdit* FindFields::AddBox(const char* name, std::string Settings::*member, QBoxLayout& row,
                              int letters) {
  auto* const edit = new QLineEdit(this);
  edit->setAccessibleName(QString::fromLatin1(name));
  if (letters > 0) {
    edit->setFixedWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * letters + FieldRim);
  }
  AddField(edit, row, letters > 0 ? 0 : 1);
  boxes_.push_back({edit, member});
  // Not textEdited, since assistive technology sets a text without editing it.
  connect(edit, &QLineEdit::textChanged, this, [this, member](const QString& text) {
    if (showing_) return;
    form_.Settings.*member = FromEditedQString(text);
    form_.Typed();
  });
  return edit;
}

QCheckBox* FindFields::AddCheck(const char* caption, bool Settings::*member, QBoxLayout& row) {
  auto* const check = new QCheckBox(QString::fromLatin1(caption), this);
  check->setAccessibleName(NameOf(caption));
  AddField(check, row, 0);
  checks_.push_back({check, member});
  connect(check, &QCheckBox::toggled, this, [this, member](bool on) {
    if (showing_) return;
    form_.Settings.*member = on;
    form_.Typed();
  });
  return check;
}

QComboBox* FindFields::AddChoice(const char* name, int Settings::*member,
                                 std::span<const std::string_view> texts, QBoxLayout& row) {
  auto* const combo = new QComboBox(this);
  combo->setAccessibleName(QString::fromLatin1(name));
  for (const std::string_view text : texts) combo->addItem(ToQString(text));
  AddField(combo, row, 0);
  choices_.push_back({combo, member});
  connect(combo, &QComboBox::currentIndexChanged, this, [this, member](int index) {
    if (showing_) return;
    form_.Settings.*member = index;
    form_.Typed();
  });
  return combo;
}

void FindFields::AddFault(QGridLayout& grid, FindField at, QLineEdit* field) {
  auto* const label = new QLabel(this);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setVisible(false);
  grid.addWidget(label, grid.rowCount(), 1);
  faults_.at(static_cast<std::size_t>(at)) = {label, field};
}

// --- What the form has

void FindFields::Sync() {
  showing_ = true;
  const FindSettings& settings = form_.Settings;
  for (const auto& [edit, member] : boxes_) {
    if (FromEditedQString(edit->text()) != settings.*member) {
      edit->setText(ToEditedQString(settings.*member));
    }
  }
  for (const auto& [check, member] : checks_) check->setChecked(settings.*member);
  for (const auto& [combo, member] : choices_) combo->setCurrentIndex(settings.*member);
  for (QWidget* const each : ofRegex_) each->setVisible(form_.TakesRegex());
  for (QWidget* const each : ofText_) each->setEnabled(!settings.Text.empty());
  for (QWidget* const each : ofDates_) each->setVisible(settings.Dates == tools::BetweenDates);
  levels_->setVisible(settings.Depth == tools::SomeLevels);
  SyncFaults();
  showing_ = false;
}

void FindFields::SyncFaults() {
  for (std::size_t at = 0; at < faults_.size(); ++at) {
    const QString text = ToShownQString(form_.Faults.at(at));
    const auto& [label, field] = faults_.at(at);
    label->setText(text);
    label->setVisible(!text.isEmpty());
    if (field != nullptr) field->setAccessibleDescription(text);
  }
}

void FindFields::Enter() {
  name_->setFocus();
  name_->selectAll();
}

void FindFields::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) ColourFaults();
}

void FindFields::ColourFaults() {
  const QColor red(190, 30, 30);
  QPalette colours = palette();
  const QColor text = Distinct(red, {colours.color(QPalette::Window)}, ReadableContrast);
  colours.setColor(QPalette::WindowText, text);
  for (const Fault& fault : faults_) {
    if (fault.Shown != nullptr) fault.Shown->setPalette(colours);
  }
}

}  // namespace tarnwell::ui
