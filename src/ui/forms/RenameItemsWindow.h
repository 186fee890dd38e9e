// The window that renames many items at once.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>
#include <QTreeView>
#include <cstdint>
#include <vector>

#include "fileops/frmRenameItems.h"
#include "ui/forms/RenameModel.h"
#include "ui/toolkit/FormWindow.h"

namespace tarnwell::ui {

class RenameItemsWindow : public QDialog, public FormWindow {
 public:
  RenameItemsWindow(fileops::frmRenameItems& form, const IconSource& icons);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  void reject() override;  // Escape, and the frame's close button

 private:
  using Form = fileops::frmRenameItems;
  template <typename Widget, typename State>
  struct Pair {
    Widget* Shown;
    State* Form;
  };

  QLineEdit* AddBox(const char* caption, forms::TextBox& box, QBoxLayout& row, int letters);
  void AddCheck(forms::CheckBox& check, QBoxLayout& row);
  void AddCases(const char* caption, forms::ListBox& cases, QBoxLayout& row);
  QPushButton* AddButton(const forms::Button& button, void (Form::*click)());
  QWidget* MakeRulesPage();
  QWidget* MakeLinesPage();
  QLayout* MakeButtonRow();
  void SetUpTable();
  void FillFieldMenu();
  void SyncLines();
  void TakeLines(int from, int added);
  void GoToNextFault();
  void GoToRow(std::size_t row);

  fileops::frmRenameItems& form_;
  RenameModel model_;
  QTabWidget* pages_;
  QLineEdit* pattern_ = nullptr;
  QPushButton* fields_ = nullptr;
  QPlainTextEdit* lines_ = nullptr;
  QTreeView* table_ = nullptr;
  QLabel* status_ = nullptr;
  QPushButton* nextFault_ = nullptr;
  std::vector<Pair<QLineEdit, forms::TextBox>> boxes_;
  std::vector<Pair<QCheckBox, forms::CheckBox>> checks_;
  std::vector<Pair<QComboBox, forms::ListBox>> cases_;
  std::vector<Pair<QPushButton, const forms::Button>> buttons_;
  QTimer goOn_;
  std::uint64_t tableVersion_ = 0;
  std::uint64_t linesVersion_ = 0;
  bool showing_ = false;  // what the widgets show comes from the form
};

}  // namespace tarnwell::ui
