#include "ui/forms/RenameItemsWindow.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QMenu>
#include <QScreen>
#include <QTextBlock>
#include <QVBoxLayout>
#include <utility>

#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/RoomyRows.h"
#include "ui/toolkit/ShowDialog.h"

namespace tarnwell::ui {

using fileops::frmRenameItems;

namespace {

// In logical pixels.
constexpr QSize UsualRenameSize(820, 600);
constexpr QSize LeastRenameSize(520, 400);

// What the cells of a column are given room for, by RenameColumn.
constexpr const char* RenameSamples[RenameColumnCount] = {
    "A name of about thirty letters", "A name of about thirty letters",
    "Another item gets this name too", "/home/somebody/Documents"};

QHBoxLayout* MakeRow(QVBoxLayout& column) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(DialogSpacing);
  column.addLayout(row);
  return row;
}

}  // namespace

RenameItemsWindow::RenameItemsWindow(frmRenameItems& form, const IconSource& icons)
    : form_(form), model_(form, icons), pages_(new QTabWidget(this)) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint);
  setMinimumSize(LeastRenameSize);
  setSizeGripEnabled(false);
  // The Tab key goes by the order in which they are made.
  pages_->addTab(MakeRulesPage(), QStringLiteral("By R&ules"));
  pages_->addTab(MakeLinesPage(), QStringLiteral("As a &List"));
  auto* const column = new QVBoxLayout(this);
  connect(pages_, &QTabWidget::currentChanged, this, [this, column](int page) {
    column->setStretchFactor(pages_, page);  // lines take room, rules none
    if (!showing_ && !IsClosed()) form_.ShowLines(page == 1);
  });
  SetUpTable();
  status_ = new QLabel(this);
  status_->setTextFormat(Qt::PlainText);
  status_->setWordWrap(true);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogSpacing);
  column->addWidget(pages_);
  column->addWidget(table_, 1);
  column->addWidget(status_);
  column->addLayout(MakeButtonRow());
  goOn_.setSingleShot(true);
  connect(&goOn_, &QTimer::timeout, this, [this] {
    if (!IsClosed() && form_.IsAtWork()) Guarded([this] { form_.GoOn(); });
  });
}

QLineEdit* RenameItemsWindow::AddBox(const char* caption, forms::TextBox& box, QBoxLayout& row,
                                     int letters) {
  auto* const label = new QLabel(QString::fromLatin1(caption), this);
  auto* const edit = new QLineEdit(this);
  label->setBuddy(edit);
  edit->setAccessibleName(QString::fromLatin1(caption).remove(QLatin1Char('&')));
  if (letters > 0) {
    constexpr int frame = 16;
    edit->setFixedWidth(fontMetrics().horizontalAdvance(QLatin1Char('0')) * letters + frame);
  }
  row.addWidget(label);
  row.addWidget(edit, letters > 0 ? 0 : 1);
  boxes_.push_back({edit, &box});
  // Not textEdited, since assistive technology sets a text without editing it.
  connect(edit, &QLineEdit::textChanged, this, [this, &box](const QString& text) {
    if (showing_ || IsClosed()) return;
    box.Text = FromEditedQString(text);
    form_.RulesTyped();
  });
  return edit;
}

void RenameItemsWindow::AddCheck(forms::CheckBox& check, QBoxLayout& row) {
  auto* const widget = new QCheckBox(this);
  row.addWidget(widget);
  checks_.push_back({widget, &check});
  connect(widget, &QCheckBox::toggled, this, [this, &check](bool on) {
    if (showing_ || IsClosed()) return;
    check.Checked = on;
    form_.RulesTyped();
  });
}

void RenameItemsWindow::AddCases(const char* caption, forms::ListBox& cases, QBoxLayout& row) {
  auto* const label = new QLabel(QString::fromLatin1(caption), this);
  auto* const combo = new QComboBox(this);
  label->setBuddy(combo);
  combo->setAccessibleName(QString::fromLatin1(caption).remove(QLatin1Char('&')));
  row.addWidget(label);
  row.addWidget(combo);
  cases_.push_back({combo, &cases});
  connect(combo, &QComboBox::currentIndexChanged, this, [this, &cases](int index) {
    if (showing_ || IsClosed()) return;
    cases.ListIndex = index;
    form_.RulesTyped();
  });
}

QWidget* RenameItemsWindow::MakeRulesPage() {
  constexpr int numberLetters = 8, digitsLetters = 3;
  auto* const page = new QWidget(this);
  auto* const column = new QVBoxLayout(page);
  column->setSpacing(DialogSpacing);
  QHBoxLayout* row = MakeRow(*column);
  pattern_ = AddBox("Ne&w name:", form_.txtPattern, *row, 0);
  fields_ = new QPushButton(this);
  fields_->setText(QStringLiteral("Insert &Field"));
  fields_->setAutoDefault(false);
  FillFieldMenu();
  row->addWidget(fields_);
  row = MakeRow(*column);
  AddBox("&Counter from:", form_.txtStart, *row, numberLetters);
  AddBox("St&ep:", form_.txtStep, *row, numberLetters);
  AddBox("&Digits at least:", form_.txtDigits, *row, digitsLetters);
  row->addStretch();
  row = MakeRow(*column);
  AddBox("&Search for:", form_.txtFind, *row, 0);
  AddBox("Replace w&ith:", form_.txtReplace, *row, 0);
  row = MakeRow(*column);
  AddCheck(form_.chkRegex, *row);
  AddCheck(form_.chkMatchCase, *row);
  AddCheck(form_.chkExtension, *row);
  row->addStretch();
  row = MakeRow(*column);
  AddCases("C&ase of the name:", form_.lstCase, *row);
  AddCases("Case &of the extension:", form_.lstExtensionCase, *row);
  row->addStretch();
  column->addStretch();
  return page;
}

QWidget* RenameItemsWindow::MakeLinesPage() {
  auto* const page = new QWidget(this);
  auto* const column = new QVBoxLayout(page);
  column->setSpacing(DialogSpacing);
  lines_ = new QPlainTextEdit(this);
  lines_->setLineWrapMode(QPlainTextEdit::NoWrap);
  lines_->setTabChangesFocus(true);
  lines_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  lines_->setAccessibleName(QStringLiteral("New names, one line for each item"));
  connect(lines_->document(), &QTextDocument::contentsChange, this,
          [this](int from, int, int added) { TakeLines(from, added); });
  connect(lines_, &QPlainTextEdit::cursorPositionChanged, this, [this] {
    if (!showing_) GoToRow(static_cast<std::size_t>(lines_->textCursor().blockNumber()));
  });
  column->addWidget(lines_, 1);
  QHBoxLayout* const row = MakeRow(*column);
  row->addWidget(new QLabel(QStringLiteral("One line for each item, in the order below."), this));
  row->addStretch();
  row->addWidget(AddButton(form_.cmdFromRules, &frmRenameItems::cmdFromRulesClick));
  return page;
}

QPushButton* RenameItemsWindow::AddButton(const forms::Button& button,
                                          void (frmRenameItems::*click)()) {
  auto* const widget = new QPushButton(this);
  widget->setMinimumWidth(DialogButtonWidth);
  widget->setAutoDefault(false);
  buttons_.push_back({widget, &button});
  connect(widget, &QPushButton::clicked, this,
          [this, click] { Guarded([&] { (form_.*click)(); }); });
  return widget;
}

QLayout* RenameItemsWindow::MakeButtonRow() {
  nextFault_ = new QPushButton(this);
  nextFault_->setAutoDefault(false);
  buttons_.push_back({nextFault_, &form_.cmdNextFault});
  connect(nextFault_, &QPushButton::clicked, this, [this] { GoToNextFault(); });
  auto* const row = new QHBoxLayout;
  row->setSpacing(DialogSpacing);
  row->addWidget(nextFault_);
  row->addStretch();
  row->addWidget(AddButton(form_.cmdRename, &frmRenameItems::cmdRenameClick));
  row->addWidget(AddButton(form_.cmdCancel, &frmRenameItems::cmdCancelClick));
  return row;
}

void RenameItemsWindow::SetUpTable() {
  table_ = new QTreeView(this);
  table_->setModel(&model_);
  table_->setRootIsDecorated(false);
  table_->setUniformRowHeights(true);
  table_->setAllColumnsShowFocus(true);
  table_->setAccessibleName(QStringLiteral("Names before and after"));
  table_->setItemDelegate(new RoomyRows(table_));
  table_->setTextElideMode(Qt::ElideMiddle);
  table_->setColumnHidden(static_cast<int>(RenameColumn::Folder),
                          !form_.Table().HasSeveralFolders());
  constexpr int padding = 40;
  for (int column = 0; column < RenameColumnCount; ++column) {
    const QString sample = QString::fromLatin1(RenameSamples[column]);
    table_->setColumnWidth(column, fontMetrics().horizontalAdvance(sample) + padding);
  }
}

void RenameItemsWindow::FillFieldMenu() {
  auto* const menu = new QMenu(fields_);
  for (const fileops::PatternField& field : fileops::PatternFields) {
    QAction* const action =
        menu->addAction(ToQString(field.Caption) + QLatin1Char('\t') + ToQString(field.Text));
    connect(action, &QAction::triggered, this, [this, &field] {
      pattern_->insert(ToQString(field.Text));
      pattern_->setFocus();
    });
  }
  fields_->setMenu(menu);
}

// --- What the form has

void RenameItemsWindow::Sync() {
  showing_ = true;
  setWindowTitle(ToWindowTitle(form_.Caption));
  pages_->setCurrentIndex(form_.IsByLines ? 1 : 0);
  for (const auto& [edit, box] : boxes_) {
    if (FromEditedQString(edit->text()) != box->Text) edit->setText(ToEditedQString(box->Text));
  }
  for (const auto& [widget, check] : checks_) {
    widget->setText(ToShownQString(check->Caption));
    widget->setChecked(check->Checked);
    widget->setVisible(check->Visible);
  }
  for (const auto& [combo, cases] : cases_) {
    if (combo->count() == 0) {
      for (const std::string& item : cases->Items) combo->addItem(ToQString(item));
    }
    combo->setCurrentIndex(cases->ListIndex);
  }
  for (const auto& [widget, button] : buttons_) {
    widget->setText(ToShownQString(button->Caption));
    widget->setEnabled(button->Enabled);
    widget->setDefault(button->Default);
  }
  status_->setText(ToShownQString(form_.lblStatus.Caption));
  SyncLines();
  if (tableVersion_ != form_.TableVersion()) model_.Renew();
  tableVersion_ = form_.TableVersion();
  showing_ = false;
  if (form_.IsAtWork()) goOn_.start();
}

void RenameItemsWindow::SyncLines() {
  if (linesVersion_ == form_.LinesVersion()) return;
  linesVersion_ = form_.LinesVersion();
  QStringList lines;
  for (const std::string& line : form_.Lines) lines << ToEditedQString(line);
  lines_->setPlainText(lines.join(QLatin1Char('\n')));
}

void RenameItemsWindow::Measure() {
  const QSize room = screen()->availableGeometry().size() * 4 / 5;
  resize(UsualRenameSize.expandedTo(minimumSizeHint()).boundedTo(room));
  form_.Width = ToTwips(width());
  form_.Height = ToTwips(height());
}

void RenameItemsWindow::Show(QWidget* owner) {
  ShowDialog(*this, form_, owner);
  pattern_->setFocus();
  pattern_->selectAll();
}

// --- What the user does

// The blocks as they are: the whole text would come with other blanks than a name may have.
void RenameItemsWindow::TakeLines(int from, int added) {
  if (showing_ || IsClosed()) return;
  const QTextDocument& text = *lines_->document();
  QTextBlock block = text.findBlock(from);
  const int first = block.blockNumber();
  std::vector<std::string> lines;
  for (; block.isValid() && (lines.empty() || block.position() <= from + added);
       block = block.next()) {
    lines.push_back(FromEditedQString(block.text()));
  }
  const std::size_t before = form_.Lines.size() + lines.size();
  const auto now = static_cast<std::size_t>(text.blockCount());
  form_.LinesTyped(static_cast<std::size_t>(first), before > now ? before - now : 0, lines);
}

void RenameItemsWindow::GoToRow(std::size_t row) {
  if (row >= form_.Table().Count()) return;
  table_->setCurrentIndex(model_.index(static_cast<int>(row), 0));
}

void RenameItemsWindow::GoToNextFault() {
  const QModelIndex current = table_->currentIndex();
  const std::size_t none = static_cast<std::size_t>(-1);
  const std::size_t row =
      form_.Table().NextFault(current.isValid() ? static_cast<std::size_t>(current.row()) : none);
  GoToRow(row);
  const QTextBlock line = lines_->document()->findBlockByNumber(static_cast<int>(row));
  if (!form_.IsByLines || !line.isValid()) return;
  QTextCursor cursor(line);
  cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
  lines_->setTextCursor(cursor);
  lines_->setFocus();
}

void RenameItemsWindow::reject() {
  if (!IsClosed()) form_.cmdCancelClick();
}

}  // namespace tarnwell::ui
