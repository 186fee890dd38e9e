// The widget of a list: drive list (folder lists) or filter toolbar (file lists), rows under their
// headings, status line.
//
// Shows what the control says and tells it what the user does; decides nothing. Calls that may read
// folders go to the control from the event loop, never from inside a Qt view: they let messages
// through, and rows may come and go meanwhile.
#pragma once

#include <QAccessible>
#include <QPersistentModelIndex>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>

#include "lister/ListerControl.h"
#include "ui/list/ListerMouse.h"
#include "ui/list/ListerStyle.h"
#include "ui/toolkit/IconSource.h"

class QLabel;

namespace tarnwell::ui {

class ListerDrives;
class ListerDrop;
class ListerHeader;
class ListerLegend;
class ListerModel;
class ListerNote;
class ListerToolbar;
class ListerTree;

class ListerWidget : public QWidget,
                     private lister::ListerView,
                     private QAccessible::ActivationObserver {
  Q_OBJECT

 public:
  // Makes itself the view of the control. Control and icons outlive the widget.
  ListerWidget(lister::ListerControl& control, const IconSource& icons, QWidget* parent = nullptr);
  ~ListerWidget() override;

  // Gives the keyboard to the filter of a file list, or unfolds the drives of a folder list.
  void EnterControls();

  QSize minimumSizeHint() const override { return {40, 40}; }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void BeginReset() override;
  void EndReset() override;
  void BeginInsert(lister::RowId parent, int first, int last) override;
  void EndInsert() override;
  void BeginRemove(lister::RowId parent, int first, int last) override;
  void EndRemove() override;
  void BeginUpdate() override;
  void EndUpdate() override;
  void BeginReorder(lister::RowId parent) override;
  void EndReorder() override;
  void CellsChanged(lister::RowId parent, int first, int last) override;
  void ExpansionChanged(lister::RowId row) override;
  void CurrentChanged() override;
  void ScrollToCurrent() override;
  void SelectionChanged() override;
  void FilterChanged() override;
  void HeadingsChanged() override;
  void ShowHeading(int heading) override;
  void StyleChanged() override;
  void StatusChanged() override;
  void DrivesChanged() override;
  void Repaint() override;
  void TakeFocus() override;
  void EnterMarks() override;
  void ScrollRows(int rows) override;
  lister::RowRange VisibleRows() const override;
  int PageRows() const override;
  lister::RowId RowUnderPointer() const override;
  void BeginDrag() override;
  void CatchUpLater(int milliseconds) override;
  void LookLater(int milliseconds) override;

  void accessibilityActiveChanged(bool active) override;

  // A wish of the user that waits for its turn. One of a kind that can be told again and again,
  // such as a held key, waits once at most.
  struct Task {
    std::function<void()> Run;
    int Kind = 0;  // 0 for all that stand for themselves
  };
  using MouseCall = void (*)(lister::ListInput&, const lister::RowPointer&);

  void BuildDriveList();
  void BuildToolbar();
  void BuildLegend();
  void ConnectTree();
  void ConnectMouse();
  void ConnectDrop();
  void ConnectHeader();
  void TellFocus();
  void QueueLook(lister::LookReason reason);
  void PlaceChildren();
  void ShowStatus(bool marksFirst = false);
  // Whether the list has use for them though they leave it only a few rows.
  bool NeedsToolbar() const;
  bool NeedsStatus() const;
  void SetMeasures();

  // Runs the task from the event loop, after those before it, unless the control has let go of the
  // widget by then.
  void Queue(std::function<void()> run, int kind = 0);
  bool IsQueued(int kind) const;
  void RunNextTask();
  void QueueMove(const QModelIndex& index);
  void QueueExpansion(const QModelIndex& index);
  // As many of the rows that came out as fit are brought on the screen.
  void ShowBranch(const QModelIndex& branch);
  void QueueKey(const QKeyEvent& event);
  void RunKey(QKeyEvent& event);
  // The tree has kept the key from the window, which may know what to do with it.
  void PassOn(QKeyEvent& event);
  void QueueMouse(MouseCall call, const PointerReport& report, int kind = 0);
  void RunDrag();

  // Takes over from the control which of these rows, and of those below, are expanded.
  void ShowExpansion(lister::RowId parent, int first, int last);
  void ShowExpansion(lister::RowId row);
  void ShowRows();
  void ShowNote();
  void ShowCurrent();
  // Screen readers learn of the selection from Qt, which nothing else here asks about it. Nothing
  // is kept there while no one reads.
  void MirrorSelection();

  lister::ListerControl& control_;
  const bool fileList_;
  const IconSource& icons_;
  ListerStyle style_;
  ListerModel* model_;
  ListerDrives* drives_ = nullptr;    // folder lists only
  ListerToolbar* toolbar_ = nullptr;  // file lists only
  ListerTree* tree_;
  ListerDrop* drop_;
  ListerHeader* header_;
  ListerNote* note_;
  QLabel* status_;
  ListerLegend* legend_ = nullptr;  // file lists only

  QTimer taskTimer_;
  QTimer catchUpTimer_;
  QTimer lookTimer_;
  std::deque<Task> tasks_;
  QPersistentModelIndex move_;  // where the user put the cursor and the control does not know yet
  bool isRead_ = false;         // by a screen reader, maybe
  int border_ = 0;              // pixels round the list
  bool toolbarAsked_ = false;   // by the user, who is in it or on the way
  int rowChanges_ = 0;          // calls that change rows and are not ended
  bool scrollDue_ = false;      // the current row is to be brought into view once there is one
  lister::RowId insertParent_ = lister::RootRow;
  int insertFirst_ = 0;
  int insertLast_ = 0;
};

}  // namespace tarnwell::ui
