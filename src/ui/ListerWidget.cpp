#include "ui/ListerWidget.h"

#include <QAccessible>
#include <QDrag>
#include <QEvent>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>
#include <memory>
#include <utility>

#include "lister/ListInput.h"
#include "ui/Convert.h"
#include "ui/ListerDelegate.h"
#include "ui/ListerDrag.h"
#include "ui/ListerDrives.h"
#include "ui/ListerHeader.h"
#include "ui/ListerKeys.h"
#include "ui/ListerModel.h"
#include "ui/ListerToolbar.h"
#include "ui/ListerTree.h"

namespace tarnwell::ui {

using lister::RowId;

namespace {

constexpr int LeastTreeHeight = 60;         // below it the status line gives way, then the toolbar
constexpr std::size_t MostMirrored = 1000;  // runs of selected rows
// Kinds of tasks that wait once at most. Keys have kinds above these.
constexpr int MouseMoves = 1;
constexpr int KeyKinds = 16;

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
  if (fileList_) {
    BuildToolbar();
  } else {
    BuildDriveList();
  }

  tree_ = new ListerTree(control, style_, this);
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
  ConnectMouse();
  ConnectHeader();

  control_.View = this;
  isRead_ = QAccessible::isActive();
  QAccessible::installActivationObserver(this);
  SetMeasures();
  StyleChanged();
  DrivesChanged();
  HeadingsChanged();
  StatusChanged();
  ShowRows();
}

ListerWidget::~ListerWidget() {
  QAccessible::removeActivationObserver(this);
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

void ListerWidget::BuildToolbar() {
  toolbar_ = new ListerToolbar(control_, style_, icons_, this);
  // At once, so that the list keeps up with the typing: a filter reads nothing.
  connect(toolbar_, &ListerToolbar::FilterTyped, this, [this](const QString& text) {
    if (control_.View == this) control_.SetFilterText(text.toStdString());
  });
  connect(toolbar_, &ListerToolbar::ExtensionChosen, this, [this](const QByteArray& extension) {
    Queue([this, name = extension.toStdString()] { control_.SetExtensionFilter(name); });
  });
  connect(toolbar_, &ListerToolbar::CalculateAsked, this,
          [this] { Queue([this] { control_.CalculateFolderSizes(); }); });
  connect(toolbar_, &ListerToolbar::UpAsked, this,
          [this] { Queue([this] { control_.UpButton(); }); });
  connect(toolbar_, &ListerToolbar::NewFolderAsked, this,
          [this] { Queue([this] { control_.NewFolderButton(); }); });
  connect(toolbar_, &ListerToolbar::ListAsked, this, [this] { tree_->setFocus(); });
  connect(toolbar_, &ListerToolbar::FocusTaken, this, &ListerWidget::TellFocus);
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
  connect(tree_, &ListerTree::FocusTaken, this, &ListerWidget::TellFocus);
  connect(tree_, &ListerTree::KeyPressed, this, &ListerWidget::QueueKey);
  tree_->TakesEscape = [this] {
    return control_.View == this && control_.KeyDown(lister::EscapeKey, 0);
  };
  connect(tree_, &ListerTree::KeyReleased, this, [this](const QKeyEvent& event) {
    Queue([this, copy = std::shared_ptr<QKeyEvent>(event.clone())] {
      const QPointer<ListerWidget> alive(this);
      if (const int code = KeyCodeOf(*copy); code != 0) control_.KeyUp(code);
      if (alive) QCoreApplication::sendEvent(parent(), copy.get());
    });
  });
  connect(tree_, &ListerTree::TextTyped, this, [this](const QString& text) {
    Queue([this, typed = text.toStdString()] { control_.TypeText(typed); });
  });
  connect(tree_, &ListerTree::WheelTurned, this, [this](int notches) {
    // One by one, since a notch is what a list scrolls by.
    for (int count = std::abs(notches); count > 0; --count) {
      Queue([this, delta = notches > 0 ? 120 : -120] { control_.WheelTurned(delta); });
    }
  });
}

void ListerWidget::ConnectMouse() {
  ListerMouse* const mouse = &tree_->Mouse();
  connect(mouse, &ListerMouse::Pressed, this, [this](const PointerReport& report) {
    QueueMouse(&lister::ListerControl::MouseDown, report);
  });
  connect(mouse, &ListerMouse::Moved, this, [this](const PointerReport& report) {
    QueueMouse(&lister::ListerControl::MouseMoved, report, MouseMoves);
  });
  connect(mouse, &ListerMouse::Released, this, [this](const PointerReport& report) {
    QueueMouse(&lister::ListerControl::MouseUp, report);
  });
  connect(mouse, &ListerMouse::DoubleClicked, this, [this](const PointerReport& report) {
    Queue([this, row = report.Row] {
      if (row.isValid()) control_.Activate(ListerModel::RowOf(row));
    });
  });
  connect(mouse, &ListerMouse::Hovered, this, [this, mouse] {
    if (control_.View == this) control_.SetHoverGraphicsOn(mouse->Pointer().has_value());
  });
}

void ListerWidget::ConnectHeader() {
  connect(header_, &QHeaderView::sectionPressed, this, [this] { TakeFocus(); });
  connect(header_, &QHeaderView::sectionClicked, this,
          [this](int heading) { Queue([this, heading] { control_.ClickHeading(heading); }); });
  connect(header_, &QHeaderView::sectionDoubleClicked, this, [this](int heading) {
    const bool shift = QGuiApplication::keyboardModifiers() & Qt::ShiftModifier;
    Queue([this, heading, shift] { control_.DoubleClickHeading(heading, shift); });
  });
  connect(header_, &ListerHeader::ToggleAsked, this,
          [this](int heading) { Queue([this, heading] { control_.ToggleHeading(heading); }); });
}

void ListerWidget::TellFocus() {
  if (control_.View == this) control_.Focused();
}

// --- Tasks

void ListerWidget::Queue(std::function<void()> run, int kind) {
  tasks_.push_back({std::move(run), kind});
  taskTimer_.start();
}

void ListerWidget::RunNextTask() {
  if (tasks_.empty()) return;
  const std::function<void()> run = std::move(tasks_.front().Run);
  tasks_.pop_front();
  // Set going before the task runs, so that a task that lets messages through does not hold up the
  // others. Nothing of this widget may be touched after the task: it may have been deleted in it.
  if (!tasks_.empty()) taskTimer_.start();
  if (control_.View == this) run();
}

void ListerWidget::QueueKey(const QKeyEvent& event) {
  const int kind = KeyKinds + event.key();
  // A held key waits once: what piles up would run on after it is released.
  const bool waits =
      std::ranges::any_of(tasks_, [kind](const Task& task) { return task.Kind == kind; });
  if (event.isAutoRepeat() && waits) return;
  Queue([this, copy = std::shared_ptr<QKeyEvent>(event.clone())] { RunKey(*copy); }, kind);
}

void ListerWidget::RunKey(QKeyEvent& event) {
  const QPointer<ListerWidget> alive(this);
  const int code = KeyCodeOf(event);
  if (code != 0 && control_.KeyDown(code, ShiftOf(event.modifiers()))) return;
  if (!alive || control_.View != this) return;
  const QString text = TypedText(event);
  if (!text.isEmpty()) {
    control_.TypeText(text.toStdString());
  } else if (tree_->TakesKey(event)) {
    tree_->HandleKey(event);
  } else {
    // The tree has kept it from the window, which may know what to do with it.
    QCoreApplication::sendEvent(parent(), &event);
  }
}

void ListerWidget::QueueMouse(MouseCall call, const PointerReport& report, int kind) {
  auto run = [this, call, report] {
    lister::RowPointer at = report.At;
    if (at.Row != lister::NoRow) {
      // Rows may have come and gone since.
      at.Row = report.Row.isValid() ? ListerModel::RowOf(report.Row) : lister::NoRow;
      if (at.Row == lister::NoRow) {
        at.Part = lister::RowPart::None;
      } else {
        at.Position = report.Row.row();
      }
    }
    const QPointer<ListerTree> tree(tree_);
    (control_.*call)(at);
    if (tree) tree->viewport()->update();  // the frame that selects goes along
  };
  // Only the newest of moves that wait in a row counts.
  if (kind != 0 && !tasks_.empty() && tasks_.back().Kind == kind) {
    tasks_.back().Run = std::move(run);
  } else {
    Queue(std::move(run), kind);
  }
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
  tree_->selectionModel()->clearSelection();
  model_->BeginReset();
}

void ListerWidget::EndReset() {
  model_->EndReset();
  --rowChanges_;
  tree_->ScrollToTop();
  ShowRows();
  MirrorSelection();
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
  tree_->HoldCurrent();
  // Qt would keep every selected row by an index of its own meanwhile.
  tree_->selectionModel()->clearSelection();
  model_->BeginReorder(parent);
}

void ListerWidget::EndReorder() {
  model_->EndReorder();
  --rowChanges_;
  tree_->ReleaseCurrent();
  if (fileList_) {
    MirrorSelection();
  } else {
    ShowCurrent();
  }
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
  if (!scrollDue_) tree_->BringIntoView(tree_->currentIndex());
}

void ListerWidget::accessibilityActiveChanged(bool active) {
  isRead_ = active;
  MirrorSelection();
}

void ListerWidget::MirrorSelection() {
  if (!fileList_ || !isRead_) return;
  const std::vector<lister::RowRange> ranges = control_.SelectedRanges();
  QItemSelection selection;
  if (ranges.size() <= MostMirrored) {
    for (const lister::RowRange& range : ranges) {
      selection.append(QItemSelectionRange(model_->index(range.First, 0),
                                           model_->index(range.Last, lister::HeadingCount - 1)));
    }
  }
  tree_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
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
  for (QScrollBar* bar : {tree_->verticalScrollBar(), tree_->horizontalScrollBar()}) {
    bar->setPalette(style_.ScrollBars);
  }
  if (drives_) drives_->setPalette(style_.Drives);
  if (toolbar_) toolbar_->ShowStyle();
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
  if (border_ != control_.BorderWidth()) PlaceChildren();
  tree_->viewport()->update();
  header_->viewport()->update();
  update();
}

void ListerWidget::TakeFocus() {
  tree_->setFocus();
}

void ListerWidget::SelectionChanged() {
  tree_->viewport()->update();
  MirrorSelection();
}

void ListerWidget::FilterChanged() {
  if (toolbar_) toolbar_->ShowFilter();
}

void ListerWidget::ScrollRows(int rows) {
  tree_->ScrollRows(rows);
}

lister::RowRange ListerWidget::VisibleRows() const {
  return fileList_ ? tree_->VisibleRows() : lister::RowRange();
}

int ListerWidget::PageRows() const {
  return tree_->PageRows();
}

lister::RowId ListerWidget::RowUnderPointer() const {
  const auto& pointer = tree_->Mouse().Pointer();
  const QModelIndex row = pointer ? tree_->RowAt(pointer->y()) : QModelIndex();
  return row.isValid() ? ListerModel::RowOf(row) : lister::NoRow;
}

void ListerWidget::BeginDrag() {
  Queue([this] { RunDrag(); });
}

void ListerWidget::RunDrag() {
  if (!(QGuiApplication::mouseButtons() & Qt::LeftButton)) return;
  control_.FirstSelected();  // makes the list of items
  const std::string items = control_.ActiveItemName();
  const std::vector<std::string_view> paths = SplitItems(items);
  tree_->Mouse().Forget();
  const QPointer<ListerWidget> alive(this);
  if (!paths.empty()) {
    const QIcon icon =
        tree_->currentIndex().siblingAtColumn(0).data(Qt::DecorationRole).value<QIcon>();
    auto* const drag = new QDrag(tree_);  // Qt deletes it
    drag->setMimeData(MimeDataOf(paths).release());
    drag->setPixmap(
        DragPicture(icon, paths.size(), style_.List, font(), tree_->devicePixelRatioF()));
    drag->setHotSpot(QPoint(-12, -8));
    drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::CopyAction);
  }
  if (!alive || control_.View != this) return;
  const QPoint place = mapFromGlobal(QCursor::pos());
  control_.DragFinished({.Button = 1,
                         .Shift = ShiftOf(QGuiApplication::queryKeyboardModifiers()),
                         .X = static_cast<float>(ToTwips(place.x())),
                         .Y = static_cast<float>(ToTwips(place.y()))});
}

void ListerWidget::CatchUpLater(int milliseconds) {
  catchUpTimer_.start(milliseconds);
}

void ListerWidget::SetMeasures() {
  // The bundled pictures are drawn on a grid of 16: whole eighths of a large font stay crisp.
  const int side = std::max(16, tree_->fontMetrics().height() / 8 * 8);
  tree_->setIconSize(QSize(side, side));
  PlaceChildren();
}

void ListerWidget::PlaceChildren() {
  border_ = control_.BorderWidth();
  QRect area = rect().adjusted(border_, border_, -border_, -border_);
  const int statusHeight = status_->fontMetrics().height() + 6;
  const int toolbarHeight = toolbar_ ? toolbar_->sizeHint().height() : 0;
  if (drives_) {
    const int height = drives_->sizeHint().height();
    drives_->setGeometry(area.left(), area.top(), area.width(), height);
    area.setTop(area.top() + height);
  }
  if (toolbar_) {
    toolbar_->setVisible(area.height() - toolbarHeight >= LeastTreeHeight);
    if (area.height() - toolbarHeight >= LeastTreeHeight) {
      toolbar_->setGeometry(area.left(), area.top(), area.width(), toolbarHeight);
      area.setTop(area.top() + toolbarHeight);
    }
  }
  const bool fits = area.height() - statusHeight >= LeastTreeHeight;
  status_->setVisible(fits);
  if (fits) {
    status_->setGeometry(area.left(), area.bottom() + 1 - statusHeight, area.width(), statusHeight);
    area.setBottom(area.bottom() - statusHeight);
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
  painter.fillRect(rect().adjusted(border_, border_, -border_, -border_), style_.Pane);
}

void ListerWidget::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) SetMeasures();
}

}  // namespace tarnwell::ui
