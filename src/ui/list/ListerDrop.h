// Drags with files over a list, out of any list of the program or another program: shows where they
// would go, opens folders that they rest on, scrolls at the edges, and reports the drop.
//
// What may be dropped where, the control knows; nothing is copied or moved here.
#pragma once

#include <QDropEvent>
#include <QObject>
#include <QPersistentModelIndex>
#include <QPixmap>
#include <QPoint>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <string>

#include "lister/ListerControl.h"

namespace tarnwell::ui {

class ListerTree;

class ListerDrop : public QObject {
  Q_OBJECT

 public:
  ListerDrop(lister::ListerControl& control, ListerTree& tree, QObject* parent);

  // What is dragged over the button for a while leads up one folder; it takes no drop.
  void WatchUpButton(QWidget& button);
  // Rows have come or gone under what is dragged.
  void Reconsider();

 signals:
  void OpenAsked(const QPersistentModelIndex& folder);
  void UpAsked();
  // The drag is over for the program that it came from.
  void Dropped(const std::string& folder, const lister::Drop& drop);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  enum class Over { Nothing, Rows, UpButton };

  void Enter(QDropEvent& event, Over over);
  void Move(QDropEvent& event);
  void Leave();
  void Drop(QDropEvent& event);
  void Take(QDropEvent& event);

  void Read(const QDropEvent& event);
  bool IsListening() const;
  // Marks what lies under the place; true if it takes what is dragged.
  bool Show();
  void ShowPointer() const;
  void RestOn(const QModelIndex& row);
  bool MayOpen(const QModelIndex& row) const;
  void Spring();
  void ScrollAlong();

  lister::ListerControl& control_;
  ListerTree& tree_;
  QWidget* upButton_ = nullptr;
  QTimer spring_;   // runs while what is dragged rests on what it can open
  QTimer scroll_;   // runs while it is near the upper or lower edge
  QTimer rethink_;  // runs once after rows have changed
  QPixmap ask_;     // the pointer of a drop that asks
  // Of the drag that is over the rows, or over the button.
  Over over_ = Over::Nothing;
  QPointer<ListerTree> source_;  // null for another program
  std::string items_;
  int foreign_ = 0;
  std::string action_;  // what would be done by the keys that are held, as a Drop has it
  std::string folder_;  // where a drop would go
  QPoint place_;        // in the viewport
  QPersistentModelIndex resting_;
};

}  // namespace tarnwell::ui
