// The window that finds files.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <vector>

#include "tools/frmFind.h"
#include "ui/forms/FindFields.h"
#include "ui/toolkit/ElidedLabel.h"
#include "ui/toolkit/FormWindow.h"

namespace tarnwell::ui {

class FindWindow : public QDialog, public FormWindow {
 public:
  // Makes the widget of the list that shows what was found, within the window.
  using MakeList = std::function<QWidget*(QDialog& window)>;
  FindWindow(tools::frmFind& form, const MakeList& makeList);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void reject() override;  // Escape
  void closeEvent(QCloseEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct ButtonPair {
    const forms::Button* Form;
    QPushButton* Widget;
  };

  QPushButton* AddButton(const forms::Button& button, std::function<void()> click);
  QLayout* MakeUpperButtons();
  QLayout* MakeLowerButtons();
  void FillRecent();
  void TakeToPane(bool (tools::frmFind::*click)());
  void NotePlace();

  tools::frmFind& form_;
  std::vector<ButtonPair> buttons_;
  FindFields* fields_;
  QPushButton* recent_;
  QMenu* searches_;
  QLabel* status_ = nullptr;
  ElidedLabel* note_ = nullptr;
  QTimer news_;
};

}  // namespace tarnwell::ui
