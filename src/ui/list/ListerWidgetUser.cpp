// The part of ListerWidget that hears the user.
#include <QApplication>
#include <QDrag>
#include <QGuiApplication>
#include <QPointer>
#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

#include "base/ItemList.h"
#include "lister/ListerUser.h"
#include "lister/list/ListColumns.h"
#include "ui/list/ListerDrag.h"
#include "ui/list/ListerDrives.h"
#include "ui/list/ListerDrop.h"
#include "ui/list/ListerHeader.h"
#include "ui/list/ListerKeys.h"
#include "ui/list/ListerLegend.h"
#include "ui/list/ListerModel.h"
#include "ui/list/ListerNote.h"
#include "ui/list/ListerPlace.h"
#include "ui/list/ListerToolbar.h"
#include "ui/list/ListerTree.h"
#include "ui/list/ListerWidget.h"
#include "ui/toolkit/Convert.h"
#include "ui/toolkit/FileUris.h"

namespace tarnwell::ui {

using lister::RowId;

namespace {

// Kinds of tasks that wait once at most. Keys have kinds above these.
constexpr int MouseMoves = 1;
constexpr int Looks = 2;
constexpr int KeyKinds = 16;

constexpr int OtherButton = 2;

void MouseDown(lister::ListInput& input, const lister::RowPointer& at) {
  input.MouseDown(at);
}
void MouseMoved(lister::ListInput& input, const lister::RowPointer& at) {
  input.MouseMoved(at);
}
void MouseUp(lister::ListInput& input, const lister::RowPointer& at) {
  input.MouseUp(at);
}

}  // namespace

void ListerWidget::BuildDriveList() {
  drives_ = new ListerDrives(QStringLiteral("Drives of %1").arg(PlaceOfList(control_.Id())), this);
  connect(drives_, &ListerDrives::FocusTaken, this, &ListerWidget::TellFocus);
  connect(drives_, &ListerDrives::Chosen, this, [this](const QByteArray& drive) {
    Queue([this, name = drive.toStdString()] { control_.User().ChooseDrive(name); });
  });
}

void ListerWidget::BuildToolbar() {
  toolbar_ = new ListerToolbar(control_, style_, icons_, this);
  // At once, so that the list keeps up with the typing: a filter reads nothing.
  connect(toolbar_, &ListerToolbar::FilterTyped, this, [this](const QString& text) {
    if (control_.View == this) control_.User().SetFilterText(text.toStdString());
  });
  connect(toolbar_, &ListerToolbar::ExtensionChosen, this, [this](const QByteArray& extension) {
    Queue([this, name = extension.toStdString()] { control_.User().SetExtensionFilter(name); });
  });
  connect(toolbar_, &ListerToolbar::CalculateAsked, this,
          [this] { Queue([this] { control_.CalculateFolderSizes(); }); });
  connect(toolbar_, &ListerToolbar::UpAsked, this,
          [this] { Queue([this] { control_.User().UpButton(); }); });
  connect(toolbar_, &ListerToolbar::NewFolderAsked, this,
          [this] { Queue([this] { control_.User().NewFolderButton(); }); });
  connect(toolbar_, &ListerToolbar::BookmarkChosen, this,
          [this](int slot) { Queue([this, slot] { control_.Input().GoToBookmark(slot); }); });
  connect(toolbar_, &ListerToolbar::ListAsked, this, [this] { tree_->setFocus(); });
  connect(toolbar_, &ListerToolbar::FocusTaken, this, &ListerWidget::TellFocus);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now == nullptr || QApplication::activePopupWidget() != nullptr) return;
    const bool isInside = toolbar_->isAncestorOf(now);
    if (std::exchange(toolbarAsked_, isInside) != isInside) PlaceChildren();
  });
}

void ListerWidget::BuildLegend() {
  legend_ = new ListerLegend(PlaceOfList(control_.Id()), style_, status_);
  connect(legend_, &ListerLegend::Asked, this, [this](lister::CompareMarks mark, bool adds) {
    if (!legend_->HasKeyboard()) TakeFocus();
    TellFocus();
    Queue([this, mark, adds] { control_.Input().SelectMarked(mark, adds); });
  });
  connect(legend_, &ListerLegend::LeaveAsked, this, [this] { tree_->setFocus(); });
  // Later, since it shows the legend anew.
  connect(legend_, &ListerLegend::FocusChanged, this, &ListerWidget::StatusChanged,
          Qt::QueuedConnection);
}

void ListerWidget::ConnectTree() {
  connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& index) { QueueMove(index); });
  connect(tree_, &QTreeView::expanded, this, &ListerWidget::QueueExpansion);
  connect(tree_, &QTreeView::collapsed, this, &ListerWidget::QueueExpansion);
  connect(tree_, &ListerTree::ActivateAsked, this, [this](const QModelIndex& index) {
    Queue([this, row = QPersistentModelIndex(index)] {
      if (row.isValid()) control_.Rows().Activate(ListerModel::RowOf(row));
    });
  });
  connect(tree_, &ListerTree::FocusTaken, this, &ListerWidget::TellFocus);
  connect(tree_, &ListerTree::KeyPressed, this, &ListerWidget::QueueKey);
  tree_->TakesEscape = [this] {
    return control_.View == this && control_.Input().KeyDown(lister::EscapeKey, 0);
  };
  connect(tree_, &ListerTree::KeyReleased, this, [this](const QKeyEvent& event) {
    Queue([this, copy = std::shared_ptr<QKeyEvent>(event.clone())] {
      const QPointer<ListerWidget> alive(this);
      if (const int code = KeyCodeOf(*copy); code != 0) control_.Input().KeyUp(code);
      if (alive) PassOn(*copy);
    });
  });
  connect(tree_, &ListerTree::TextTyped, this, [this](const QString& text) {
    Queue([this, typed = text.toStdString()] { control_.Input().TypeText(typed); });
  });
  connect(tree_, &ListerTree::WheelTurned, this, [this](int notches) {
    // One by one, since a notch is what a list scrolls by.
    for (int count = std::abs(notches); count > 0; --count) {
      Queue([this, delta = notches > 0 ? WheelNotches::Angle : -WheelNotches::Angle] {
        control_.Input().WheelTurned(delta);
      });
    }
  });
}

void ListerWidget::ConnectMouse() {
  ListerMouse* const mouse = &tree_->Mouse();
  connect(mouse, &ListerMouse::Pressed, this,
          [this](const PointerReport& report) { QueueMouse(MouseDown, report); });
  connect(mouse, &ListerMouse::Moved, this,
          [this](const PointerReport& report) { QueueMouse(MouseMoved, report, MouseMoves); });
  connect(mouse, &ListerMouse::Released, this,
          [this](const PointerReport& report) { QueueMouse(MouseUp, report); });
  connect(mouse, &ListerMouse::DoubleClicked, this, [this](const PointerReport& report) {
    Queue([this, row = report.Row] {
      if (row.isValid()) control_.Rows().Activate(ListerModel::RowOf(row));
    });
  });
  connect(mouse, &ListerMouse::Hovered, this, [this, mouse] {
    if (control_.View == this) control_.SetHoverGraphicsOn(mouse->Pointer().has_value());
  });
}

void ListerWidget::ConnectDrop() {
  drop_ = new ListerDrop(control_, *tree_, this);
  if (toolbar_) drop_->WatchUpButton(toolbar_->UpButton());
  connect(model_, &QAbstractItemModel::modelReset, drop_, &ListerDrop::Reconsider);
  connect(model_, &QAbstractItemModel::rowsInserted, drop_, &ListerDrop::Reconsider);
  connect(model_, &QAbstractItemModel::rowsRemoved, drop_, &ListerDrop::Reconsider);
  connect(model_, &QAbstractItemModel::layoutChanged, drop_, &ListerDrop::Reconsider);
  connect(drop_, &ListerDrop::UpAsked, this,
          [this] { Queue([this] { control_.User().UpButton(); }); });
  connect(drop_, &ListerDrop::OpenAsked, this, [this](const QPersistentModelIndex& folder) {
    if (!fileList_) return tree_->expand(folder);
    Queue([this, folder] {
      if (folder.isValid()) control_.Rows().Activate(ListerModel::RowOf(folder));
    });
  });
  connect(drop_, &ListerDrop::Dropped, this,
          [this](const std::string& folder, const lister::Drop& drop) {
            Queue([this, folder, drop] {
              // The drag came from another program's window.
              if (drop.Source == lister::NoList) window()->activateWindow();
              control_.User().DropOn(folder, drop);
            });
          });
}

void ListerWidget::ConnectHeader() {
  connect(note_, &ListerNote::ClearAsked, this, [this] {
    if (control_.View != this) return;
    TakeFocus();
    TellFocus();
    control_.User().SetFilterText("");
    control_.User().SetExtensionFilter("");
  });
  connect(header_, &QHeaderView::sectionPressed, this, [this] {
    TakeFocus();
    TellFocus();  // the list may have the keyboard while commands act on another
  });
  connect(header_, &ListerHeader::Released, this,
          [this] { Queue([this] { control_.Input().MouseUp({}); }); });
  connect(header_, &QHeaderView::sectionClicked, this,
          [this](int heading) { Queue([this, heading] { control_.Columns().Click(heading); }); });
  connect(header_, &QHeaderView::sectionDoubleClicked, this, [this](int heading) {
    const bool shift = QGuiApplication::keyboardModifiers() & Qt::ShiftModifier;
    Queue([this, heading, shift] { control_.Columns().DoubleClick(heading, shift); });
  });
  // At once: the widths are those that the user sees while he drags.
  connect(header_, &ListerHeader::Sized, this, [this](const lister::ColumnWidths& widths) {
    if (control_.View == this) control_.Columns().TakeWidths(widths);
  });
  connect(header_, &ListerHeader::FilterAsked, this, &ListerWidget::EnterControls);
  connect(header_, &ListerHeader::ReleaseAsked, this,
          [this] { Queue([this] { control_.Columns().ReleaseWidths(); }); });
  connect(header_, &ListerHeader::ToggleAsked, this,
          [this](int heading) { Queue([this, heading] { control_.Columns().Toggle(heading); }); });
}

void ListerWidget::TellFocus() {
  if (control_.View == this) control_.Input().Focused();
  QueueLook(lister::LookReason::User);
}

// What cannot be seen waits: it looks when it comes on show or its window is activated.
void ListerWidget::QueueLook(lister::LookReason reason) {
  if (!isVisible() || window()->isMinimized() || IsQueued(Looks)) return;
  Queue([this, reason] { control_.LookAtDisk(reason); }, Looks);
}

// --- Tasks

void ListerWidget::Queue(std::function<void()> run, int kind) {
  tasks_.push_back({std::move(run), kind});
  taskTimer_.start();
}

bool ListerWidget::IsQueued(int kind) const {
  return std::ranges::any_of(tasks_, [kind](const Task& task) { return task.Kind == kind; });
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
  if (event.isAutoRepeat() && IsQueued(kind)) return;
  Queue([this, copy = std::shared_ptr<QKeyEvent>(event.clone())] { RunKey(*copy); }, kind);
}

void ListerWidget::RunKey(QKeyEvent& event) {
  const QPointer<ListerWidget> alive(this);
  const int code = KeyCodeOf(event);
  if (code != 0 && control_.Input().KeyDown(code, ShiftOf(event.modifiers()))) return;
  if (!alive || control_.View != this) return;
  const QString text = TypedText(event);
  if (!text.isEmpty()) {
    control_.Input().TypeText(text.toStdString());
  } else if (tree_->TakesKey(event)) {
    tree_->HandleKey(event);
  } else {
    PassOn(event);
  }
}

void ListerWidget::PassOn(QKeyEvent& event) {
  if (parent() != nullptr) QCoreApplication::sendEvent(parent(), &event);
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
    call(control_.Input(), at);
    if (!tree) return;
    if (call == MouseDown && at.Event.Button == OtherButton) tree->Mouse().CatchRelease();
    tree->viewport()->update();  // the frame that selects goes along
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
    if (newest.isValid()) control_.Rows().MoveCurrent(ListerModel::RowOf(newest));
  });
}

void ListerWidget::QueueExpansion(const QModelIndex& index) {
  if (control_.Rows().StateOf(ListerModel::RowOf(index)).IsExpanded == tree_->isExpanded(index))
    return;
  Queue([this, branch = QPersistentModelIndex(index)] {
    if (!branch.isValid()) return;
    const RowId row = ListerModel::RowOf(branch);
    const bool expanded = tree_->isExpanded(branch);
    if (expanded == control_.Rows().StateOf(row).IsExpanded) return;
    if (!expanded) {
      control_.Rows().Collapse(row);
      return;
    }
    const QPointer<ListerWidget> alive(this);
    control_.Rows().Expand(row);
    if (alive && branch.isValid()) ShowBranch(branch);
  });
}

void ListerWidget::ShowBranch(const QModelIndex& branch) {
  const int rows = std::min(model_->rowCount(branch), PageRows() - 1);
  if (rows > 0) tree_->scrollTo(model_->index(rows - 1, 0, branch));
  tree_->scrollTo(branch);
}

void ListerWidget::BeginDrag() {
  Queue([this] { RunDrag(); });
}

void ListerWidget::RunDrag() {
  const QPointer<ListerWidget> alive(this);
  control_.FirstSelected();  // makes the list of items; may read, and so let messages through
  if (!alive || control_.View != this) return;
  if (!(QGuiApplication::mouseButtons() & Qt::LeftButton)) return;
  const std::string items = control_.ActiveItemName();
  const auto count = static_cast<std::size_t>(std::ranges::distance(base::ItemList(items)));
  tree_->Mouse().Forget();
  tree_->Mouse().Leave();
  if (count > 0) {
    const std::vector<lister::RowRange> selected = control_.Input().SelectedRanges();
    const QModelIndex first =
        selected.empty() ? tree_->currentIndex() : model_->index(selected.front().First, 0);
    const QIcon icon = first.siblingAtColumn(0).data(Qt::DecorationRole).value<QIcon>();
    auto* const drag = new QDrag(tree_);  // Qt deletes it
    drag->setMimeData(MimeDataOf(items).release());
    const QString shown = count > 1 ? ToQString(control_.Forms().Grouped(count)) : QString();
    drag->setPixmap(DragPicture(icon, shown, style_.List, font(), tree_->devicePixelRatioF()));
    // Below the row that the pointer is on.
    drag->setHotSpot(QPoint(-8, -tree_->RowHeight()));
    tree_->BeginDrag(*drag);
    // What other programs do with the items is theirs to do, also to take the old ones away.
    drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::CopyAction);
  }
  if (!alive || control_.View != this) return;
  const QPoint place = mapFromGlobal(QCursor::pos());
  lister::RowPointer at;
  at.Event = {.Button = 1,
              .Shift = ShiftOf(QGuiApplication::queryKeyboardModifiers()),
              .X = static_cast<float>(ToTwips(place.x())),
              .Y = static_cast<float>(ToTwips(place.y()))};
  control_.Input().MouseUp(at);
  if (alive) tree_->EndDrag();
}

}  // namespace tarnwell::ui
