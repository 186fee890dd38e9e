// The operations at the lower edge of the main window: there as long as there is something to show.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "ui/operation/OperationList.h"

namespace tarnwell::ui {

class OperationStrip : public QWidget {
 public:
  // `leave` gives the keyboard back to the panes.
  OperationStrip(fileops::OperationQueue& queue, const OperationTools& tools,
                 std::function<void()> leave, QWidget* parent);

  OperationList& List() { return *list_; }
  void Show(const std::vector<const fileops::OperationRecord*>& records);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void Fit();

  OperationList* list_;
};

}  // namespace tarnwell::ui
