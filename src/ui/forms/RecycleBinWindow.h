// The window of the trash.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <cstdint>
#include <vector>

#include "fileops/frmRecycleBin.h"
#include "ui/forms/TrashList.h"
#include "ui/forms/TrashModel.h"
#include "ui/toolkit/ElidedLabel.h"
#include "ui/toolkit/FormWindow.h"

namespace tarnwell::ui {

class RecycleBinWindow : public QDialog, public FormWindow, private fileops::TrashRowsView {
 public:
  RecycleBinWindow(fileops::frmRecycleBin& form, const IconSource& icons);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void reject() override;  // Escape, and the frame's close button
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using Form = fileops::frmRecycleBin;
  struct ButtonPair {
    const forms::Button* Form;
    QPushButton* Widget;
  };
  // Where the user is among the rows, while these become others.
  struct RowsPlace {
    std::uint64_t Current = 0;
    int CurrentRow = 0;
    std::uint64_t Top = 0;  // none where the view stands at its start
  };

  void BeginRows() override;
  void EndRows() override;

  QPushButton* AddButton(const forms::Button& button, void (Form::*click)());
  QLayout* MakeFilterRow();
  QLayout* MakeButtonRow();
  void AddKeys();
  void FitColumns();
  void ShowSelection();
  void TakeSelection(const QItemSelection& selected, const QItemSelection& deselected);
  void ShowMenu(const QPoint& place);
  void ClickHeading(fileops::TrashColumn column);
  void EnterFilter(const QString& typed);
  std::uint64_t IdAt(const QModelIndex& index) const;
  void NotePlace();

  fileops::frmRecycleBin& form_;
  TrashModel model_;
  TrashList* list_;
  QLineEdit* filter_;
  ElidedLabel* status_;
  ElidedLabel* note_;
  std::vector<ButtonPair> buttons_;
  QTimer news_;
  RowsPlace place_;
  bool showing_ = false;  // the selection comes from the form
  bool sorts_ = false;    // the rows become others by a click on a heading
};

}  // namespace tarnwell::ui
