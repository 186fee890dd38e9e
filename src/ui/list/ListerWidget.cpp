#include "ui/list/ListerWidget.h"

#include <QAccessible>
#include <QEvent>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>

#include "lister/ListerUser.h"
#include "lister/list/ListColumns.h"
#include "ui/list/ListerDelegate.h"
#include "ui/list/ListerDrives.h"
#include "ui/list/ListerHeader.h"
#include "ui/list/ListerLegend.h"
#include "ui/list/ListerModel.h"
#include "ui/list/ListerNote.h"
#include "ui/list/ListerPlace.h"
#include "ui/list/ListerRow.h"
#include "ui/list/ListerToolbar.h"
#include "ui/list/ListerTree.h"
#include "ui/toolkit/Convert.h"

namespace tarnwell::ui {

using lister::HeadingId;
using lister::RowId;

namespace {

constexpr int LeastRows = 4;  // before there are fewer the status line gives way, then the toolbar
constexpr std::size_t MostMirrored = 1000;  // runs of selected rows

}  // namespace

ListerWidget::ListerWidget(lister::ListerControl& control, const IconSource& icons, QWidget* parent)
    : QWidget(parent),
      control_(control),
      fileList_(lister::IsFileList(control.Id())),
      icons_(icons),
      model_(new ListerModel(control.Rows(), control.Shown(), icons, this)) {
  const QString name = QStringLiteral("%1 of %2")
                           .arg(fileList_ ? QStringLiteral("files") : QStringLiteral("folders"),
                                PlaceOfList(control.Id()));
  if (fileList_) {
    BuildToolbar();
  } else {
    BuildDriveList();
  }

  tree_ = new ListerTree(control, style_, this);
  tree_->setAccessibleName(name.at(0).toUpper() + name.mid(1));
  setAccessibleName(QStringLiteral("List of ") + name);
  header_ = new ListerHeader(control, style_, tree_);
  header_->BecomeHeaderOf(*tree_);
  tree_->setModel(model_);
  tree_->setItemDelegate(new ListerDelegate(control.Rows(), control.Shown(), style_, tree_));
  setFocusProxy(tree_);

  status_ = new QLabel(this);
  status_->setAccessibleName(QStringLiteral("Status of ") + name);
  status_->setTextFormat(Qt::PlainText);
  status_->setAutoFillBackground(true);
  status_->setMargin(2);
  status_->setIndent(3);
  if (fileList_) BuildLegend();
  note_ = new ListerNote(*this, *tree_, PlaceOfList(control.Id()));

  taskTimer_.setSingleShot(true);
  taskTimer_.setInterval(0);
  connect(&taskTimer_, &QTimer::timeout, this, &ListerWidget::RunNextTask);
  catchUpTimer_.setSingleShot(true);
  connect(&catchUpTimer_, &QTimer::timeout, this,
          [this] { Queue([this] { control_.CatchUp(); }); });
  lookTimer_.setSingleShot(true);
  connect(&lookTimer_, &QTimer::timeout, this, [this] { QueueLook(lister::LookReason::Idle); });
  ConnectTree();
  ConnectMouse();
  ConnectDrop();
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
  ShowNote();
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
  ShowNote();
}

void ListerWidget::BeginRemove(RowId parent, int first, int last) {
  ++rowChanges_;
  model_->BeginRemove(parent, first, last);
}

void ListerWidget::EndRemove() {
  model_->EndRemove();
  --rowChanges_;
  ShowCurrent();
  ShowNote();
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
  const bool opened =
      row == control_.Rows().CurrentRow() && control_.Rows().StateOf(row).IsExpanded;
  if (opened && isVisible() && rowChanges_ == 0) ShowBranch(model_->IndexOf(row));
}

void ListerWidget::CurrentChanged() {
  ShowCurrent();
}

void ListerWidget::ShowNote() {
  if (rowChanges_ == 0) note_->Show(control_.Rows().NoteOfEmptiness());
}

void ListerWidget::ShowRows() {
  ShowExpansion(lister::RootRow, 0, control_.Rows().ChildCount(lister::RootRow) - 1);
  ShowCurrent();
}

void ListerWidget::ShowExpansion(RowId row) {
  tree_->setExpanded(model_->IndexOf(row), control_.Rows().StateOf(row).IsExpanded);
}

void ListerWidget::ShowExpansion(RowId parent, int first, int last) {
  if (fileList_) return;
  for (int position = first; position <= last; ++position) {
    const RowId row = control_.Rows().Child(parent, position);
    const int children = control_.Rows().ChildCount(row);
    if (children > 0) ShowExpansion(row, 0, children - 1);
    ShowExpansion(row);
  }
}

void ListerWidget::ShowCurrent() {
  if (rowChanges_ > 0 || move_.isValid()) return;
  const QModelIndex index = model_->IndexOf(control_.Rows().CurrentRow());
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
  const std::vector<lister::RowRange> ranges = control_.Input().SelectedRanges();
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

void ListerWidget::ShowHeading(int heading) {
  const int left = header_->sectionPosition(heading);
  const int room = tree_->viewport()->width() - header_->sectionSize(heading);
  QScrollBar& bar = *tree_->horizontalScrollBar();
  bar.setValue(std::min(left, std::max(bar.value(), left - room)));
}

void ListerWidget::StyleChanged() {
  style_ = MakeListerStyle(control_.Shown().Settings.Colours, control_.Shown().IsActive,
                           QGuiApplication::palette());
  tree_->setPalette(style_.List);
  status_->setPalette(style_.Status);
  for (QScrollBar* bar : {tree_->verticalScrollBar(), tree_->horizontalScrollBar()}) {
    bar->setPalette(style_.ScrollBars);
  }
  if (drives_) drives_->setPalette(style_.Drives);
  if (toolbar_) toolbar_->ShowStyle();
  note_->ShowStyle(style_);
  if (legend_) legend_->update();
  Repaint();
}

bool ListerWidget::NeedsToolbar() const {
  return toolbarAsked_ || control_.Shown().Filter.IsOn();
}

bool ListerWidget::NeedsStatus() const {
  return control_.Shown().HasNews || control_.Shown().Marks.Any();
}

void ListerWidget::StatusChanged() {
  ShowNote();
  PlaceChildren();
}

void ListerWidget::ShowStatus(bool marksFirst) {
  const QString text = ToShownQString(control_.Shown().Status);
  int room = status_->width() - status_->indent() - 2 * status_->margin();
  if (legend_) {
    // The text gives way while the keyboard is among the marks.
    const int wanted =
        marksFirst || legend_->HasKeyboard() ? 0 : status_->fontMetrics().horizontalAdvance(text);
    room -= legend_->Show(control_.Shown().Marks, room - std::min(wanted, room / 2));
  }
  status_->setText(status_->fontMetrics().elidedText(text, Qt::ElideRight, room));
  status_->setToolTip(PlainToolTip(text));
  status_->setAccessibleDescription(text);
}

void ListerWidget::DrivesChanged() {
  if (drives_) drives_->Show(control_.User().Drives(), control_.InitialDrive(), icons_);
}

void ListerWidget::Repaint() {
  if (border_ != control_.Shown().BorderWidth()) PlaceChildren();
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
  ShowNote();
  PlaceChildren();
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

void ListerWidget::EnterControls() {
  if (toolbar_) {
    toolbarAsked_ = true;
    PlaceChildren();
    toolbar_->EnterFilter();
  }
  if (!drives_) return;
  drives_->setFocus();
  drives_->showPopup();
}

void ListerWidget::EnterMarks() {
  if (!isVisible() || !legend_) return;
  ShowStatus(true);
  if (legend_->Enter()) TellFocus();
}

void ListerWidget::CatchUpLater(int milliseconds) {
  catchUpTimer_.start(milliseconds);
}

void ListerWidget::LookLater(int milliseconds) {
  lookTimer_.stop();
  if (milliseconds > 0) lookTimer_.start(milliseconds);
}

void ListerWidget::SetMeasures() {
  // The bundled pictures are drawn on a grid of 16: whole eighths of a large font stay crisp.
  const int side = std::max(16, tree_->fontMetrics().height() / 8 * 8);
  tree_->setIconSize(QSize(side, side));
  const auto widthOf = [&](HeadingId id, const std::string& text) {
    const int icon = id == HeadingId::Name ? PartsOfName(QRect(), side, fileList_).Text.left() : 0;
    return ToTwips(UncutWidth(tree_->fontMetrics(), ToQString(text)) + 2 * CellMargin + icon);
  };
  control_.Columns().Fit([&](HeadingId id, const std::string& whole, const std::string& brief) {
    const base::Twips caption = ToTwips(header_->CaptionWidth(static_cast<int>(id), true));
    return lister::HeadingNeeds{.Column = std::max(widthOf(id, whole), caption),
                                .Cell = whole.empty() ? 0 : widthOf(id, whole),
                                .Brief = brief.empty() ? 0 : widthOf(id, brief)};
  });
  PlaceChildren();
}

void ListerWidget::PlaceChildren() {
  border_ = control_.Shown().BorderWidth();
  QRect area = rect().adjusted(border_, border_, -border_, -border_);
  const int statusHeight = status_->fontMetrics().height() + 6;
  const int toolbarHeight = toolbar_ ? toolbar_->sizeHint().height() : 0;
  if (drives_) {
    // As high as the row above a file list, so that headings side by side stand in line.
    const int height = ListerToolbar::RowHeight(fontMetrics());
    drives_->setGeometry(area.left(), area.top(), area.width(), height);
    area.setTop(area.top() + height);
  }
  const auto fits = [&](int height, bool needed) {
    const int rows = needed ? 1 : LeastRows;
    return area.height() - height >= header_->sizeHint().height() + rows * tree_->RowHeight();
  };
  if (toolbar_) {
    const bool shown = fits(toolbarHeight, NeedsToolbar());
    toolbar_->setVisible(shown);
    toolbar_->setGeometry(area.left(), area.top(), area.width(), toolbarHeight);
    if (shown) area.setTop(area.top() + toolbarHeight);
  }
  const bool shown = fits(statusHeight, NeedsStatus());
  status_->setVisible(shown);
  status_->setGeometry(area.left(), area.bottom() + 1 - statusHeight, area.width(), statusHeight);
  if (shown) area.setBottom(area.bottom() - statusHeight);
  tree_->setGeometry(area);
  ShowStatus();
}

void ListerWidget::resizeEvent(QResizeEvent*) {
  PlaceChildren();
}

void ListerWidget::showEvent(QShowEvent*) {
  if (scrollDue_) ScrollToCurrent();
  QueueLook(lister::LookReason::User);
}

void ListerWidget::enterEvent(QEnterEvent*) {
  QueueLook(lister::LookReason::User);
}

void ListerWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), style_.Outline);
  painter.fillRect(rect().adjusted(border_, border_, -border_, -border_), style_.Pane);
}

void ListerWidget::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) SetMeasures();
  // As long as no skin has given the list colours it has those of the windows.
  const bool plain = control_.Shown().Settings.Colours == lister::ListColours{};
  if (event->type() == QEvent::PaletteChange && plain) StyleChanged();
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
    QueueLook(lister::LookReason::User);
  }
}

}  // namespace tarnwell::ui
