#include "ui/list/ListerDrop.h"

#include <QApplication>
#include <QDrag>
#include <QScrollBar>
#include <utility>

#include "lister/ListerUser.h"
#include "platform/FileOperation.h"
#include "ui/list/ListerDrag.h"
#include "ui/list/ListerModel.h"
#include "ui/list/ListerTree.h"
#include "ui/toolkit/FileUris.h"

namespace tarnwell::ui {

namespace {

// In milliseconds.
constexpr int BranchDelay = 800;
constexpr int FolderDelay = 1200;  // what is on show goes away for it
constexpr int ScrollDelay = 400;   // for a drop on the row at the edge
constexpr int ScrollInterval = 80;

}  // namespace

ListerDrop::ListerDrop(lister::ListerControl& control, ListerTree& tree, QObject* parent)
    : QObject(parent), control_(control), tree_(tree) {
  tree_.viewport()->setAcceptDrops(true);
  tree_.viewport()->installEventFilter(this);
  spring_.setSingleShot(true);
  rethink_.setSingleShot(true);
  rethink_.setInterval(0);
  connect(&spring_, &QTimer::timeout, this, &ListerDrop::Spring);
  connect(&scroll_, &QTimer::timeout, this, &ListerDrop::ScrollAlong);
  connect(&rethink_, &QTimer::timeout, this, [this] {
    if (over_ == Over::Rows && IsListening()) Show();
  });
  connect(tree_.verticalScrollBar(), &QScrollBar::valueChanged, this, &ListerDrop::Reconsider);
}

void ListerDrop::WatchUpButton(QWidget& button) {
  upButton_ = &button;
  button.setAcceptDrops(true);
  button.installEventFilter(this);
}

void ListerDrop::Reconsider() {
  if (over_ == Over::Rows) rethink_.start();
}

bool ListerDrop::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::DragEnter:
      Enter(static_cast<QDropEvent&>(*event), watched == upButton_ ? Over::UpButton : Over::Rows);
      return true;
    case QEvent::DragMove:
      Move(static_cast<QDropEvent&>(*event));
      return true;
    case QEvent::DragLeave:
      Leave();
      return true;
    case QEvent::Drop:
      Drop(static_cast<QDropEvent&>(*event));
      return true;
    default:
      return false;
  }
}

// Whoever declines here hears of no moves.
void ListerDrop::Enter(QDropEvent& event, Over over) {
  Leave();
  event.ignore();
  if (control_.View == nullptr || !HasFiles(*event.mimeData())) return;
  const platform::ClipboardFiles files = FilesOf(*event.mimeData());
  if (files.Items.empty()) return;
  items_ = files.Items;
  foreign_ = files.Foreign;
  over_ = over;
  source_ = qobject_cast<ListerTree*>(event.source());
  if (ask_.isNull()) ask_ = AskPointer(tree_.devicePixelRatioF());
  if (over_ == Over::UpButton) spring_.start(FolderDelay);
  event.acceptProposedAction();
}

void ListerDrop::Move(QDropEvent& event) {
  event.ignore();
  if (over_ != Over::Rows || control_.View == nullptr) return;
  Read(event);
  const bool fits = Show();
  const int edge = tree_.RowHeight() / 2;
  const bool atEdge = place_.y() < edge || place_.y() >= tree_.viewport()->height() - edge;
  if (!atEdge) scroll_.stop();
  if (atEdge && !scroll_.isActive()) scroll_.start(ScrollDelay);
  if (!fits) return;
  event.setDropAction(action_ == platform::MoveWord ? Qt::MoveAction : Qt::CopyAction);
  event.accept();
}

void ListerDrop::Leave() {
  spring_.stop();
  scroll_.stop();
  rethink_.stop();
  resting_ = QModelIndex();
  action_ = platform::CopyWord;
  ShowPointer();
  if (std::exchange(over_, Over::Nothing) != Over::Rows) return;
  tree_.MarkWhole(false);
  control_.User().DragLeft();
}

void ListerDrop::Drop(QDropEvent& event) {
  event.ignore();
  if (over_ == Over::Rows && control_.View != nullptr) {
    Read(event);
    if (Show()) Take(event);
  }
  Leave();
}

void ListerDrop::Take(QDropEvent& event) {
  // Never a move, by which the source may delete what is still to be fetched.
  const bool copies = event.possibleActions().testFlag(Qt::CopyAction);
  event.setDropAction(copies ? Qt::CopyAction : Qt::IgnoreAction);
  event.accept();
  const lister::Drop drop{.Items = items_,
                          .Action = action_,
                          .Source = source_ ? source_->Id() : lister::NoList,
                          .Foreign = foreign_};
  auto tell = [self = QPointer(this), folder = folder_, drop] {
    if (self) emit self->Dropped(folder, drop);
  };
  source_ ? source_->WhenDragEnds(std::move(tell)) : tell();
}

// A program that offers no move may have its own use for what is dragged: then Shift asks.
void ListerDrop::Read(const QDropEvent& event) {
  place_ = event.position().toPoint();
  const Qt::KeyboardModifiers held = event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
  const bool moves = event.possibleActions().testFlag(Qt::MoveAction);
  action_ = held == Qt::ControlModifier          ? platform::CopyWord
            : held == Qt::ShiftModifier && moves ? platform::MoveWord
                                                 : "";
}

bool ListerDrop::IsListening() const {
  return control_.View != nullptr && QApplication::activeModalWidget() == nullptr;
}

bool ListerDrop::Show() {
  const QModelIndex index = tree_.RowAt(place_.y());
  const lister::RowId row = index.isValid() ? ListerModel::RowOf(index) : lister::NoRow;
  folder_ = control_.User().DropTarget(row);
  const bool fits = IsListening() && control_.User().TakesDrop(folder_, items_, action_);
  fits ? control_.User().DragOver(row) : control_.User().DragLeft();
  tree_.MarkWhole(fits && !control_.Rows().StateOf(row).IsTarget);
  RestOn(index);
  ShowPointer();
  return fits;
}

// Another program shows a pointer of its own, and knows of no asking.
void ListerDrop::ShowPointer() const {
  QDrag* const drag = source_ ? source_->RunningDrag() : nullptr;
  if (drag != nullptr) drag->setDragCursor(action_.empty() ? ask_ : QPixmap(), Qt::CopyAction);
}

// --- What opens and scrolls by itself

void ListerDrop::RestOn(const QModelIndex& row) {
  if (resting_ == row && row.isValid()) return;
  resting_ = row;
  spring_.stop();
  if (MayOpen(row)) spring_.start(lister::IsFileList(tree_.Id()) ? FolderDelay : BranchDelay);
}

bool ListerDrop::MayOpen(const QModelIndex& row) const {
  if (!row.isValid()) return false;
  const lister::RowId id = ListerModel::RowOf(row);
  const lister::RowState state = control_.Rows().StateOf(id);
  const bool closed =
      lister::IsFileList(tree_.Id()) || (state.HasChildren && !tree_.isExpanded(row));
  // As a copy everything fits but what is dragged itself.
  return closed && state.Kind == platform::ItemKind::Folder &&
         control_.User().TakesDrop(control_.Rows().PathOf(id), items_,
                                   std::string(platform::CopyWord));
}

void ListerDrop::Spring() {
  if (!IsListening()) return;
  if (over_ == Over::UpButton) {
    emit UpAsked();
    spring_.start(FolderDelay);
  } else if (MayOpen(resting_)) {
    emit OpenAsked(resting_);
  }
}

void ListerDrop::ScrollAlong() {
  scroll_.start(ScrollInterval);
  if (IsListening()) tree_.ScrollRows(place_.y() < tree_.RowHeight() ? -1 : 1);
}

}  // namespace tarnwell::ui
