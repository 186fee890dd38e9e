#include "ui/ListerWidget.h"

#include <QEvent>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPainter>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

#include "ui/Convert.h"
#include "ui/ListerDelegate.h"
#include "ui/ListerDrives.h"
#include "ui/ListerHeader.h"
#include "ui/ListerModel.h"
#include "ui/ListerTree.h"

namespace tarnwell::ui {

using lister::RowId;

namespace {

constexpr int OutlineWidth = 1;
constexpr int LeastTreeHeight = 60;  // below it the status line gives way

}  // namespace

ListerWidget::ListerWidget(lister::ListerControl& control, const IconSource& icons, QWidget* parent)
    : QWidget(parent),
      control_(control),
      fileList_(lister::IsFileList(control.Id())),
      icons_(icons),
      model_(new ListerModel(control, icons, this)) {
  const QString name = QStringLiteral("%1 of pane %2")
                           .arg(fileList_ ? QStringLiteral("files") : QStringLiteral("folders"))
                           .arg(lister::PaneOf(control.Id()) + 1);
  if (!fileList_) BuildDriveList();

  tree_ = new ListerTree(fileList_, style_, this);
  tree_->setAccessibleName(name.at(0).toUpper() + name.mid(1));
  header_ = new ListerHeader(control, style_, tree_);
  tree_->setHeader(header_);
  tree_->setModel(model_);
  tree_->setItemDelegate(new ListerDelegate(control, style_, tree_));
  setFocusProxy(tree_);

  status_ = new QLabel(this);
  status_->setAccessibleName(QStringLiteral("Status of ") + name);
  status_->setTextFormat(Qt::PlainText);
  status_->setAutoFillBackground(true);
  status_->setMargin(2);
  status_->setIndent(3);

  taskTimer_.setSingleShot(true);
  taskTimer_.setInterval(0);
  connect(&taskTimer_, &QTimer::timeout, this, &ListerWidget::RunNextTask);
  catchUpTimer_.setSingleShot(true);
  connect(&catchUpTimer_, &QTimer::timeout, this,
          [this] { Queue([this] { control_.CatchUp(); }); });
  ConnectTree();
  ConnectHeader();

  control_.View = this;
  SetMeasures();
  StyleChanged();
  DrivesChanged();
  HeadingsChanged();
  StatusChanged();
  ShowRows();
}

ListerWidget::~ListerWidget() {
  if (control_.View == this) control_.View = nullptr;
}

void ListerWidget::BuildDriveList() {
  const int pane = lister::PaneOf(control_.Id()) + 1;
  drives_ = new ListerDrives(QStringLiteral("Drives of pane %1").arg(pane), this);
  connect(drives_, &ListerDrives::FocusTaken, this, &ListerWidget::TellFocus);
  connect(drives_, &ListerDrives::Chosen, this, [this](const QByteArray& drive) {
    Queue([this, name = drive.toStdString()] { control_.ChooseDrive(name); });
  });
}

void ListerWidget::ConnectTree() {
  connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& index) { QueueMove(index); });
  connect(tree_, &QTreeView::expanded, this, &ListerWidget::QueueExpansion);
  connect(tree_, &QTreeView::collapsed, this, &ListerWidget::QueueExpansion);
  connect(tree_, &ListerTree::ActivateAsked, this, [this](const QModelIndex& index) {
    Queue([this, row = QPersistentModelIndex(index)] {
      if (row.isValid()) control_.Activate(ListerModel::RowOf(row));
    });
  });
  connect(tree_, &ListerTree::UpFolderAsked, this,
          [this] { Queue([this] { control_.KeyDown(8, 0); }); });
  connect(tree_, &ListerTree::MouseReleased, this,
          [this] { Queue([this] { control_.MouseUp({}); }); });
  connect(tree_, &ListerTree::FocusTaken, this, &ListerWidget::TellFocus);
}

void ListerWidget::ConnectHeader() {
  connect(header_, &QHeaderView::sectionPressed, this, [this] { TakeFocus(); });
  connect(header_, &QHeaderView::sectionClicked, this,
          [this](int heading) { Queue([this, heading] { control_.ClickHeading(heading); }); });
  connect(header_, &QHeaderView::sectionDoubleClicked, this, [this](int heading) {
    const bool shift = QGuiApplication::keyboardModifiers() & Qt::ShiftModifier;
    Queue([this, heading, shift] { control_.DoubleClickHeading(heading, shift); });
  });
}

void ListerWidget::TellFocus() {
  if (control_.View == this) control_.Focused();
}

// --- Tasks

void ListerWidget::Queue(std::function<void()> task) {
  tasks_.push_back(std::move(task));
  taskTimer_.start();
}

void ListerWidget::RunNextTask() {
  if (tasks_.empty()) return;
  const std::function<void()> task = std::move(tasks_.front());
  tasks_.pop_front();
  // Set going before the task runs, so that a task that lets messages through does not hold up the
  // others. Nothing of this widget may be touched after the task: it may have been deleted in it.
  if (!tasks_.empty()) taskTimer_.start();
  if (control_.View == this) task();
}

void ListerWidget::QueueMove(const QModelIndex& index) {
  // While rows change, Qt moves the cursor off rows that go; the control knows better.
  if (rowChanges_ > 0 || !index.isValid()) return;
  const bool queued = move_.isValid();
  move_ = index;
  if (queued) return;
  Queue([this] {
    const QPersistentModelIndex newest = std::exchange(move_, {});
    if (newest.isValid()) control_.MoveCurrent(ListerModel::RowOf(newest));
  });
}

void ListerWidget::QueueExpansion(const QModelIndex& index) {
  if (control_.Look(ListerModel::RowOf(index)).IsExpanded == tree_->isExpanded(index)) return;
  Queue([this, branch = QPersistentModelIndex(index)] {
    if (!branch.isValid()) return;
    const RowId row = ListerModel::RowOf(branch);
    const bool expanded = tree_->isExpanded(branch);
    if (expanded == control_.Look(row).IsExpanded) return;
    if (expanded) {
      control_.Expand(row);
    } else {
      control_.Collapse(row);
    }
  });
}

// --- Rows

void ListerWidget::BeginReset() {
  ++rowChanges_;
  model_->BeginReset();
}

void ListerWidget::EndReset() {
  model_->EndReset();
  --rowChanges_;
  ShowRows();
}

void ListerWidget::BeginInsert(RowId parent, int first, int last) {
  ++rowChanges_;
  insertParent_ = parent;
  insertFirst_ = first;
  insertLast_ = last;
  model_->BeginInsert(parent, first, last);
}

void ListerWidget::EndInsert() {
  model_->EndInsert();
  --rowChanges_;
  if (insertParent_ != lister::RootRow) ShowExpansion(insertParent_);
  ShowExpansion(insertParent_, insertFirst_, insertLast_);
  ShowCurrent();
}

void ListerWidget::BeginRemove(RowId parent, int first, int last) {
  ++rowChanges_;
  model_->BeginRemove(parent, first, last);
}

void ListerWidget::EndRemove() {
  model_->EndRemove();
  --rowChanges_;
  ShowCurrent();
}

void ListerWidget::BeginUpdate() {
  tree_->HoldTop();
}

void ListerWidget::EndUpdate() {
  tree_->ReleaseTop();
}

void ListerWidget::BeginReorder(RowId parent) {
  ++rowChanges_;
  model_->BeginReorder(parent);
}

void ListerWidget::EndReorder() {
  model_->EndReorder();
  --rowChanges_;
}

void ListerWidget::CellsChanged(RowId parent, int first, int last) {
  model_->CellsChanged(parent, first, last);
  if (!fileList_) tree_->RefreshBranches();
}

void ListerWidget::ExpansionChanged(RowId row) {
  ShowExpansion(row);
  tree_->RefreshBranches();
}

void ListerWidget::CurrentChanged() {
  ShowCurrent();
}

void ListerWidget::ShowRows() {
  ShowExpansion(lister::RootRow, 0, control_.ChildCount(lister::RootRow) - 1);
  ShowCurrent();
}

void ListerWidget::ShowExpansion(RowId row) {
  tree_->setExpanded(model_->IndexOf(row), control_.Look(row).IsExpanded);
}

void ListerWidget::ShowExpansion(RowId parent, int first, int last) {
  if (fileList_) return;
  for (int position = first; position <= last; ++position) {
    const RowId row = control_.Child(parent, position);
    const int children = control_.ChildCount(row);
    if (children > 0) ShowExpansion(row, 0, children - 1);
    ShowExpansion(row);
  }
}

void ListerWidget::ShowCurrent() {
  if (rowChanges_ > 0 || move_.isValid()) return;
  const QModelIndex index = model_->IndexOf(control_.CurrentRow());
  const bool moved = tree_->currentIndex().siblingAtColumn(0) != index;
  if (!moved && fileList_) return;
  const QScopedValueRollback guard(rowChanges_, rowChanges_ + 1);
  // Qt would expand collapsed branches to scroll to a row within.
  tree_->setAutoScroll(false);
  if (!index.isValid()) {
    // The selection of a file list is the user's, and no matter of the cursor.
    if (fileList_) {
      tree_->selectionModel()->clearCurrentIndex();
    } else {
      tree_->selectionModel()->clear();
    }
  } else if (fileList_) {
    tree_->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
  } else {
    tree_->selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  }
  tree_->setAutoScroll(true);
  if (moved) ScrollToCurrent();
}

void ListerWidget::ScrollToCurrent() {
  // A widget that is not on the screen has no size yet to scroll by.
  scrollDue_ = !isVisible();
  const QModelIndex index = tree_->currentIndex();
  if (scrollDue_) return;
  if (tree_->IsShown(index)) tree_->scrollTo(index);
}

// --- All round the rows

void ListerWidget::HeadingsChanged() {
  header_->ShowHeadings();
  model_->HeadingsChanged();
}

void ListerWidget::StyleChanged() {
  style_ = MakeListerStyle(control_.Colours(), control_.IsActive(), QGuiApplication::palette());
  tree_->setPalette(style_.List);
  status_->setPalette(style_.Status);
  if (drives_) drives_->setPalette(style_.Drives);
  Repaint();
}

void ListerWidget::StatusChanged() {
  const QString text = ToShownQString(control_.StatusText());
  const int room = status_->width() - status_->indent() - 2 * status_->margin();
  status_->setText(status_->fontMetrics().elidedText(text, Qt::ElideRight, room));
  status_->setToolTip(PlainToolTip(text));
  status_->setAccessibleDescription(text);
}

void ListerWidget::DrivesChanged() {
  if (drives_) drives_->Show(control_.DriveChoices(), control_.InitialDrive(), icons_);
}

void ListerWidget::Repaint() {
  tree_->viewport()->update();
  header_->viewport()->update();
  update();
}

void ListerWidget::TakeFocus() {
  tree_->setFocus();
}

void ListerWidget::SelectionChanged() {}
void ListerWidget::FilterChanged() {}
void ListerWidget::ScrollRows(int) {}
lister::RowRange ListerWidget::VisibleRows() const {
  return {};
}
int ListerWidget::PageRows() const {
  return 1;
}
lister::RowId ListerWidget::RowUnderPointer() const {
  return lister::NoRow;
}
void ListerWidget::BeginDrag() {}

void ListerWidget::CatchUpLater(int milliseconds) {
  catchUpTimer_.start(milliseconds);
}

void ListerWidget::SetMeasures() {
  const int side = std::max(16, tree_->fontMetrics().height());
  tree_->setIconSize(QSize(side, side));
  PlaceChildren();
}

void ListerWidget::PlaceChildren() {
  QRect area = rect().adjusted(OutlineWidth, OutlineWidth, -OutlineWidth, -OutlineWidth);
  if (drives_) {
    const int height = drives_->sizeHint().height();
    drives_->setGeometry(area.left(), area.top(), area.width(), height);
    area.setTop(area.top() + height);
  }
  const int height = status_->fontMetrics().height() + 6;
  const bool fits = area.height() - height >= LeastTreeHeight;
  status_->setVisible(fits);
  if (fits) {
    status_->setGeometry(area.left(), area.bottom() + 1 - height, area.width(), height);
    area.setBottom(area.bottom() - height);
  }
  tree_->setGeometry(area);
  StatusChanged();
}

void ListerWidget::resizeEvent(QResizeEvent*) {
  PlaceChildren();
}

void ListerWidget::showEvent(QShowEvent*) {
  if (scrollDue_) ScrollToCurrent();
}

void ListerWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), style_.Outline);
}

void ListerWidget::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) SetMeasures();
}

}  // namespace tarnwell::ui
