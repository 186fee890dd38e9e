// The window of the options.
#pragma once

#include <QAbstractButton>
#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <array>
#include <string>

#include "settings/frmOptions.h"
#include "ui/forms/CategoryLabel.h"
#include "ui/toolkit/FormWindow.h"

namespace tarnwell::ui {

class OptionsWindow : public QDialog, public FormWindow {
 public:
  explicit OptionsWindow(settings::frmOptions& form);

  QWidget& Widget() override { return *this; }
  void Sync() override;
  void Measure() override;
  void Show(QWidget* owner) override;

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void reject() override;  // Escape, and the frame's close button

 private:
  using Category = settings::OptionsCategory;

  CategoryLabel* NewLabel(Category category);
  void FillCategories();
  QWidget* NewGeneralPage();
  QGroupBox* NewPair(std::array<QRadioButton*, 2>& buttons,
                     void (settings::frmOptions::*select)(std::size_t));
  QWidget* NewSpeedPage();
  QLayout* NewNumberRow();
  QLayout* NewButtonRow();
  void SyncLabel(CategoryLabel& label, const forms::Label& shown, Category category);
  void SyncRows();
  static void SetChecked(QAbstractButton& button, bool on);

  settings::frmOptions& form_;
  QGroupBox* frame_;
  CategoryLabel* general_;
  CategoryLabel* speed_;
  QStackedWidget* pages_;  // gives the frames of the categories one place and one size
  QGroupBox* generalPage_ = nullptr;
  QGroupBox* minimizing_ = nullptr;
  std::array<QRadioButton*, 2> options_{};
  QGroupBox* operations_ = nullptr;
  std::array<QRadioButton*, 2> places_{};  // of operations at work
  QGroupBox* speedPage_ = nullptr;
  QLabel* slower_ = nullptr;
  QLabel* faster_ = nullptr;
  std::array<QLabel*, settings::frmOptions::RowCount> rows_{};
  std::array<QCheckBox*, 2 * settings::frmOptions::RowCount> boxes_{};
  QLabel* numberLabel_ = nullptr;
  QLineEdit* number_ = nullptr;
  QLabel* files_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* apply_ = nullptr;
  std::string shownNumber_;  // what of the form's text the edit stands for
};

}  // namespace tarnwell::ui
