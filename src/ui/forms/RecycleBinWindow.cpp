#include "ui/forms/RecycleBinWindow.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/toolkit/DialogMeasures.h"
#include "ui/toolkit/ShowDialog.h"

namespace tarnwell::ui {

using fileops::frmRecycleBin;
using fileops::TrashColumn;

namespace {

// In logical pixels.
constexpr QSize UsualBinSize(900, 520);
constexpr QSize LeastBinSize(420, 260);
constexpr int CellPadding = 24;

constexpr int NewsTime = 100;  // milliseconds between two changes of the rows

// What the cells of a column are given room for, by TrashColumn.
constexpr const char* SampleTexts[fileops::TrashColumnCount] = {
    "A name of about thirty letters", "/home/somebody/Documents/A folder", "28.12.2028 20:48:58 PM",
    "88,888,888,888", "Extension file"};

struct MenuEntry {
  const char* Caption;  // null for a line
  forms::Button frmRecycleBin::*Button;
  void (frmRecycleBin::*Click)();
};
constexpr MenuEntry MenuEntries[] = {
    {"&Restore", &frmRecycleBin::cmdRestore, &frmRecycleBin::cmdRestoreClick},
    {"&Open Original Folder", &frmRecycleBin::cmdOpenFolder, &frmRecycleBin::cmdOpenFolderClick},
    {nullptr, nullptr, nullptr},
    {"&Delete...\tDel", &frmRecycleBin::cmdDelete, &frmRecycleBin::cmdDeleteClick},
    {"&Properties\tAlt+Enter", &frmRecycleBin::cmdProperties, &frmRecycleBin::cmdPropertiesClick},
};

}  // namespace

RecycleBinWindow::RecycleBinWindow(frmRecycleBin& form, const IconSource& icons)
    : form_(form),
      model_(form, icons, nullptr),
      list_(new TrashList(this)),
      filter_(new QLineEdit(this)),
      status_(new ElidedLabel(this)),
      note_(new ElidedLabel(this)) {
  setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint);
  setMinimumSize(LeastBinSize);
  setSizeGripEnabled(false);
  form_.RowsView = this;
  news_.setSingleShot(true);
  connect(&news_, &QTimer::timeout, this, [this] {
    if (!IsClosed()) form_.ShowNews();
  });

  list_->setModel(&model_);
  connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &RecycleBinWindow::TakeSelection);
  connect(list_->header(), &QHeaderView::sectionClicked, this,
          [this](int section) { ClickHeading(static_cast<TrashColumn>(section)); });
  connect(list_, &TrashList::Typed, this, &RecycleBinWindow::EnterFilter);
  connect(list_, &TrashList::MenuAsked, this, &RecycleBinWindow::ShowMenu);
  connect(list_, &TrashList::PropertiesAsked, this, [this] { form_.cmdPropertiesClick(); });
  connect(list_, &TrashList::DeleteAsked, this, [this] { form_.cmdDeleteClick(); });

  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(DialogMargin, DialogMargin, DialogMargin, DialogMargin);
  column->setSpacing(DialogSpacing);
  column->addLayout(MakeFilterRow());
  column->addWidget(list_, 1);
  auto* const lines = new QVBoxLayout;
  lines->setSpacing(2);
  lines->addWidget(status_);
  lines->addWidget(note_);
  column->addLayout(lines);
  column->addLayout(MakeButtonRow());
  AddKeys();
  FitColumns();
}

QLayout* RecycleBinWindow::MakeFilterRow() {
  auto* const label = new QLabel(QStringLiteral("&Filter:"), this);
  label->setBuddy(filter_);
  filter_->setAccessibleName(QStringLiteral("Filter of the recycle bin"));
  filter_->setPlaceholderText(QStringLiteral("Part of a name, or * ? #"));
  filter_->setToolTip(
      QStringLiteral("Show names that fit: * any characters, ? one character, # one digit"));
  filter_->setClearButtonEnabled(true);
  filter_->installEventFilter(this);
  // Not textEdited, since assistive technology sets a text without editing it.
  connect(filter_, &QLineEdit::textChanged, this,
          [this](const QString& text) { form_.FilterTyped(FromEditedQString(text)); });
  auto* const row = new QHBoxLayout;
  row->setSpacing(DialogSpacing);
  row->addWidget(label);
  row->addWidget(filter_, 1);
  return row;
}

QPushButton* RecycleBinWindow::AddButton(const forms::Button& button,
                                         void (frmRecycleBin::*click)()) {
  auto* const widget = new QPushButton(this);
  widget->setMinimumWidth(DialogButtonWidth);
  widget->setAutoDefault(false);
  connect(widget, &QPushButton::clicked, this,
          [this, click] { Guarded([&] { (form_.*click)(); }); });
  buttons_.push_back({&button, widget});
  return widget;
}

QLayout* RecycleBinWindow::MakeButtonRow() {
  auto* const row = new QHBoxLayout;
  row->setSpacing(DialogSpacing);
  row->addWidget(AddButton(form_.cmdRestore, &frmRecycleBin::cmdRestoreClick));
  row->addWidget(AddButton(form_.cmdOpenFolder, &frmRecycleBin::cmdOpenFolderClick));
  row->addWidget(AddButton(form_.cmdProperties, &frmRecycleBin::cmdPropertiesClick));
  row->addStretch();
  row->addWidget(AddButton(form_.cmdDelete, &frmRecycleBin::cmdDeleteClick));
  row->addWidget(AddButton(form_.cmdEmpty, &frmRecycleBin::cmdEmptyClick));
  row->addStretch();
  row->addWidget(AddButton(form_.cmdClose, &frmRecycleBin::cmdCloseClick));
  return row;
}

void RecycleBinWindow::AddKeys() {
  const auto add = [this](const QKeySequence& key, auto act) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, act);
  };
  add(Qt::CTRL | Qt::Key_F, [this] { EnterFilter({}); });
  add(Qt::Key_F5, [this] { form_.Refresh(); });
  add(Qt::ALT | Qt::Key_Return, [this] { form_.cmdPropertiesClick(); });
  add(Qt::ALT | Qt::Key_Enter, [this] { form_.cmdPropertiesClick(); });
}

void RecycleBinWindow::FitColumns() {
  for (int section = 0; section < model_.columnCount(); ++section) {
    const QString sample = QString::fromLatin1(SampleTexts[section]);
    list_->setColumnWidth(section, fontMetrics().horizontalAdvance(sample) + CellPadding);
  }
}

// --- What the form has

void RecycleBinWindow::Sync() {
  setWindowTitle(ToWindowTitle(form_.Caption));
  if (const QString text = ToEditedQString(form_.txtFilter.Text); filter_->text() != text) {
    filter_->setText(text);
  }
  for (const ButtonPair& each : buttons_) {
    each.Widget->setText(ToShownQString(each.Form->Caption));
    each.Widget->setToolTip(ToShownQString(each.Form->ToolTip));
    each.Widget->setEnabled(each.Form->Enabled);
  }
  status_->ShowText(ToQString(form_.lblStatus.Caption));
  note_->ShowText(ToQString(form_.lblNote.Caption));
  // The toolkit's arrow points the other way than those of the lists.
  list_->header()->setSortIndicator(
      static_cast<int>(form_.Rows().SortColumn()),
      form_.Rows().IsDescending() ? Qt::AscendingOrder : Qt::DescendingOrder);
  if (form_.HasNews() && !news_.isActive()) {
    news_.start(form_.Rows().All().Items == 0 ? 0 : NewsTime);
  }
}

std::uint64_t RecycleBinWindow::IdAt(const QModelIndex& index) const {
  return index.isValid() ? form_.Rows()[static_cast<std::size_t>(index.row())].Id : 0;
}

void RecycleBinWindow::BeginRows() {
  const bool isAtStart = list_->verticalScrollBar()->value() == 0;
  // Who has gone nowhere and chosen nothing stays with the first row.
  const bool isAtFirst =
      isAtStart && list_->currentIndex().row() <= 0 && form_.Rows().Selected().Items == 0;
  place_ = {.Current = isAtFirst ? 0 : IdAt(list_->currentIndex()),
            .CurrentRow = std::max(list_->currentIndex().row(), 0),
            .Top = isAtStart ? 0 : IdAt(list_->indexAt({1, 1}))};
  model_.Begin();
}

void RecycleBinWindow::EndRows() {
  model_.End();
  ShowSelection();
  const fileops::TrashRows& rows = form_.Rows();
  const std::size_t count = rows.Count();
  if (count == 0) return;
  std::size_t current = rows.RowOf(place_.Current);
  if (current == count) current = std::min(static_cast<std::size_t>(place_.CurrentRow), count - 1);
  const QModelIndex index = model_.index(static_cast<int>(current), 0);
  list_->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  if (sorts_) {
    rows.Selected().Items > 0 ? list_->scrollTo(index) : list_->scrollToTop();
    return;
  }
  const std::size_t top = place_.Top == 0 ? count : rows.RowOf(place_.Top);
  if (top < count) {
    list_->scrollTo(model_.index(static_cast<int>(top), 0), QAbstractItemView::PositionAtTop);
  } else if (place_.Top != 0) {
    list_->scrollTo(index);
  }
}

void RecycleBinWindow::ShowSelection() {
  const fileops::TrashRows& rows = form_.Rows();
  const int last = model_.columnCount() - 1;
  QItemSelection selection;
  for (std::size_t row = 0; row < rows.Count(); ++row) {
    if (!rows.IsSelected(row)) continue;
    const std::size_t first = row;
    while (rows.IsSelected(row + 1)) ++row;
    selection.append(QItemSelectionRange(model_.index(static_cast<int>(first), 0),
                                         model_.index(static_cast<int>(row), last)));
  }
  showing_ = true;
  list_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  showing_ = false;
}

void RecycleBinWindow::Measure() {
  const QSize room = screen()->availableGeometry().size() * 4 / 5;
  resize(UsualBinSize.expandedTo(minimumSizeHint()).boundedTo(room).expandedTo(LeastBinSize));
  NotePlace();
}

void RecycleBinWindow::Show(QWidget* owner) {
  if (isVisible()) {
    raise();
    activateWindow();
    return;
  }
  ShowDialog(*this, form_, owner);
  list_->setFocus();
}

// --- What the user does

void RecycleBinWindow::TakeSelection(const QItemSelection& selected,
                                     const QItemSelection& deselected) {
  if (showing_ || IsClosed()) return;
  const auto take = [this](const QItemSelection& ranges, bool on) {
    for (const QItemSelectionRange& range : ranges) {
      form_.Select(static_cast<std::size_t>(range.top()), static_cast<std::size_t>(range.bottom()),
                   on);
    }
  };
  take(deselected, false);
  take(selected, true);
}

void RecycleBinWindow::ClickHeading(TrashColumn column) {
  sorts_ = true;
  form_.HeadingClick(column);
  sorts_ = false;
}

void RecycleBinWindow::EnterFilter(const QString& typed) {
  filter_->setFocus();
  filter_->selectAll();
  if (!typed.isEmpty()) filter_->insert(typed);
}

void RecycleBinWindow::ShowMenu(const QPoint& place) {
  auto* const menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const MenuEntry& entry : MenuEntries) {
    if (entry.Caption == nullptr) {
      menu->addSeparator();
      continue;
    }
    QAction* const action = menu->addAction(QString::fromLatin1(entry.Caption));
    action->setEnabled((form_.*entry.Button).Enabled);
    connect(action, &QAction::triggered, this,
            [this, &entry] { Guarded([&] { (form_.*entry.Click)(); }); });
  }
  menu->addSeparator();
  connect(menu->addAction(QStringLiteral("Select &All\tCtrl+A")), &QAction::triggered, list_,
          &QTreeView::selectAll);
  QMenu* const sorts = menu->addMenu(QStringLiteral("&Sort By"));
  for (int section = 0; section < model_.columnCount(); ++section) {
    QAction* const action =
        sorts->addAction(QLatin1Char('&') + model_.headerData(section, Qt::Horizontal).toString());
    action->setCheckable(true);
    action->setChecked(section == static_cast<int>(form_.Rows().SortColumn()));
    connect(action, &QAction::triggered, this,
            [this, section] { ClickHeading(static_cast<TrashColumn>(section)); });
  }
  connect(menu->addAction(QStringLiteral("Re&fresh\tF5")), &QAction::triggered, this,
          [this] { form_.Refresh(); });
  menu->popup(place);
}

bool RecycleBinWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched != filter_ || event->type() != QEvent::KeyPress) {
    return QDialog::eventFilter(watched, event);
  }
  switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape:
      if (filter_->text().isEmpty()) return false;
      filter_->clear();
      [[fallthrough]];
    case Qt::Key_Down:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      list_->setFocus();
      return true;
    default:
      return false;
  }
}

void RecycleBinWindow::NotePlace() {
  if (IsClosed()) return;
  ui::NotePlace(*this, form_);
  form_.Width = ToTwips(width());
  form_.Height = ToTwips(height());
}

void RecycleBinWindow::moveEvent(QMoveEvent* event) {
  NotePlace();
  QDialog::moveEvent(event);
}

void RecycleBinWindow::resizeEvent(QResizeEvent* event) {
  NotePlace();
  QDialog::resizeEvent(event);
}

void RecycleBinWindow::reject() {
  if (!IsClosed()) form_.cmdCloseClick();
}

}  // namespace tarnwell::ui
