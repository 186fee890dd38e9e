// The mouse over the rows of a list: says where it is in terms of rows and their parts, while a
// button is down also outside the list, which then scrolls along.
//
// Decides nothing about what is selected; keeps where a frame began and where the pointer rests.
#pragma once

#include <QMouseEvent>
#include <QPersistentModelIndex>
#include <QPoint>
#include <QRect>
#include <QTimer>
#include <optional>

#include "lister/list/ListInput.h"

namespace tarnwell::ui {

class ListerTree;

// RowPointer, with a row that is known to be the same one once its turn comes.
struct PointerReport {
  lister::RowPointer At;
  QPersistentModelIndex Row;
};

class ListerMouse : public QObject {
  Q_OBJECT

 public:
  ListerMouse(ListerTree& tree, const lister::ListInput& input, bool fileList);

  void Press(const QMouseEvent& event);
  void Move(const QMouseEvent& event);
  void Release(const QMouseEvent& event);
  void DoubleClick(const QMouseEvent& event);
  // A right click by the keyboard on the row with the cursor.
  void PressMenuKey();
  void Leave();
  // A menu may have taken the release of the button.
  void CatchRelease();
  // A drag took the mouse: the release of the button will not be seen here.
  void Forget();

  // The place in the viewport where the pointer rests; none while it is elsewhere.
  const std::optional<QPoint>& Pointer() const { return pointer_; }
  bool IsDown() const { return button_ != Qt::NoButton; }
  // The frame from where the button went down to the pointer, in the viewport.
  QRect Band() const;

 signals:
  void Pressed(const PointerReport& report);
  void Moved(const PointerReport& report);
  void Released(const PointerReport& report);
  void DoubleClicked(const PointerReport& report);
  void Hovered();  // the pointer rests at another place, or has left

 private:
  PointerReport ReportAt(const QPoint& place, int button, Qt::KeyboardModifiers modifiers) const;
  lister::RowPart PartAt(const QPoint& place, const QModelIndex& row) const;
  void ReportMove();
  void End();
  void ScrollAlong();

  ListerTree& tree_;
  const lister::ListInput& input_;
  const bool fileList_;
  QTimer scroll_;  // runs while the pointer is above or below the rows with a button down
  Qt::MouseButton button_ = Qt::NoButton;
  bool moved_ = false;  // far enough from where the button went down to mean it
  QPoint pressedAt_;    // in the viewport
  QPoint began_;        // the same place from the corner of all rows, whatever is scrolled
  QPoint last_;
  Qt::KeyboardModifiers modifiers_;
  std::optional<QPoint> pointer_;
};

}  // namespace tarnwell::ui
