// One operation as people see it: what it does, how far it has come, and buttons for what can be
// done with it.
#pragma once

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QProgressBar>
#include <QToolButton>
#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "fileops/OperationLine.h"
#include "ui/operation/OperationTools.h"
#include "ui/toolkit/ElidedLabel.h"

namespace tarnwell::ui {

class OperationRow : public QFrame {
 public:
  OperationRow(platform::OperationId operation, fileops::OperationQueue& queue,
               const OperationTools& tools, QWidget* parent);

  platform::OperationId Operation() const { return operation_; }
  // What shows it already is not touched. `isNext` tells that no other waits ahead.
  void Show(const fileops::OperationRecord& record, bool isNext);
  // Gives the keyboard to the first of its buttons.
  void Enter();
  // From left to right, also those that are hidden by now.
  std::vector<QWidget*> Buttons() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void Arrange();
  int MostButtonsWidth() const;
  QToolButton& AddButton(const QString& caption);
  void ShowName(const QString& title);
  void ShowPicture(std::string_view name);
  void ShowDeeds(const fileops::OperationRecord& record, bool isNext);
  void ShowStatus(const fileops::OperationRecord& record);
  void ShowDetails(const fileops::OperationRecord& record);
  ElidedLabel& AddDetail(QGridLayout& grid, const QString& caption);

  const platform::OperationId operation_;
  fileops::OperationQueue& queue_;
  const OperationTools tools_;
  QGridLayout* grid_;
  QLabel* picture_;
  ElidedLabel* title_;
  QProgressBar* bar_;
  ElidedLabel* status_;
  QWidget* buttons_;
  std::array<QToolButton*, fileops::OperationDeedCount> deeds_{};  // by OperationDeed
  QToolButton* unfold_ = nullptr;
  QWidget* details_;
  ElidedLabel* from_ = nullptr;
  ElidedLabel* to_ = nullptr;
  ElidedLabel* amount_ = nullptr;
  QString shownTitle_;
  std::string shownPicture_;
  std::int64_t statusAt_ = 0;  // when speed and time left were shown last, by Clock::Ticks
  bool isNarrow_ = false;
};

}  // namespace tarnwell::ui
