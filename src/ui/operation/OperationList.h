// All operations that run or wait, a row for each; scrolls where it has too little room.
#pragma once

#include <QScrollArea>
#include <QVBoxLayout>
#include <functional>
#include <vector>

#include "ui/operation/OperationRow.h"

namespace tarnwell::ui {

class OperationList : public QScrollArea {
 public:
  // `leave` gives the keyboard to where people go on: by Escape, and when the last row goes while
  // it has the keyboard.
  OperationList(fileops::OperationQueue& queue, const OperationTools& tools,
                std::function<void()> leave, QWidget* parent);

  // Those that are to be shown, in their order.
  void Show(const std::vector<const fileops::OperationRecord*>& records);
  // Gives the keyboard to the row that waits for an answer, or else to the first.
  void Enter();
  bool HoldsKeyboard() const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return {0, 0}; }

  // Called when the rows want another height.
  std::function<void()> Changed;

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  OperationRow* FindRow(platform::OperationId operation) const;
  void Remove(std::size_t at);
  void ChainRows();

  fileops::OperationQueue& queue_;
  const OperationTools tools_;
  const std::function<void()> leave_;
  QWidget* page_;
  QVBoxLayout* column_;
  std::vector<OperationRow*> rows_;  // as they stand
};

}  // namespace tarnwell::ui
